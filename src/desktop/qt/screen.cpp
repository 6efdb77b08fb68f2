#include "desktop/qt/screen.h"

#include <QApplication>
#include <QEventLoop>
#include <QMenuBar>

#include "desktop/qt/button_view.h"
#include "desktop/qt/check_box_view.h"
#include "desktop/qt/drop_list_view.h"
#include "desktop/qt/elements.h"
#include "desktop/qt/form.h"
#include "desktop/qt/frame_window.h"
#include "desktop/qt/label_view.h"
#include "desktop/qt/own_window.h"
#include "desktop/qt/picture.h"
#include "desktop/qt/text_area_view.h"
#include "desktop/qt/text_box_view.h"
#include "desktop/qt/timer_view.h"
#include "desktop/qt/windows.h"

namespace forms::qt {

Screen::~Screen() {
  for (ElementView* element : views_.elements())
    element->forget();
  for (WindowView* window : views_.windows())
    if (window != frame_)
      window->leave();
  if (frame_)
    frame_->leave();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Screen::open(Window& window) {
  WindowView* const view = makeView(window);
  views_.enter(window, view);
  for (Element* element : window.elements())
    change(*element);
  view->sync();
  view->appear();
}

void Screen::close(Window& window) {
  WindowView* const view = views_.take(window);
  if (!view)
    return;
  for (Element* element : window.elements()) {
    ElementView* const gone = views_.take(*element);
    if (!gone)
      continue;
    // A widget goes with its window; a clock must stop and a menu must go by itself.
    if (gone->widget())
      gone->forget();
    else
      gone->leave();
  }
  if (view == frame_)
    frame_ = nullptr;
  view->leave();
  if (QEventLoop* loop = waiting_.value(&window))
    loop->quit();
}

void Screen::waitUntilClosed(Window& window) {
  QEventLoop loop;
  waiting_.insert(&window, &loop);
  loop.exec();
  waiting_.remove(&window);
}

void Screen::change(Element& element) {
  if (element.kind() == Kind::Window) {
    if (WindowView* const view = views_.of(element.window()))
      view->sync();
    return;
  }
  ElementView* view = views_.of(element);
  if (!view) {
    WindowView* const above = views_.of(element.window());
    view = above ? makeView(element, *above) : nullptr;
    if (!view)
      return;
    views_.enter(element, view);
  }
  view->sync();
}

void Screen::remove(Element& element) {
  if (ElementView* const view = views_.take(element))
    view->leave();
}

void Screen::giveFocus(Element& element) {
  if (element.kind() == Kind::Window)
    focus_.activate(element.window());
  else
    focus_.give(element);
}

QWidget* Screen::front() const {
  QWidget* const active = QApplication::activeModalWidget();
  if (active)
    return active;
  return frame_ && frame_->isVisible() ? frame_ : nullptr;
}

WindowView* Screen::makeView(Window& window) {
  switch (window.windowKind()) {
  case WindowKind::Frame:
    return frame_ = new FrameWindow(window, services());
  case WindowKind::Child:
    return new ChildWindow(window, services(), frame_->area());
  case WindowKind::Own:
    break;
  }
  return new OwnWindow(window, services(), frame_);
}

ElementView* Screen::makeView(Element& element, WindowView& above) {
  if (element.kind() == Kind::Timer)
    return new TimerView(static_cast<Timer&>(element), services(), above.widget());
  if (element.kind() == Kind::MenuEntry) {
    auto& entry = static_cast<MenuEntry&>(element);
    auto* const parent = entry.parent ? views_.of(*entry.parent) : nullptr;
    return new MenuEntryView(entry, services(), frame_->menuBar(),
                             static_cast<MenuEntryView*>(parent));
  }
  return above.form() ? makeWidget(element, above.form()) : nullptr;
}

ElementView* Screen::makeWidget(Element& element, QWidget* form) {
  switch (element.kind()) {
  case Kind::Picture:
    return new PictureView(static_cast<Picture&>(element), services(), form);
  case Kind::Label:
    return new LabelView(static_cast<Label&>(element), services(), form);
  case Kind::TextBox:
    if (static_cast<TextBox&>(element).MultiLine)
      return new TextAreaView(static_cast<TextBox&>(element), services(), form);
    return new TextBoxView(static_cast<TextBox&>(element), services(), form);
  case Kind::CheckBox:
    return new CheckBoxView(static_cast<CheckBox&>(element), services(), form);
  case Kind::DropList:
    return new DropListView(static_cast<DropList&>(element), services(), form);
  case Kind::Button:
    return new ButtonView(static_cast<Button&>(element), services(), form);
  default:
    return nullptr; // no widget
  }
}

} // namespace forms::qt
