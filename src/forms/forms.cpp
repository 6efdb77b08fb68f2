#include "forms/forms.h"

#include <algorithm>

#include "forms/grid_picture.h"
#include "forms/text_file.h"

namespace forms {

// The outermost scope ends an event; what waits for that runs then.
class Forms::EventScope {
public:
  explicit EventScope(Forms& forms) : forms_(forms) { ++forms_.events_; }
  ~EventScope() {
    if (forms_.events_ == 1) {
      for (const Window* window : forms_.openWindows())
        if (window->grid())
          window->grid()->tellCursor();
      if (forms_.afterEvent)
        forms_.afterEvent();
    }
    --forms_.events_;
  }
  EventScope(const EventScope&) = delete;
  EventScope& operator=(const EventScope&) = delete;

private:
  Forms& forms_;
};

// --- What the program asks ---------------------------------------------------------------------

Answer Forms::messageBox(const std::string& text, BoxStyle style) {
  return messageBox(MessageBox{text, style, applicationTitle, {}});
}

Answer Forms::messageBox(const MessageBox& box) {
  if (ended_)
    return box.style == BoxStyle::Information ? Answer::Ok : Answer::No;
  ++boxes_;
  const Answer answer = desktop_.messageBox(box);
  --boxes_;
  return answer;
}

std::optional<std::string> Forms::fileDialog(const FileDialog& dialog) {
  if (ended_)
    return std::nullopt;
  ++boxes_;
  auto path = desktop_.fileDialog(dialog);
  --boxes_;
  // An accepted dialog without a name counts as cancelled.
  if (!path || path->empty())
    return std::nullopt;
  return path;
}

void Forms::startUp(Window& frame) {
  const EventScope event(*this);
  frame.open();
}

std::optional<Forms::PictureFile> Forms::findPicture(std::string_view literal,
                                                     OnFailure onFailure) {
  std::string path = programPath(desktop_.programFolder(), literal);
  if (const auto size = desktop_.pictureSize(path))
    return PictureFile{std::move(path), *size};
  if (onFailure == OnFailure::Tell)
    failed(PictureFailure, path);
  return std::nullopt;
}

// --- What the desktop reports ------------------------------------------------------------------

bool Forms::personMayUse(const Element& element) const {
  const auto& open = focus_.open();
  const auto modal =
      std::find_if(open.rbegin(), open.rend(), [](Window* w) { return w->isModal(); });
  return boxes_ == 0 && element.isReachable() &&
         (modal == open.rend() || *modal == &element.window());
}

bool Forms::pressed(Element& element, MouseButton button) {
  if (!personMayUse(element))
    return false;
  const EventScope event(*this);
  if (GridPicture* grid = element.window().grid())
    grid->hideCursor();
  return element.press(button);
}

void Forms::clicked(Element& element) {
  if (!personMayUse(element))
    return;
  const EventScope event(*this);
  if (focus_.activate(element.window()) && (!element.takesFocus() || element.SetFocus()))
    element.click();
}

void Forms::invoked(Element& element) {
  GridPicture* const grid = element.window().grid();
  if (&element != grid || grid->columns() == 0)
    return clicked(element);
  if (!personMayUse(element))
    return;
  const EventScope event(*this);
  passOver(grid->keyPressed(Key::Enter));
}

void Forms::shortcutPressed(Button& button) {
  if (!personMayUse(button.window()))
    return;
  const EventScope event(*this);
  raise(button.Click);
}

void Forms::moved(Picture& picture, float X, float Y) {
  if (!personMayUse(picture))
    return;
  if (GridPicture* grid = picture.window().grid())
    grid->pointerAt(picture, X, Y);
  raise(picture.MouseMove, X, Y);
}

void Forms::typed(TextBox& box, const std::string& text) {
  if (!personMayUse(box) || box.MultiLine)
    return;
  const EventScope event(*this);
  // A menu, another program or a screen reader may change the text of a box without the focus:
  // what looks at the text when the focus leaves must not be passed by.
  if (box.SetFocus())
    box.Text = box.fitting(text);
}

void Forms::chosen(DropList& list, int index) {
  if (!personMayUse(list))
    return;
  const EventScope event(*this);
  if (list.SetFocus())
    passOver(list.select(index));
}

bool Forms::activated(Window& child) {
  if (!personMayUse(child))
    return false;
  const EventScope event(*this);
  return focus_.activate(child);
}

bool Forms::focusMoved(Element& element) {
  if (!personMayUse(element.window()))
    return false;
  const EventScope event(*this);
  return element.SetFocus();
}

void Forms::tabbed(Window& window, bool forwards) {
  if (!personMayUse(window))
    return;
  if (Element* const next = focus_.behind(window, forwards))
    focusMoved(*next);
}

// The keyboard's cursor works on the window's board, whether the board, a unit on it or nothing has
// the focus; elsewhere Enter and Space are the click on the focused element.
bool Forms::keyPressed(Window& window, Key key, int digit) {
  if (!personMayUse(window))
    return false;
  const EventScope event(*this);
  if (window.Form_KeyDown(key, digit))
    return true;
  Element* const focused = window.focused();
  GridPicture* const grid = window.grid();
  if (!focused || (grid && grid->columns() > 0 && focused == grid) || focused->index() > 0)
    return grid && grid->keyPressed(key);
  const bool press = key == Key::Enter || key == Key::Space;
  if (press)
    clicked(*focused);
  return press;
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
  if (openWindows().empty())
    return true;
  Window& first = *openWindows().front();
  if (boxes_ > 0 || first.isClosing())
    return false;
  const EventScope event(*this);
  return first.mayClose();
}

} // namespace forms
