#include "desktop/qt/focus_keeper.h"

#include <algorithm>
#include <utility>

#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>

#include "desktop/qt/form.h"
#include "desktop/qt/picture.h"
#include "desktop/qt/qt_desktop.h"
#include "desktop/qt/windows.h"

namespace forms::qt {

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
}

void FocusKeeper::useKeyboard(bool used) {
  keyboard_ = used;
  if (!used)
    delete mark_;
}

void FocusKeeper::mark(const WidgetView& view) {
  delete mark_;
  if (!keyboard_ || !view.needsMark())
    return;
  constexpr int Width = 1; // pixels
  constexpr int Distance = 3;
  const QWidget& widget = view.widget();
  mark_ = new Mark(widget.parentWidget(), Width);
  mark_->setGeometry(widget.geometry().adjusted(-Distance, -Distance, Distance, Distance));
  mark_->show();
}

void FocusKeeper::activate(Window& child) {
  const auto quiet = desktop_.reporter().quiet();
  QWidget& widget = desktop_.viewOf<WindowView>(child).widget();
  area_->setActiveSubWindow(static_cast<QMdiSubWindow*>(&widget));
  focus(child);
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

void FocusKeeper::arrived(Element& element) {
  if (desktop_.reporter().isQuiet() || element.window().focused() == &element)
    return;
  arrived_ = settling_ ? nullptr : &element;
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
  const Element* const wished = std::exchange(arrived_, nullptr);
  QWidget* const holder = QApplication::focusWidget();
  // Behind a menu, a list or a box everything keeps its place until they have gone.
  if (!holder || QApplication::activePopupWidget())
    return;
  if (Element* const element = openElement(wished);
      element && &desktop_.viewOf<WidgetView>(*element).widget() == holder)
    if (desktop_.reporter().report([&](Forms& forms) { return forms.focusMoved(*element); }))
      return;
  realign();
}

// The same address, if it is still an element of a window on the screen.
Element* FocusKeeper::openElement(const Element* address) const {
  for (const Window* window : desktop_.reporter().forms().openWindows()) {
    const auto& elements = window->elements();
    const auto found = std::find(elements.begin(), elements.end(), address);
    if (found != elements.end())
      return *found;
  }
  return nullptr;
}

void FocusKeeper::childActivated() {
  QMdiSubWindow* const sub = area_ ? area_->activeSubWindow() : nullptr;
  if (!sub)
    return; // another program, or the last child has gone
  Forms& forms = desktop_.reporter().forms();
  for (Window* window : forms.openWindows()) {
    if (&desktop_.viewOf<WindowView>(*window).widget() != sub)
      continue;
    if (window == forms.activeChild())
      return;
    if (!settling_ && desktop_.reporter().report([&](Forms& f) { return f.activated(*window); }))
      return;
    break;
  }
  realign();
}

void FocusKeeper::realign() {
  QWidget* const active = QApplication::activeWindow();
  for (Window* window : desktop_.reporter().forms().openWindows()) {
    if (&desktop_.viewOf<WindowView>(*window).widget() != active)
      continue;
    if (window->windowKind() == WindowKind::Own)
      return focus(*window);
    if (Window* child = desktop_.reporter().forms().activeChild())
      activate(*child);
    return;
  }
}

void FocusKeeper::focus(Window& window) {
  const auto quiet = desktop_.reporter().quiet();
  QWidget& holder = window.focused() ? desktop_.viewOf<WidgetView>(*window.focused()).widget()
                                     : desktop_.viewOf<WindowView>(window).form();
  if (!holder.hasFocus())
    holder.setFocus(Qt::OtherFocusReason);
}

} // namespace forms::qt
