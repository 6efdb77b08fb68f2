// The common part of all elements that are widgets on a form: place, visibility, names, and the
// mouse's way to the forms layer.
#pragma once

#include <QWidget>

#include "desktop/qt/element_view.h"

class QMouseEvent;

namespace forms::qt {

// The view watches the widget's events; the widget owns the view.
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
