#include "desktop/qt/control_view.h"

#include <utility>

#include <QCursor>
#include <QMouseEvent>
#include <QToolTip>

#include "desktop/qt/conversions.h"

namespace forms::qt {

namespace {

MouseButton toForms(Qt::MouseButton button) {
  if (button == Qt::LeftButton)
    return MouseButton::Left;
  return button == Qt::RightButton ? MouseButton::Right : MouseButton::Other;
}

} // namespace

ControlView::ControlView(Element& element, Screen& screen, QWidget* widget)
    : WidgetView(element, screen.reporter, widget), screen_(screen),
      pressable_(dynamic_cast<Pressable*>(widget)) {
  // The forms layer moves the focus on a click; the Tab key goes through the form.
  widget->setFocusPolicy(element.takesFocus() ? Qt::TabFocus : Qt::NoFocus);
}

void ControlView::syncWidget() {
  if (std::exchange(fontScale_, scale()) != scale())
    widget().setFont(screen_.fonts.fontFor(element()->TextFont, scale()));
  widget().setGeometry(placeAt(scale()));
  syncNames();
  syncKind();
  syncReach();
}

void ControlView::setColors(QPalette::ColorRole background, QPalette::ColorRole foreground) {
  QPalette palette = widget().palette();
  if (element()->BackColor)
    palette.setColor(background, toQt(*element()->BackColor));
  if (element()->ForeColor)
    palette.setColor(foreground, toQt(*element()->ForeColor));
  widget().setPalette(palette);
}

void ControlView::syncNames() {
  QString name = toQt(element()->spokenName());
  if (name.isEmpty())
    name = caption();
  if (widget().accessibleName() != name)
    widget().setAccessibleName(name);

  const QString said = description();
  if (widget().accessibleDescription() != said)
    widget().setAccessibleDescription(said);

  const QString tip = toQt(element()->ToolTipText);
  if (widget().toolTip() == tip)
    return;
  widget().setToolTip(tip);
  // A tip on the screen keeps its old text until the pointer moves on.
  if (QToolTip::isVisible() && widget().underMouse())
    QToolTip::showText(QCursor::pos(), tip, &widget());
}

QString ControlView::description() const {
  return toQt(element()->spokenHint());
}

void ControlView::syncReach() {
  const bool enabled = element()->Enabled;
  const bool visible = element()->Visible;
  if (!enabled || !visible)
    screen_.focus.vanishes(widget());
  widget().setEnabled(enabled);
  if (visible != widget().isHidden())
    return;
  if (!visible)
    tellSight(widget(), false);
  widget().setVisible(visible);
  if (visible)
    tellSight(widget(), true);
}

void ControlView::remove() {
  screen_.focus.vanishes(widget());
  if (!widget().isHidden())
    tellSight(widget(), false);
  WidgetView::remove();
}

bool ControlView::eventFilter(QObject* /*watched*/, QEvent* event) {
  if (!element())
    return false;
  switch (event->type()) {
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonDblClick: // the second press of two quick ones
    return !pressed(*static_cast<QMouseEvent*>(event));
  case QEvent::MouseButtonRelease:
    if (!pressable_)
      return false;
    released(*static_cast<QMouseEvent*>(event));
    return true;
  case QEvent::FocusIn:
    screen_.focus.arrived(*this);
    return false;
  default:
    return false;
  }
}

bool ControlView::pressed(const QMouseEvent& event) {
  const MouseButton button = toForms(event.button());
  const bool goesOn =
      reporter().report([&](Forms& forms) { return forms.pressed(*element(), button); });
  const bool usable = goesOn && element() && widget().isVisible() && widget().isEnabled();
  armed_ = usable && button == MouseButton::Left;
  return usable && !pressable_;
}

void ControlView::released(const QMouseEvent& event) {
  if (event.button() != Qt::LeftButton || !armed_)
    return;
  armed_ = false;
  if (widget().rect().contains(event.position().toPoint()))
    click();
}

void ControlView::click() {
  reportUse([this](Forms& forms) { forms.clicked(*element()); });
}

void ControlView::offerPress(bool offered) {
  pressable_->press = {};
  if (offered)
    pressable_->press = [this] { reportUse([this](Forms& forms) { forms.invoked(*element()); }); };
}

} // namespace forms::qt
