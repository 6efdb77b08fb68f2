#include "desktop/qt/focus_keeper.h"

#include <utility>

#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>

#include "desktop/qt/form.h"

namespace forms::qt {

FocusKeeper::FocusKeeper(Reporter& reporter, const Views& views)
    : reporter_(reporter), views_(views) {
  qApp->installEventFilter(this);
}

void FocusKeeper::watch(QMdiArea& area) {
  // Later, for the area is in the middle of its own work when it signals.
  connect(
      &area, &QMdiArea::subWindowActivated, &area, [this, &area] { childActivated(area); },
      Qt::QueuedConnection);
}

void FocusKeeper::give(Element& element) {
  const auto quiet = reporter_.quiet();
  const auto& view = viewOf<WidgetView>(views_, element);
  QWidget& widget = view.widget();
  widget.window()->setAttribute(Qt::WA_KeyboardFocusChange, keyboard_);
  // A text that the keyboard comes to is selected: typing replaces it.
  widget.setFocus(keyboard_ ? Qt::TabFocusReason : Qt::OtherFocusReason);
  outline(view);
  showInSight(view);
}

void FocusKeeper::laidOut(Window& window) {
  if (!window.focused() || &window != reporter_.forms().activeChild())
    return;
  const auto& view = viewOf<WidgetView>(views_, *window.focused());
  outline(view);
  showInSight(view);
}

// The mouse is at what it clicks, and that must not go away from under it.
void FocusKeeper::showInSight(const WidgetView& view) {
  if (keyboard_)
    viewOf<WidgetView>(views_, view.element()->window()).showInSight(view.focusPlace());
}

bool FocusKeeper::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
  case QEvent::KeyPress:
  case QEvent::ShortcutOverride: // of a key that is a shortcut there is no press
    keyboard_ = true;
    break;
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonDblClick:
    keyboard_ = false;
    delete outline_;
    break;
  case QEvent::WindowActivate: // Qt moves the focus on that occasion
  case QEvent::WindowDeactivate:
    if (!views_.isEmpty() && watched->isWidgetType() &&
        static_cast<QWidget*>(watched)->isWindow()) {
      movedByQt_ = true;
      later();
    }
    break;
  default:
    break;
  }
  return false;
}

void FocusKeeper::outline(const WidgetView& view) {
  delete outline_;
  if (!keyboard_ || !view.needsOutline())
    return;
  constexpr int Width = 1; // pixels
  constexpr int Distance = 3;
  const QWidget& widget = view.widget();
  outline_ = new Outline(static_cast<Form&>(*widget.parentWidget()));
  outline_->showAt(widget.geometry().adjusted(-Distance, -Distance, Distance, Distance), Width);
}

void FocusKeeper::activate(Window& child) {
  const auto quiet = reporter_.quiet();
  auto& sub = static_cast<QMdiSubWindow&>(viewOf<WidgetView>(views_, child).widget());
  sub.mdiArea()->setActiveSubWindow(&sub);
  focus(child);
  laidOut(child);
}

void FocusKeeper::vanishes(QWidget& widget) {
  QWidget* const top = widget.window();
  QWidget* const holder = top->focusWidget();
  if (!holder || (holder != &widget && !widget.isAncestorOf(holder)))
    return;
  const auto quiet = reporter_.quiet();
  delete outline_;
  if (QWidget* form = widget.parentWidget())
    form->setFocus(Qt::OtherFocusReason);
}

void FocusKeeper::arrived(WidgetView& view) {
  const Element& element = *view.element();
  if (reporter_.isQuiet() || element.window().focused() == &element)
    return;
  arrived_ = movedByQt_ ? nullptr : &view;
  later();
}

void FocusKeeper::later() {
  QMetaObject::invokeMethod(
      this, [this] { settle(); }, Qt::QueuedConnection);
}

void FocusKeeper::settle() {
  movedByQt_ = false;
  const QPointer<WidgetView> wished = std::exchange(arrived_, nullptr);
  QWidget* const holder = QApplication::focusWidget();
  // Behind a menu, a list or a box everything keeps its place until they have gone.
  if (!holder || QApplication::activePopupWidget())
    return;
  if (wished && wished->element() && &wished->widget() == holder)
    if (reporter_.report([&](Forms& f) { return f.focusMoved(*wished->element()); }))
      return;
  realign();
}

Window* FocusKeeper::windowOf(const QWidget* widget) const {
  for (Window* window : reporter_.forms().openWindows())
    if (&viewOf<WidgetView>(views_, *window).widget() == widget)
      return window;
  return nullptr;
}

void FocusKeeper::childActivated(const QMdiArea& area) {
  QMdiSubWindow* const sub = area.activeSubWindow();
  if (!sub)
    return; // another program, or the last child has gone
  Window* const window = windowOf(sub);
  if (window && window == reporter_.forms().activeChild())
    return;
  if (window && !movedByQt_ &&
      reporter_.report([&](Forms& forms) { return forms.activated(*window); }))
    return;
  realign();
}

void FocusKeeper::realign() {
  Window* const window = windowOf(QApplication::activeWindow());
  Window* const child = reporter_.forms().activeChild();
  if (window && window->windowKind() == WindowKind::Own)
    focus(*window);
  else if (window && child)
    activate(*child);
}

void FocusKeeper::focus(Window& window) {
  const auto quiet = reporter_.quiet();
  const Element& holding = window.focused() ? *window.focused() : window;
  QWidget& holder = viewOf<WidgetView>(views_, holding).focusHolder();
  if (!holder.hasFocus())
    holder.setFocus(Qt::OtherFocusReason);
}

} // namespace forms::qt
