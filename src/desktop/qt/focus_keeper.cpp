#include "desktop/qt/focus_keeper.h"

#include <utility>

#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>

#include "desktop/qt/form.h"
#include "desktop/qt/picture.h"
#include "desktop/qt/qt_desktop.h"
#include "desktop/qt/windows.h"

namespace forms::qt {

namespace {

// Of the mark.
QRect placeAround(const QWidget& widget) {
  constexpr int Distance = 3; // pixels
  return widget.geometry().adjusted(-Distance, -Distance, Distance, Distance);
}

} // namespace

FocusKeeper::FocusKeeper(QtDesktop& desktop) : desktop_(desktop) {
  qApp->installEventFilter(this);
}

void FocusKeeper::watch(QMdiArea& area) {
  area_ = &area;
  // Later, for the area is in the middle of its own work when it signals.
  connect(
      &area, &QMdiArea::subWindowActivated, this, [this] { childActivated(); },
      Qt::QueuedConnection);
}

void FocusKeeper::give(Element& element) {
  const auto quiet = desktop_.reporter().quiet();
  const auto& view = desktop_.viewOf<WidgetView>(element);
  QWidget& widget = view.widget();
  widget.window()->setAttribute(Qt::WA_KeyboardFocusChange, keyboard_);
  // A text that the keyboard comes to is selected: typing replaces it.
  widget.setFocus(keyboard_ ? Qt::TabFocusReason : Qt::OtherFocusReason);
  mark(view);
  showInSight(view);
}

void FocusKeeper::laidOut(Window& window) {
  if (window.focused())
    showInSight(desktop_.viewOf<WidgetView>(*window.focused()));
}

// The mouse is at what it clicks, and that must not go away from under it.
void FocusKeeper::showInSight(const WidgetView& view) {
  if (keyboard_)
    desktop_.viewOf<WindowView>(view.element()->window()).showInSight(view.focusPlace());
}

bool FocusKeeper::eventFilter(QObject* /*watched*/, QEvent* event) {
  switch (event->type()) {
  case QEvent::KeyPress:
  case QEvent::ShortcutOverride: // of a key that is a shortcut there is no press
    keyboard_ = true;
    break;
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonDblClick:
    keyboard_ = false;
    delete mark_;
    break;
  default:
    break;
  }
  return false;
}

void FocusKeeper::mark(const WidgetView& view) {
  delete mark_;
  if (!keyboard_ || !view.needsMark())
    return;
  constexpr int Width = 1; // pixels
  const QWidget& widget = view.widget();
  mark_ = new Mark(widget.parentWidget());
  mark_->showAt(placeAround(widget), Width);
}

void FocusKeeper::placed(const QWidget& widget) {
  if (mark_ && widget.window()->focusWidget() == &widget)
    mark_->setGeometry(placeAround(widget));
}

void FocusKeeper::activate(Window& child) {
  const auto quiet = desktop_.reporter().quiet();
  QWidget& widget = desktop_.viewOf<WindowView>(child).widget();
  area_->setActiveSubWindow(static_cast<QMdiSubWindow*>(&widget));
  focus(child);
  if (child.focused())
    showInSight(desktop_.viewOf<WidgetView>(*child.focused()));
}

void FocusKeeper::vanishes(QWidget& widget) {
  QWidget* const top = widget.window();
  QWidget* const holder = top->focusWidget();
  if (!holder || (holder != &widget && !widget.isAncestorOf(holder)))
    return;
  const auto quiet = desktop_.reporter().quiet();
  delete mark_;
  if (QWidget* form = widget.parentWidget())
    form->setFocus(Qt::OtherFocusReason);
}

void FocusKeeper::arrived(WidgetView& view) {
  const Element& element = *view.element();
  if (desktop_.reporter().isQuiet() || element.window().focused() == &element)
    return;
  arrived_ = settling_ ? nullptr : &view;
  later();
}

void FocusKeeper::windowChanged() {
  settling_ = true;
  later();
}

void FocusKeeper::later() {
  if (std::exchange(looking_, true))
    return;
  QMetaObject::invokeMethod(
      this, [this] { look(); }, Qt::QueuedConnection);
}

void FocusKeeper::look() {
  looking_ = false;
  settling_ = false;
  const QPointer<WidgetView> wished = std::exchange(arrived_, nullptr);
  QWidget* const holder = QApplication::focusWidget();
  // Behind a menu, a list or a box everything keeps its place until they have gone.
  if (!holder || QApplication::activePopupWidget())
    return;
  if (wished && wished->element() && &wished->widget() == holder)
    if (desktop_.reporter().report([&](Forms& f) { return f.focusMoved(*wished->element()); }))
      return;
  realign();
}

Window* FocusKeeper::windowOf(const QWidget* widget) const {
  for (Window* window : desktop_.reporter().forms().openWindows())
    if (&desktop_.viewOf<WindowView>(*window).widget() == widget)
      return window;
  return nullptr;
}

void FocusKeeper::childActivated() {
  QMdiSubWindow* const sub = area_ ? area_->activeSubWindow() : nullptr;
  if (!sub)
    return; // another program, or the last child has gone
  Window* const window = windowOf(sub);
  if (window && window == desktop_.reporter().forms().activeChild())
    return;
  if (window && !settling_ &&
      desktop_.reporter().report([&](Forms& forms) { return forms.activated(*window); }))
    return;
  realign();
}

void FocusKeeper::realign() {
  Window* const window = windowOf(QApplication::activeWindow());
  Window* const child = desktop_.reporter().forms().activeChild();
  if (window && window->windowKind() == WindowKind::Own)
    focus(*window);
  else if (window && child)
    activate(*child);
}

void FocusKeeper::focus(Window& window) {
  const auto quiet = desktop_.reporter().quiet();
  QWidget& holder = window.focused() ? desktop_.viewOf<WidgetView>(*window.focused()).widget()
                                     : desktop_.viewOf<WindowView>(window).form();
  if (!holder.hasFocus())
    holder.setFocus(Qt::OtherFocusReason);
}

} // namespace forms::qt
