#include "desktop/qt/element_view.h"

#include <utility>

#include <QCursor>
#include <QMouseEvent>
#include <QToolTip>

#include "desktop/qt/conversions.h"
#include "desktop/qt/focus_keeper.h"
#include "desktop/qt/form.h"
#include "desktop/qt/look.h"
#include "desktop/qt/qt_desktop.h"

namespace forms::qt {

namespace {

MouseButton toForms(Qt::MouseButton button) {
  if (button == Qt::LeftButton)
    return MouseButton::Left;
  return button == Qt::RightButton ? MouseButton::Right : MouseButton::Other;
}

} // namespace

Reporter& ElementView::reporter() const {
  return desktop_.reporter();
}

void ElementView::remove() {
  detach();
  reporter().remove(this);
}

WidgetView::WidgetView(Element& element, QtDesktop& desktop, QWidget* widget)
    : ElementView(element, desktop, widget), widget_(*widget) {
  // The forms layer moves the focus on a click; the Tab key goes through the form.
  widget->setFocusPolicy(element.takesFocus() ? Qt::TabFocus : Qt::NoFocus);
  widget->setObjectName(toQt(element.name()));
  watch(*widget);
}

void WidgetView::sync() {
  const auto quiet = reporter().quiet();
  if (std::exchange(fontScale_, scale()) != scale())
    widget_.setFont(fontFor(element()->TextFont, scale()));
  if (const QRect place = placeAt(scale()); widget_.geometry() != place) {
    widget_.setGeometry(place);
    desktop().focus().placed(widget_);
  }
  syncNames();
  syncKind();
  syncReach();
}

const Scale& WidgetView::scale() const {
  return static_cast<const Form*>(widget_.parentWidget())->scale();
}

void WidgetView::syncNames() {
  QString name = toQt(element()->spokenName());
  if (name.isEmpty())
    name = caption();
  if (widget_.accessibleName() != name)
    widget_.setAccessibleName(name);

  const QString said = description();
  if (widget_.accessibleDescription() != said)
    widget_.setAccessibleDescription(said);

  const QString tip = toQt(element()->ToolTipText);
  if (widget_.toolTip() == tip)
    return;
  widget_.setToolTip(tip);
  // A tip on the screen keeps its old text until the pointer moves on.
  if (QToolTip::isVisible() && widget_.underMouse())
    QToolTip::showText(QCursor::pos(), tip, &widget_);
}

QString WidgetView::description() const {
  return toQt(element()->spokenHint());
}

void WidgetView::syncReach() {
  const bool enabled = element()->Enabled;
  const bool visible = element()->Visible;
  if (!enabled || !visible)
    desktop().focus().vanishes(widget_);
  if (widget_.isEnabled() != enabled)
    widget_.setEnabled(enabled);
  if (widget_.isHidden() != visible)
    return;
  if (!visible)
    tellSight(widget_, false);
  widget_.setVisible(visible);
  if (visible)
    tellSight(widget_, true);
}

void WidgetView::remove() {
  const auto quiet = reporter().quiet();
  detach();
  desktop().focus().vanishes(widget_);
  if (!widget_.isHidden())
    tellSight(widget_, false);
  widget_.hide();
  reporter().remove(&widget_);
}

bool WidgetView::eventFilter(QObject* /*watched*/, QEvent* event) {
  if (!element())
    return false;
  switch (event->type()) {
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonDblClick: // the second press of two quick ones
    return !pressed(*static_cast<QMouseEvent*>(event));
  case QEvent::MouseButtonRelease:
    if (clicks_ == Clicks::OfWidget)
      return false;
    released(*static_cast<QMouseEvent*>(event));
    return true;
  case QEvent::FocusIn:
    desktop().focus().arrived(*this);
    return false;
  default:
    return false;
  }
}

bool WidgetView::pressed(const QMouseEvent& event) {
  const MouseButton button = toForms(event.button());
  const bool goesOn =
      reporter().report([&](Forms& forms) { return forms.pressed(*element(), button); });
  const bool usable = goesOn && element() && widget_.isVisible() && widget_.isEnabled();
  armed_ = usable && button == MouseButton::Left;
  return usable && clicks_ == Clicks::OfWidget;
}

void WidgetView::released(const QMouseEvent& event) {
  if (event.button() != Qt::LeftButton || !armed_)
    return;
  armed_ = false;
  if (widget_.rect().contains(wholePixel(event.position())))
    click();
}

void WidgetView::click() {
  reportUse([this](Forms& forms) { forms.clicked(*element()); });
}

void WidgetView::offerPress(Pressable& shown, bool offered) {
  if (offered == static_cast<bool>(shown.press))
    return;
  shown.press = {};
  if (!offered)
    return;
  // Later, for the press may end in a message box, and the screen reader waits for its call's end.
  shown.press = [this] {
    QMetaObject::invokeMethod(
        this, [this] { reportUse([this](Forms& forms) { forms.invoked(*element()); }); },
        Qt::QueuedConnection);
  };
}

} // namespace forms::qt
