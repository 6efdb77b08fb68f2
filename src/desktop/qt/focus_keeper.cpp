#include "desktop/qt/focus_keeper.h"

#include <algorithm>
#include <utility>

#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>

#include "desktop/qt/form.h"
#include "desktop/qt/mark.h"
#include "desktop/qt/reporter.h"
#include "desktop/qt/views.h"
#include "desktop/qt/window_view.h"
#include "forms/grid_picture.h"

namespace forms::qt {

void FocusKeeper::watch(QMdiArea& area) {
  area_ = &area;
  // Later, for the area is in the middle of its own work when it signals.
  connect(
      &area, &QMdiArea::subWindowActivated, this, [this] { childActivated(); },
      Qt::QueuedConnection);
}

void FocusKeeper::give(Element& element) {
  const Reporter::Quiet quiet(reporter_);
  QWidget* const widget = views_.widgetOf(element);
  if (!widget)
    return;
  widget->window()->setAttribute(Qt::WA_KeyboardFocusChange, keyboard_);
  // A text that the keyboard comes to is selected: typing replaces it.
  widget->setFocus(keyboard_ ? Qt::TabFocusReason : Qt::OtherFocusReason);
  mark(element, *widget);
}

void FocusKeeper::useKeyboard(bool used) {
  keyboard_ = used;
  if (!used)
    delete mark_;
}

// Qt's style marks the other kinds by itself, and on a board the cursor shows the place.
void FocusKeeper::mark(const Element& element, QWidget& widget) {
  delete mark_;
  bool markable = element.kind() == Kind::CheckBox;
  if (element.kind() == Kind::Picture) {
    const GridPicture* const board = element.window().grid();
    markable = element.index() == 0 && (board != &element || board->cursorSquare == 0);
  }
  if (!keyboard_ || !markable)
    return;
  constexpr int Width = 1; // pixels
  constexpr int Distance = 3;
  mark_ = new Mark(widget.parentWidget(), Width);
  mark_->setGeometry(widget.geometry().adjusted(-Distance, -Distance, Distance, Distance));
  mark_->show();
}

void FocusKeeper::activate(Window& child) {
  const Reporter::Quiet quiet(reporter_);
  WindowView* const view = views_.of(child);
  if (!view || !area_)
    return;
  area_->setActiveSubWindow(static_cast<QMdiSubWindow*>(view->widget()));
  focus(child);
}

void FocusKeeper::release(QWidget& widget) {
  QWidget* const top = widget.window();
  QWidget* const holder = top->focusWidget();
  if (!holder || (holder != &widget && !widget.isAncestorOf(holder)))
    return;
  const Reporter::Quiet quiet(reporter_);
  delete mark_;
  if (QWidget* form = widget.parentWidget())
    form->setFocus(Qt::OtherFocusReason);
}

void FocusKeeper::arrived(Element& element) {
  if (reporter_.isQuiet() || element.window().focused() == &element)
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
  if (Element* const element = openElement(wished); element && views_.widgetOf(*element) == holder)
    if (reporter_.report([&](Forms& forms) { return forms.focusMoved(*element); }))
      return;
  realign();
}

// The same address, if it is still an element of a window on the screen.
Element* FocusKeeper::openElement(const Element* address) const {
  for (const Window* window : reporter_.forms().openWindows()) {
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
  Forms& forms = reporter_.forms();
  for (Window* window : forms.openWindows()) {
    WindowView* const view = views_.of(*window);
    if (!view || view->widget() != sub)
      continue;
    if (window == forms.activeChild())
      return;
    if (!settling_ && reporter_.report([&](Forms& f) { return f.activated(*window); }))
      return;
    break;
  }
  realign();
}

void FocusKeeper::realign() {
  QWidget* const active = QApplication::activeWindow();
  for (Window* window : reporter_.forms().openWindows()) {
    WindowView* const view = views_.of(*window);
    if (!view || view->widget() != active)
      continue;
    if (window->windowKind() == WindowKind::Own)
      return focus(*window);
    if (Window* child = reporter_.forms().activeChild())
      activate(*child);
    return;
  }
}

void FocusKeeper::focus(Window& window) {
  const Reporter::Quiet quiet(reporter_);
  QWidget* holder = window.focused() ? views_.widgetOf(*window.focused()) : nullptr;
  if (WindowView* const view = views_.of(window); !holder && view)
    holder = view->form();
  if (holder && !holder->hasFocus())
    holder->setFocus(Qt::OtherFocusReason);
}

} // namespace forms::qt
