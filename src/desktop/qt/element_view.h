// What stands on the screen for one element: what all views have in common, and those that are
// widgets on a form.
#pragma once

#include <QWidget>

#include "desktop/qt/accessibility.h"
#include "desktop/qt/reporter.h"
#include "desktop/qt/scale.h"
#include "forms/element.h"

class QMouseEvent;

namespace forms::qt {

class QtDesktop;

class ElementView : public QObject {
public:
  ElementView(Element& element, QtDesktop& desktop, QObject* parent)
      : QObject(parent), desktop_(desktop), element_(&element) {}

  // nullptr once the element has gone.
  Element* element() const { return element_; }
  // Shows what the element's properties say now. Reports nothing.
  virtual void sync() = 0;
  // The element goes: never looks at it again.
  virtual void detach() { element_ = nullptr; }
  // Detaches, and takes what stands on the screen off it.
  virtual void remove();

protected:
  QtDesktop& desktop() const { return desktop_; }
  Reporter& reporter() const;
  template <class T> T& elementAs() const { return static_cast<T&>(*element_); }

private:
  QtDesktop& desktop_;
  Element* element_;
};

// The common part of all elements that are widgets: place, visibility, names, and the mouse's way
// to the forms layer. The view watches the widget's events; the widget owns the view.
class WidgetView : public ElementView {
public:
  void sync() final;
  void remove() override;
  QWidget& widget() const { return widget_; }
  // Whether the focus on the widget must be marked for who plays with the keyboard. Qt's style does
  // so for most kinds.
  virtual bool needsMark() const { return false; }
  // Pixels on a form of this scale.
  QRect placeAt(const Scale& scale) const { return placeFor(scale.pixels(*element())); }
  // Pixels on the form that who plays with the keyboard must see.
  virtual QRect focusPlace() const { return widget_.geometry(); }

protected:
  WidgetView(Element& element, QtDesktop& desktop, QWidget* widget);

  // Whether a press and a release over the widget make a click, for widgets that signal none.
  enum class Clicks { OfWidget, OfMouse };
  void setClicks(Clicks clicks) { clicks_ = clicks; }
  // Watches the events of the widget or a part of it.
  void watch(QWidget& part) { part.installEventFilter(this); }

  // Brings the kind's own properties into line.
  virtual void syncKind() = 0;
  // Text that names the element when it has no AccessibleName.
  virtual QString caption() const { return {}; }
  // What screen readers say after the name.
  virtual QString description() const;
  // Of the form that the widget stands on.
  const Scale& scale() const;
  // Pixels on the form for the element's own place and size.
  virtual QRect placeFor(const QRect& wanted) const { return wanted; }

  bool eventFilter(QObject* watched, QEvent* event) override;
  // Reports what the person did with the widget, and shows what has come of it: the forms layer may
  // have refused it or changed it.
  template <class Tell> void reportUse(Tell tell) {
    if (reporter().isQuiet() || !element())
      return;
    reporter().report(tell);
    if (element())
      sync();
  }
  // Reports that the left button, a key or a screen reader clicked the element.
  void click();
  // Whether a screen reader's press clicks the element, shown by this widget.
  void offerPress(Pressable& shown, bool offered);

private:
  void syncNames();
  void syncReach();
  // Whether the widget shall handle the press.
  bool pressed(const QMouseEvent& event);
  void released(const QMouseEvent& event);

  QWidget& widget_;
  Scale fontScale_{0}; // of the font that the widget has
  Clicks clicks_ = Clicks::OfWidget;
  bool armed_ = false; // pressed and not yet let go
};

// The view of one kind of element by one kind of widget.
template <class Shown, class Widget> class ViewOf : public WidgetView {
public:
  Widget& widget() const { return static_cast<Widget&>(WidgetView::widget()); }

protected:
  ViewOf(Shown& element, QtDesktop& desktop, Widget* widget)
      : WidgetView(element, desktop, widget) {}
  // To be asked only while there is an element.
  Shown& shown() const { return elementAs<Shown>(); }
};

} // namespace forms::qt
