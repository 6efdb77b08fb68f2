#include "forms/forms.h"

#include <algorithm>

#include "forms/grid_picture.h"
#include "forms/text_file.h"

namespace forms {

// The outermost scope ends an event; what waits for that runs then.
class Forms::EventScope {
public:
  // A move of the pointer changes nothing that the cursor stands on, and comes too often to look.
  enum Cause { Action, Pointer };
  explicit EventScope(Forms& forms, Cause cause = Action) : forms_(forms), cause_(cause) {
    ++forms_.events_;
  }
  ~EventScope() {
    if (forms_.events_ == 1) {
      if (cause_ == Action)
        forms_.describeCursors();
      if (forms_.afterEvent)
        forms_.afterEvent();
    }
    --forms_.events_;
  }
  EventScope(const EventScope&) = delete;
  EventScope& operator=(const EventScope&) = delete;

private:
  Forms& forms_;
  Cause cause_;
};

namespace {

// Counts one more while it lives.
class Counted {
public:
  explicit Counted(int& count) : count_(count) { ++count_; }
  ~Counted() { --count_; }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

private:
  int& count_;
};

// A handler may destroy the element that holds it: what runs is a copy.
template <class Handler, class... Arguments>
void raise(const Handler& handler, Arguments... arguments) {
  const Handler running = handler;
  if (running)
    running(arguments...);
}

} // namespace

// --- What the program asks ---------------------------------------------------------------------

Answer Forms::messageBox(const std::string& text, BoxStyle style) {
  return messageBox(MessageBox{text, style, applicationTitle, {}});
}

Answer Forms::messageBox(const MessageBox& box) {
  const Counted open(boxes_);
  return desktop_.messageBox(box);
}

std::optional<std::string> Forms::fileDialog(const FileDialog& dialog) {
  const Counted open(boxes_);
  auto path = desktop_.fileDialog(dialog);
  // An accepted dialog without a name counts as cancelled.
  if (path && path->empty())
    path.reset();
  return path;
}

Window* Forms::activeChild() const {
  return children_.empty() ? nullptr : children_.back();
}

void Forms::startUp(Window& frame) {
  const EventScope event(*this);
  frame.open();
}

void Forms::failed(std::string text, std::string path) {
  failures.push_back({std::move(text), std::move(path)});
}

std::optional<Forms::PictureFile> Forms::findPicture(std::string_view literal,
                                                     OnFailure onFailure) {
  std::string path = programPath(desktop_.programFolder(), literal);
  if (const auto size = desktop_.pictureSize(path))
    return PictureFile{std::move(path), *size};
  if (onFailure == OnFailure::Tell)
    failed("No se puede cargar la imagen:\r\n", std::move(path));
  return std::nullopt;
}

// --- Windows -----------------------------------------------------------------------------------

Element* Forms::firstInTabOrder(Window& window, bool (*fits)(Element&)) {
  Element* first = nullptr;
  for (Element* element : window.elements()) {
    if (element->TabIndex < 0 || !element->takesFocus() || !element->isReachable() ||
        !fits(*element))
      continue;
    if (!first || element->TabIndex < first->TabIndex)
      first = element;
  }
  return first;
}

void Forms::windowOpened(Window& window) {
  open_.push_back(&window);
  window.focused_ = firstInTabOrder(window, [](Element&) { return true; });
  desktop_.windowOpened(window);
  if (window.windowKind() == WindowKind::Child) {
    passOver(activate(window));
  } else if (window.focused_) {
    desktop_.focusAsked(*window.focused_);
  }
}

void Forms::windowClosed(Window& window) {
  std::erase(open_, &window);
  const bool wasActive = activeChild() == &window;
  std::erase(children_, &window);
  desktop_.windowClosed(window);
  // The child that was active before takes over. Nothing was left by a person's choice here, so
  // no event of departure is raised.
  if (Window* next = activeChild(); wasActive && next) {
    desktop_.focusAsked(*next);
    if (next->focused_)
      desktop_.focusAsked(*next->focused_);
  }
}

bool Forms::activate(Window& child) {
  if (child.windowKind() != WindowKind::Child || activeChild() == &child)
    return true;
  Window* const left = activeChild();
  std::erase(children_, &child);
  children_.push_back(&child);
  if (left && leaving_ == 0) {
    const Counted leaving(leaving_);
    if (left->focused_)
      raise(left->focused_->LostFocus);
    if (activeChild() == &child && left->isOpen())
      left->Form_Deactivate();
    // A handler took the activation back, or something it did closed the window.
    if (activeChild() != &child)
      return false;
  }
  desktop_.focusAsked(child);
  if (child.focused_)
    desktop_.focusAsked(*child.focused_);
  return true;
}

// --- Focus -------------------------------------------------------------------------------------

bool Forms::takeFocus(Element& element) {
  Window& window = element.window();
  if (!element.takesFocus() || !element.isReachable() || !activate(window))
    return false;
  Element* const left = window.focused_;
  window.focused_ = &element;
  // A closing check that points at what is wrong is no departure from where the focus was.
  if (left && left != &element && leaving_ == 0 && !window.closing_) {
    const Counted leaving(leaving_);
    raise(left->LostFocus);
    if (window.focused_ != &element)
      return false;
    if (!element.isReachable()) {
      elementVanishes(element);
      return false;
    }
  }
  desktop_.focusAsked(element);
  return true;
}

// An element that vanishes hands the focus on without any event, and to none that would act when
// it leaves again.
void Forms::elementVanishes(Element& element) {
  Window& window = element.window();
  if (window.focused_ != &element)
    return;
  window.focused_ = firstInTabOrder(window, [](Element& next) { return !next.LostFocus; });
  if (window.focused_)
    desktop_.focusAsked(*window.focused_);
}

// --- What the desktop reports ------------------------------------------------------------------

bool Forms::personMayUse(const Window& window) const {
  return boxes_ == 0 && window.isOpen() && (modal_.empty() || modal_.back() == &window);
}

bool Forms::pressed(Element& element, MouseButton button) {
  if (!personMayUse(element.window()) || !element.isReachable())
    return false;
  const EventScope event(*this);
  if (GridPicture* grid = element.window().grid_)
    grid->hideCursor();
  return press(element, button);
}

bool Forms::press(Element& element, MouseButton button) {
  if (!activate(element.window()))
    return false;
  // Each button does something in a text box: the right one opens its menu, the middle one pastes.
  const bool takes =
      button == MouseButton::Left ? element.takesFocus() : element.kind() == Kind::TextBox;
  if (takes && !takeFocus(element))
    return false;
  if (element.kind() == Kind::Picture)
    raise(static_cast<Picture&>(element).MouseDown, button);
  return true;
}

void Forms::clicked(Element& element) {
  if (!personMayUse(element.window()) || !element.isReachable())
    return;
  const EventScope event(*this);
  if (!activate(element.window()))
    return;
  if (element.takesFocus() && !takeFocus(element))
    return;
  switch (element.kind()) {
  case Kind::Picture:
    raise(static_cast<Picture&>(element).Click);
    break;
  case Kind::Label:
    raise(static_cast<Label&>(element).Click);
    break;
  case Kind::Button:
    raise(static_cast<Button&>(element).Click);
    break;
  case Kind::CheckBox: {
    auto& box = static_cast<CheckBox&>(element);
    box.Value = box.Value == 0 ? 1 : 0;
    break;
  }
  default:
    break; // the other kinds have no click of their own
  }
}

void Forms::shortcutPressed(Button& button) {
  if (!personMayUse(button.window()))
    return;
  const EventScope event(*this);
  raise(button.Click);
}

void Forms::moved(Picture& picture, float X, float Y) {
  if (!personMayUse(picture.window()) || !picture.isReachable())
    return;
  const EventScope event(*this, EventScope::Pointer);
  if (GridPicture* grid = picture.window().grid_)
    grid->pointerAt(picture, X, Y);
  point(picture, X, Y);
}

void Forms::point(Picture& picture, float X, float Y) {
  raise(picture.MouseMove, X, Y);
}

void Forms::typed(TextBox& box, const std::string& text) {
  if (!personMayUse(box.window()) || !box.isReachable() || box.ReadOnly)
    return;
  const EventScope event(*this);
  // A menu, another program or a screen reader may change the text of a box without the focus:
  // what looks at the text when the focus leaves must not be passed by.
  if (takeFocus(box))
    box.Text = box.fitting(text);
}

void Forms::chosen(DropList& list, int index) {
  if (!personMayUse(list.window()) || !list.isReachable())
    return;
  const EventScope event(*this);
  if (!takeFocus(list))
    return;
  passOver(list.select(index));
}

void Forms::menuChosen(MenuEntry& entry) {
  if (!personMayUse(entry.window()) || !entry.isReachable())
    return;
  const EventScope event(*this);
  raise(entry.Click);
}

bool Forms::activated(Window& child) {
  if (!personMayUse(child))
    return false;
  const EventScope event(*this);
  return activate(child);
}

bool Forms::focusMoved(Element& element) {
  if (!personMayUse(element.window()))
    return false;
  const EventScope event(*this);
  return takeFocus(element);
}

void Forms::tabbed(Window& window, bool forwards) {
  if (!personMayUse(window))
    return;
  std::vector<Element*> order;
  for (Element* element : window.elements())
    if (element->TabIndex >= 0 && element->takesFocus() && element->isReachable())
      order.push_back(element);
  if (order.empty())
    return;
  std::stable_sort(order.begin(), order.end(),
                   [](Element* a, Element* b) { return a->TabIndex < b->TabIndex; });
  const auto here = std::find(order.begin(), order.end(), window.focused_);
  auto position = static_cast<std::size_t>(here - order.begin());
  if (here == order.end())
    position = forwards ? 0 : order.size() - 1;
  else
    position = (position + (forwards ? 1 : order.size() - 1)) % order.size();
  focusMoved(*order[position]);
}

// The keyboard's cursor works on the window's board, whether the board, a unit on it or nothing has
// the focus; elsewhere Enter and Space are the click on the focused element.
bool Forms::keyPressed(Window& window, Key key, int digit) {
  if (!personMayUse(window))
    return false;
  const EventScope event(*this);
  if (window.Form_KeyDown(key, digit))
    return true;
  Element* const focused = window.focused_;
  GridPicture* const grid = window.grid_ && window.grid_->columns() > 0 ? window.grid_ : nullptr;
  if (!focused || focused == grid || (focused->kind() == Kind::Picture && focused->index() > 0))
    return grid && grid->keyPressed(key);
  const bool press = key == Key::Enter || key == Key::Space;
  if (press)
    clicked(*focused);
  return press;
}

void Forms::describeCursors() {
  for (Window* window : open_)
    if (window->grid_)
      window->grid_->describeCursor();
}

void Forms::closeRequested(Window& window) {
  if (!personMayUse(window))
    return;
  const EventScope event(*this);
  window.close();
}

void Forms::ticked(Timer& timer) {
  if (!timer.window().isOpen() || !timer.Enabled)
    return;
  const EventScope event(*this);
  raise(timer.Tick);
}

bool Forms::sessionMayEnd() {
  if (open_.empty())
    return true;
  Window& first = *open_.front();
  if (boxes_ > 0 || first.closing_)
    return false;
  const EventScope event(*this);
  return first.mayClose();
}

} // namespace forms
