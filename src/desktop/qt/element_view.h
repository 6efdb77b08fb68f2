// What stands on the screen for one element: what all views have in common, and those that are
// widgets on a form.
#pragma once

#include <QWidget>

#include "desktop/qt/services.h"
#include "forms/element.h"

class QMouseEvent;

namespace forms::qt {

class ElementView : public QObject {
public:
  ElementView(Element& element, Services services, QObject* parent)
      : QObject(parent), services_(services), element_(&element) {}

  // Shows what the element's properties say now. Reports nothing.
  virtual void sync() = 0;
  // The widget that shows the element, if it has one.
  virtual QWidget* widget() const { return nullptr; }
  // The element goes: takes it off the screen and never looks at it again.
  void leave();
  // As leave, when the whole window goes with it.
  void forget() { element_ = nullptr; }

protected:
  virtual void takeOff() = 0;

  const Services& services() const { return services_; }
  // nullptr once the element has gone.
  Element* element() const { return element_; }
  template <class T> T* elementAs() const { return static_cast<T*>(element_); }

private:
  Services services_;
  Element* element_;
};

// The common part of all elements that are widgets: place, visibility, names, and the mouse's way
// to the forms layer. The view watches the widget's events; the widget owns the view.
class WidgetView : public ElementView {
public:
  WidgetView(Element& element, Services services, QWidget* widget);

  void sync() final;
  QWidget* widget() const final { return widget_; }

protected:
  // Whether a press and a release over the widget make a click, for widgets that signal none.
  enum class Clicks { OfWidget, OfMouse };
  void setClicks(Clicks clicks) { clicks_ = clicks; }
  // Watches the events of a part of the widget too.
  void watch(QWidget* part);

  // Brings the kind's own properties into line.
  virtual void syncKind() = 0;
  // Text that names the element when it has no AccessibleName.
  virtual QString caption() const { return {}; }
  // What screen readers say after the name.
  virtual QString description() const;
  // Pixels on the form for the element's own place and size.
  virtual QRect placeFor(const QRect& wanted) const { return wanted; }
  void takeOff() override;

  bool eventFilter(QObject* watched, QEvent* event) override;
  // Reports that the left button, a key or a screen reader clicked the element.
  void click();

private:
  void syncPlace();
  void syncNames();
  void syncReach();
  // Whether the widget shall handle the press.
  bool pressed(const QMouseEvent& event);
  void released(const QMouseEvent& event);

  QWidget* widget_;
  Clicks clicks_ = Clicks::OfWidget;
  bool armed_ = false; // pressed and not yet let go
};

} // namespace forms::qt
