#include "scripted/scripted_desktop.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <sstream>

#include <gtest/gtest.h>

namespace scripted {

using namespace forms;

namespace {

template <class... Kinds> std::string captionOf(const Element& element) {
  std::string caption;
  const auto take = [&caption](const auto* one) { caption += one ? one->Caption.get() : ""; };
  (take(dynamic_cast<const Kinds*>(&element)), ...);
  return caption;
}

} // namespace

// --- What the program asks -----------------------------------------------------------------------

void ScriptedDesktop::wait(const Meanwhile& meanwhile) {
  ++boxes_;
  if (meanwhile)
    meanwhile();
  --boxes_;
}

Answer ScriptedDesktop::messageBox(const MessageBox& box) {
  lastBox = box;
  const Expected expected = next(Asked::Box, box.text, box.style);
  wait(expected.meanwhile);
  return expected.answer;
}

std::optional<std::string> ScriptedDesktop::fileDialog(const FileDialog& dialog) {
  lastFile = dialog;
  const Expected expected = next(Asked::File, dialog.title);
  wait(expected.meanwhile);
  return expected.path;
}

void ScriptedDesktop::waitModal(Window& window) {
  if (const Expected expected = next(Asked::Modal, window.name()); expected.meanwhile)
    expected.meanwhile();
  EXPECT_FALSE(window.isOpen()) << "The modal window was not closed.";
}

std::optional<PictureSize> ScriptedDesktop::pictureSize(const std::string& path) {
  const std::filesystem::path file(path);
  EXPECT_EQ(file.parent_path().parent_path(), programFolder());
  const std::string name = file.filename().string();
  if (allPicturesMissing || missingPictures.contains(name))
    return std::nullopt;
  static const std::map<std::string, int> boards = {
      {"5x5.jpg", 394}, {"6x6.jpg", 472}, {"7x7.jpg", 551}, {"8x8.jpg", 630}};
  const auto board = boards.find(name);
  const int side = board != boards.end() ? board->second : name.ends_with(".ico") ? 32 : 62;
  return PictureSize{side, side};
}

void ScriptedDesktop::windowOpened(Window& window) {
  forms_ = &window.forms();
  active_ = &window;
}

void ScriptedDesktop::windowClosed(Window& window) {
  if (focus_ && &focus_->window() == &window)
    focus_ = nullptr;
  if (active_ == &window)
    active_ = forms_->openWindows().empty() ? nullptr : forms_->openWindows().back();
}

void ScriptedDesktop::removed(Element& element) {
  if (focus_ == &element)
    focus_ = nullptr;
}

void ScriptedDesktop::focusAsked(Element& element) {
  active_ = &element.window();
  focus_ = &element == active_ ? nullptr : &element;
}

// --- What a person does --------------------------------------------------------------------------

std::string ScriptedDesktop::hindrance(const Element& element) const {
  const Window& home = element.window();
  const auto& open = forms_->openWindows();
  const bool behind = std::any_of(open.begin(), open.end(), [&](const Window* window) {
    return window->isModal() && window != &home;
  });
  return boxes_ > 0         ? "lies behind a box"
         : behind           ? "lies behind a modal window"
         : !element.Visible ? "is hidden"
         : !element.Enabled ? "is disabled"
                            : "";
}

bool ScriptedDesktop::press(const std::string& name, MouseButton button) {
  auto& element = usable<Element>(name);
  return forms_->pressed(element, button) && find(name) == &element && hindrance(element).empty();
}

bool ScriptedDesktop::click(const std::string& name) {
  auto& element = usable<Element>(name);
  if (element.kind() == Kind::Picture)
    return clickOn(name, element.Width / 2, element.Height / 2);
  const bool pressed = press(name, MouseButton::Left);
  if (pressed)
    forms_->clicked(element);
  return pressed;
}

void ScriptedDesktop::rightClick(const std::string& name) {
  press(name, MouseButton::Right);
}

bool ScriptedDesktop::clickOn(const std::string& name, double X, double Y) {
  moveOver(name, X, Y);
  const bool pressed = find(name) && press(name, MouseButton::Left);
  if (pressed)
    forms_->clicked(get<Picture>(name));
  return pressed;
}

// A pointer stands on whole pixels.
void ScriptedDesktop::moveOver(const std::string& name, double X, double Y) {
  const auto wholePixel = [](double twips) {
    return static_cast<float>(15 * std::floor(twips / 15));
  };
  forms_->moved(usable<Picture>(name), wholePixel(X), wholePixel(Y));
}

void ScriptedDesktop::type(const std::string& name, std::string_view text) {
  auto& box = usable<TextBox>(name);
  if (!press(name, MouseButton::Left) || box.ReadOnly)
    giveUp(name, "takes no keys");
  forms_->typed(box, "");
  for (std::size_t end = 0, start = 0; start < text.size(); start = end) {
    do
      ++end;
    while (end < text.size() && (text[end] & 0xC0) == 0x80); // the character has more bytes
    if (focus_ != &usable<TextBox>(name))
      giveUp(name, "takes no more keys");
    forms_->typed(box, box.Text.get() + std::string(text.substr(start, end - start)));
  }
}

void ScriptedDesktop::choose(const std::string& name, std::string_view item) {
  auto& list = usable<DropList>(name);
  const auto found = std::find(list.items().begin(), list.items().end(), item);
  if (found == list.items().end())
    giveUp(name, "has no item " + std::string(item));
  const auto index = static_cast<int>(found - list.items().begin());
  if (press(name, MouseButton::Left))
    forms_->chosen(list, index);
}

Window& ScriptedDesktop::keyboardWindow() const {
  if (!active_ || !hindrance(*active_).empty())
    giveUp("The keyboard", "reaches no window");
  return *active_;
}

void ScriptedDesktop::tab(bool forwards) {
  forms_->tabbed(keyboardWindow(), forwards);
}

void ScriptedDesktop::key(Key key, int digit) {
  if (focus_ && (focus_->kind() == Kind::TextBox || focus_->kind() == Kind::DropList))
    giveUp(focus_->name(), "uses the keys itself");
  forms_->keyPressed(keyboardWindow(), key, digit);
}

void ScriptedDesktop::menu(const std::string& entry) {
  forms_->menuChosen(usable<MenuEntry>(entry));
}

// Also of a button that is hidden.
void ScriptedDesktop::shortcut(const std::string& name) {
  auto& button = get<Button>(name);
  usable<Window>(button.window().name());
  forms_->shortcutPressed(button);
}

bool ScriptedDesktop::closeWindow(const std::string& name) {
  auto& window = usable<Window>(name);
  forms_->closeRequested(window);
  return !window.isOpen();
}

bool ScriptedDesktop::activate(const std::string& name) {
  auto& window = usable<Window>(name);
  return forms_->activated(window) && forms_->activeChild() == &window;
}

// --- What a person sees --------------------------------------------------------------------------

bool ScriptedDesktop::visible(const std::string& name) {
  // An element that is gone has left the pattern of its array.
  const auto bracket = name.find('(');
  if (bracket != name.npos && !find(name))
    return get<Element>(at(name.substr(0, bracket), 0)).Visible;
  return get<Element>(name).Visible;
}

std::string ScriptedDesktop::text(const std::string& name) {
  const auto& element = get<Element>(name);
  if (const auto* box = dynamic_cast<const TextBox*>(&element))
    return box->Text;
  if (const auto* list = dynamic_cast<const DropList*>(&element))
    return list->Text();
  if (const auto* box = dynamic_cast<const CheckBox*>(&element))
    return std::to_string(box->Value.get());
  return captionOf<Window, Label, Button, MenuEntry>(element);
}

std::string ScriptedDesktop::picture(const std::string& name) {
  const auto* const picture = dynamic_cast<const Picture*>(find(name));
  const auto& path = picture ? picture->picturePath() : get<Window>(name).Icon.get();
  return std::filesystem::path(path).filename().string();
}

std::string ScriptedDesktop::accessibleName(const std::string& name) {
  const std::string& own = get<Element>(name).AccessibleName;
  return own.empty() ? text(name) : own;
}

std::string ScriptedDesktop::transcript(const std::string& name) {
  std::ostringstream lines;
  if (!isOpen(name))
    return name + " is closed\n";
  const auto& window = get<Window>(name);
  lines << name << " \"" << window.Caption.get() << "\"\n";
  for (const Element* element : window.elements()) {
    const std::string full = name + "." + element->name();
    if (element->Visible && element->kind() != Kind::Timer)
      lines << (element == focus_ ? "* " : "  ") << element->name() << " " << element->Left.get()
            << "," << element->Top.get() << " " << element->Width.get() << "x"
            << element->Height.get() << (element->Enabled ? "" : " disabled") << " \"" << text(full)
            << "\" " << (element->kind() == Kind::Picture ? picture(full) : "") << " ["
            << element->AccessibleName.get() << "]\n";
  }
  return lines.str();
}

} // namespace scripted
