// What stands on the screen for one element: what everything below the views knows of them.
#pragma once

#include <QHash>
#include <QWidget>

#include "desktop/qt/conversions.h"
#include "desktop/qt/reporter.h"
#include "desktop/qt/scale.h"
#include "forms/element.h"

namespace forms::qt {

class ElementView : public QObject {
public:
  ElementView(Element& element, Reporter& reporter, QObject* parent)
      : QObject(parent), reporter_(reporter), element_(&element) {}

  // nullptr once the element has gone.
  Element* element() const { return element_; }
  // Shows what the element's properties say now. Reports nothing.
  virtual void sync() = 0;
  // The element goes: never looks at it again.
  virtual void detach() { element_ = nullptr; }

protected:
  Reporter& reporter() const { return reporter_; }
  template <class T> T& elementAs() const { return static_cast<T&>(*element_); }

private:
  Reporter& reporter_;
  Element* element_;
};

// One that is a widget: a window, or an element on a form. The view watches the widget's events;
// the widget owns the view.
class WidgetView : public ElementView {
public:
  void sync() final {
    const auto quiet = reporter().quiet();
    syncWidget();
  }
  // Once detached: takes the widget off the screen.
  virtual void remove() {
    const auto quiet = reporter().quiet();
    widget_.hide();
    reporter().remove(&widget_, made_);
  }
  QWidget& widget() const { return widget_; }

  // What gets the keys while the keyboard's focus is here.
  virtual QWidget& focusHolder() const { return widget_; }
  // Whether the focus must be outlined for who plays with the keyboard.
  virtual bool needsOutline() const { return true; }
  // Pixels on the form that who plays with the keyboard must see.
  virtual QRect focusPlace() const { return widget_.geometry(); }
  // Of a window: scrolls it until this place of its form is seen, as far as the place is not larger
  // than the room for it.
  virtual void showInSight(const QRect& /*place*/) {}
  // Of an element: its pixels on a form of this scale.
  virtual QRect placeAt(const Scale& /*scale*/) const { return {}; }

protected:
  WidgetView(Element& element, Reporter& reporter, QWidget* widget)
      : ElementView(element, reporter, widget), widget_(*widget), made_(reporter.now()) {
    widget->setObjectName(toQt(element.name()));
    watch(*widget);
  }

  // Brings the widget into line with the element.
  virtual void syncWidget() = 0;
  // Watches the events of the widget or a part of it.
  void watch(QWidget& part) { part.installEventFilter(this); }

private:
  QWidget& widget_;
  const Reporter::Age made_;
};

// The views of all windows and elements that stand on the screen; windows are elements too.
using Views = QHash<const Element*, ElementView*>;

// That there is no view, or one of another kind, is a fault of the program, which ends the process.
template <class View> View& viewOf(const Views& views, const Element& element) {
  auto* const view = dynamic_cast<View*>(views.value(&element));
  if (!view)
    qFatal("%s is not on the screen", element.name().c_str());
  return *view;
}

} // namespace forms::qt
