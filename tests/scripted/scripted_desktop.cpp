#include "scripted/scripted_desktop.h"

#include <algorithm>
#include <cmath>
#include <ctime>
#include <sstream>
#include <stdexcept>

#include <gtest/gtest.h>

namespace scripted {

using namespace forms;
using namespace std::chrono_literals;

namespace {

constexpr int TwipsPerPixel = 15;

std::string fileName(const std::string& path) {
  return std::filesystem::path(path).filename().string();
}

template <class Point> bool covers(const Element& element, Point place) {
  return place.x >= element.Left && place.x < element.Left + element.Width &&
         place.y >= element.Top && place.y < element.Top + element.Height;
}

int frontRank(const Element& element) {
  const auto* const picture = dynamic_cast<const Picture*>(&element);
  return picture ? picture->zOrderRank.get() : 0;
}

template <class... Kinds> std::string captionOf(const Element& element) {
  std::string caption;
  const auto take = [&caption](const auto* one) { caption += one ? one->Caption.get() : ""; };
  (take(dynamic_cast<const Kinds*>(&element)), ...);
  return caption;
}

} // namespace

// --- Failures ------------------------------------------------------------------------------------

void ScriptedDesktop::fail(const Name& about, const std::string& message) const {
  std::string screens;
  if (forms_)
    for (const Window* window : forms_->openWindows())
      screens += transcript(window->name());
  ADD_FAILURE_AT(about.file, about.line) << message << "\nduring: " << acting_.text << "\n"
                                         << screens;
}

void ScriptedDesktop::giveUp(const Name& about, const std::string& message) const {
  fail(about, "\"" + about.text + "\" " + message);
  throw std::runtime_error("A person could not do that.");
}

void ScriptedDesktop::finish() {
  if (std::uncaught_exceptions() == 0)
    for (const Expected& left : expected_)
      fail(left.text, "Expected, but did not come: " + left.text.text);
  expected_.clear();
}

// --- What the program asks -----------------------------------------------------------------------

// The answer, once what happens meanwhile has happened; nothing when another question was expected.
std::optional<ScriptedDesktop::Expected> ScriptedDesktop::ask(Asked asked,
                                                              const std::string& text) {
  if (expected_.empty() || expected_.front().asked != asked ||
      expected_.front().text.text != text) {
    fail(expected_.empty() ? acting_ : expected_.front().text,
         "Unexpected:\n" + text +
             (expected_.empty() ? "" : "\ninstead of:\n" + expected_.front().text.text));
    return std::nullopt;
  }
  const Expected found = std::move(expected_.front());
  expected_.pop_front();
  boxes_ += asked == Asked::Modal ? 0 : 1;
  if (found.meanwhile)
    found.meanwhile();
  boxes_ -= asked == Asked::Modal ? 0 : 1;
  return found;
}

Answer ScriptedDesktop::messageBox(const MessageBox& box) {
  lastBox = box;
  const bool question = box.style != BoxStyle::Information;
  const auto expected = ask(Asked::Box, box.text);
  if (!expected)
    return question ? Answer::No : Answer::Ok;
  if (expected->style.value_or(box.style) != box.style ||
      question == (expected->answer == Answer::Ok))
    fail(expected->text, "The box has another style: " + box.text);
  return expected->answer;
}

std::optional<std::string> ScriptedDesktop::fileDialog(const FileDialog& dialog) {
  lastFile = dialog;
  const auto expected = ask(Asked::File, dialog.title);
  return expected ? expected->path : std::nullopt;
}

void ScriptedDesktop::waitModal(Window& window) {
  modal_.push_back(&window);
  ask(Asked::Modal, window.name());
  if (window.isOpen()) {
    fail(acting_, "The modal window was not closed.");
    window.close();
  }
  modal_.pop_back();
}

std::optional<PictureSize> ScriptedDesktop::pictureSize(const std::string& path) {
  const std::string name = fileName(path);
  if (std::filesystem::path(path).parent_path().parent_path() != programFolder())
    fail(acting_, "No picture lies there: " + path);
  if (allPicturesMissing || missingPictures.contains(name))
    return std::nullopt;
  static const std::map<std::string, int> boards = {
      {"5x5.jpg", 394}, {"6x6.jpg", 472}, {"7x7.jpg", 551}, {"8x8.jpg", 630}};
  const auto board = boards.find(name);
  const int side = board != boards.end() ? board->second : name.ends_with(".ico") ? 32 : 62;
  return PictureSize{side, side};
}

DateTime ScriptedDesktop::now() {
  const std::time_t seconds = std::chrono::system_clock::to_time_t(clock);
  const std::tm& date = *std::gmtime(&seconds);
  return {date.tm_year + 1900, date.tm_mon + 1, date.tm_mday,
          date.tm_hour,        date.tm_min,     date.tm_sec};
}

// --- The contract of Desktop ---------------------------------------------------------------------

void ScriptedDesktop::windowOpened(Window& window) {
  forms_ = &window.forms();
  const auto& open = forms_->openWindows();
  if (onScreen_.contains(&window) || std::find(open.begin(), open.end(), &window) == open.end())
    fail(Name(window.name()), "windowOpened for a window that is not open, or twice");
  onScreen_.insert(&window);
  onScreen_.insert(window.elements().begin(), window.elements().end());
  active_ = &window;
}

void ScriptedDesktop::windowClosed(Window& window) {
  for (Element* element : window.elements())
    removed(*element);
  removed(window);
  if (active_ == &window)
    active_ = forms_->openWindows().empty() ? nullptr : forms_->openWindows().back();
}

void ScriptedDesktop::changed(Element& element) {
  if (!onScreen_.contains(&element.window()))
    fail(Name(element.name()), "changed for an element of a closed window");
  onScreen_.insert(&element);
}

void ScriptedDesktop::removed(Element& element) {
  if (onScreen_.erase(&element) == 0)
    fail(Name(element.name()), "removed for an unknown element");
  if (focus_ == &element)
    focus_ = nullptr;
}

void ScriptedDesktop::focusAsked(Element& element) {
  if (!onScreen_.contains(&element))
    fail(Name(element.name()), "focusAsked for an unknown element");
  active_ = &element.window();
  focus_ = &element == active_ ? nullptr : &element;
}

// --- Finding and reaching ------------------------------------------------------------------------

Element* ScriptedDesktop::find(std::string_view name) const {
  Element* found = nullptr;
  for (Window* window : forms_ ? forms_->openWindows() : std::vector<Window*>()) {
    if (window->name() == name)
      return window;
    for (Element* element : window->elements()) {
      // Most are passed over by a look at their last character.
      if (!name.ends_with(element->index() < 0 ? element->arrayName() : ")") ||
          (element->name() != name && window->name() + "." + element->name() != name))
        continue;
      if (found)
        giveUp(Name(std::string(name)), "stands on two windows");
      found = element;
    }
  }
  return found;
}

Element& ScriptedDesktop::known(const Name& name) {
  Element* const found = find(name.text);
  if (!found)
    giveUp(name, "is not on the screen");
  return *found;
}

std::string ScriptedDesktop::hindrance(const Element& element) const {
  const bool behind = !modal_.empty() && modal_.back() != &element.window();
  return boxes_ > 0                              ? "lies behind a box"
         : behind                                ? "lies behind a modal window"
         : !onScreen_.contains(&element)         ? "was never told to the screen"
         : !allAbove(element, &Element::Visible) ? "is hidden"
         : !allAbove(element, &Element::Enabled) ? "is disabled"
                                                 : "";
}

// Menu entries and timers have no size, and so cover nothing.
Element* ScriptedDesktop::topmostAt(const Window& window, Point place) const {
  Element* topmost = nullptr;
  for (Element* element : window.elements())
    if (element->Visible && covers(*element, place) &&
        (!topmost || frontRank(*element) >= frontRank(*topmost)))
      topmost = element;
  return topmost;
}

// The middle, or another place of the element that no other element covers.
std::optional<ScriptedDesktop::Point> ScriptedDesktop::openPlace(const Element& element) const {
  const Point corner{element.Left, element.Top};
  if (element.Width == 0 || element.Height == 0)
    return corner; // it takes the size of its text, which is not known here
  const Window& window = element.window();
  const int right = window.ClientWidth ? window.ClientWidth : window.Width.get();
  const int bottom = window.ClientHeight ? window.ClientHeight : window.Height.get();
  constexpr int Steps = 16;
  for (int i = Steps * Steps / 2; i < Steps * Steps * 3 / 2; ++i) {
    const Point place{corner.x + element.Width * ((i + Steps / 2) % Steps) / Steps,
                      corner.y + element.Height * (i / Steps % Steps) / Steps};
    const bool inside = place.x >= 0 && place.y >= 0 && place.x < right && place.y < bottom;
    if (inside && topmostAt(window, place) == &element)
      return place;
  }
  return std::nullopt;
}

// --- What a person does --------------------------------------------------------------------------

// True when the element has taken the press and still stands there.
bool ScriptedDesktop::press(Element& element, MouseButton button) {
  return forms_->pressed(element, button) && onScreen_.contains(&element) &&
         hindrance(element).empty();
}

bool ScriptedDesktop::act(Element& element, Point place, MouseButton button) {
  const bool picture = element.kind() == Kind::Picture;
  if (picture)
    hover(static_cast<Picture&>(element), place);
  if (!onScreen_.contains(&element))
    return false;
  if (!press(element, button))
    return false;
  const bool click = picture || element.kind() == Kind::Button ||
                     element.kind() == Kind::CheckBox || element.kind() == Kind::Label;
  if (click && button == MouseButton::Left)
    forms_->clicked(element);
  return true;
}

bool ScriptedDesktop::point(const Name& name, MouseButton button) {
  auto& element = usable<Element>(name);
  const auto place = openPlace(element);
  if (!place)
    giveUp(name, "is covered by other elements, or outside its window");
  return act(element, *place, button);
}

bool ScriptedDesktop::tryClick(Name name) {
  Element* const element = find(name.text);
  return element && hindrance(*element).empty() && openPlace(*element) && click(name);
}

bool ScriptedDesktop::clickAt(Name name, int x, int y, MouseButton button) {
  auto& window = usable<Window>(name);
  Element* const element = topmostAt(window, {x, y});
  if (element)
    return hindrance(*element).empty() && act(*element, {x, y}, button);
  if (window.windowKind() == WindowKind::Child)
    forms_->activated(window);
  return false;
}

void ScriptedDesktop::moveOver(Name name, double X, double Y) {
  auto& picture = usable<Picture>(name);
  const int frame = picture.Border ? TwipsPerPixel : 0;
  const Point place{picture.Left + frame + static_cast<int>(std::floor(X)),
                    picture.Top + frame + static_cast<int>(std::floor(Y))};
  if (covers(picture, place) && topmostAt(picture.window(), place) != &picture)
    giveUp(name, "is covered there by " + topmostAt(picture.window(), place)->name());
  hover(picture, place);
}

bool ScriptedDesktop::clickOn(Name name, double X, double Y) {
  moveOver(name, X, Y);
  auto& picture = usable<Picture>(name);
  const bool pressed = press(picture, MouseButton::Left);
  if (pressed)
    forms_->clicked(picture);
  return pressed;
}

// A pointer stands on whole pixels.
void ScriptedDesktop::hover(Picture& picture, Point place) {
  const int frame = picture.Border ? TwipsPerPixel : 0;
  const auto inner = [frame](int twips) {
    return static_cast<float>(TwipsPerPixel * std::floor((twips - frame) / double{TwipsPerPixel}));
  };
  forms_->moved(picture, inner(place.x - picture.Left), inner(place.y - picture.Top));
}

void ScriptedDesktop::type(Name name, std::string_view text) {
  auto& box = usable<TextBox>(name);
  if (!press(box, MouseButton::Left) || box.ReadOnly)
    giveUp(name, "takes no keys");
  std::string key;
  if (text.empty())
    forms_->typed(box, "");
  for (std::size_t i = 0; i < text.size(); ++i) {
    key += text[i];
    if (i + 1 < text.size() && (text[i + 1] & 0xC0) == 0x80)
      continue; // the character has more bytes
    if (focus_ != &box || !hindrance(box).empty())
      giveUp(name, "takes no more keys");
    const bool first = key.size() == i + 1; // it replaces what is there
    forms_->typed(box, (first ? "" : box.Text.get()) + std::exchange(key, {}));
  }
}

void ScriptedDesktop::setText(Name name, std::string text) {
  auto& box = usable<TextBox>(name);
  if (!press(box, MouseButton::Left) || box.ReadOnly)
    giveUp(name, "takes no text");
  forms_->typed(box, std::move(text));
}

void ScriptedDesktop::choose(Name name, std::string_view item) {
  auto& list = usable<DropList>(name);
  const auto found = std::find(list.items().begin(), list.items().end(), item);
  if (found == list.items().end())
    giveUp(name, "has no item " + std::string(item));
  const auto index = static_cast<int>(found - list.items().begin());
  if (press(list, MouseButton::Left))
    forms_->chosen(list, index);
}

Window& ScriptedDesktop::keyboardWindow(const Name& key) {
  acting_ = key;
  if (!active_ || !hindrance(*active_).empty())
    giveUp(key, "is not heard by any window");
  return *active_;
}

void ScriptedDesktop::tab(bool forwards) {
  forms_->tabbed(keyboardWindow(Name("Tab")), forwards);
}

bool ScriptedDesktop::key(Key key, int digit) {
  Window& window = keyboardWindow(Name("key"));
  if (focus_ && (focus_->kind() == Kind::TextBox || focus_->kind() == Kind::DropList))
    giveUp(Name(focus_->name()), "uses the keys itself");
  return forms_->keyPressed(window, key, digit);
}

void ScriptedDesktop::shortcut(Name name) {
  auto& button = get<Button>(name);
  acting_ = name;
  if (button.Shortcut.empty())
    giveUp(name, "has no shortcut");
  if (const auto reason = hindrance(button.window()); !reason.empty())
    giveUp(name, reason);
  forms_->shortcutPressed(button);
}

bool ScriptedDesktop::closeWindow(Name name) {
  auto& window = usable<Window>(name);
  forms_->closeRequested(window);
  return !window.isOpen();
}

bool ScriptedDesktop::activate(Name name) {
  auto& window = usable<Window>(name);
  return forms_->activated(window) && forms_->activeChild() == &window;
}

void ScriptedDesktop::tick(int seconds) {
  while (seconds-- > 0) {
    clock += 1s;
    std::vector<Element*> running;
    for (const Window* window : forms_->openWindows())
      std::copy_if(window->elements().begin(), window->elements().end(),
                   std::back_inserter(running),
                   [](auto* one) { return one->kind() == Kind::Timer && one->Enabled; });
    for (Element* timer : running)
      if (onScreen_.contains(timer))
        forms_->ticked(static_cast<Timer&>(*timer));
  }
}

// --- What a person sees --------------------------------------------------------------------------

bool ScriptedDesktop::allAbove(const Element& element, Property<bool> Element::*what) {
  if (!(element.*what))
    return false;
  const auto* const entry = dynamic_cast<const MenuEntry*>(&element);
  return !entry || !entry->parent || allAbove(*entry->parent, what);
}

std::string ScriptedDesktop::textOf(const Element& element) {
  if (const auto* box = dynamic_cast<const TextBox*>(&element))
    return box->Text;
  if (const auto* list = dynamic_cast<const DropList*>(&element))
    return list->Text();
  if (const auto* box = dynamic_cast<const CheckBox*>(&element))
    return std::to_string(box->Value.get());
  return captionOf<Window, Label, Button, MenuEntry>(element);
}

std::string ScriptedDesktop::pictureOf(const Element& element) {
  const auto* const picture = dynamic_cast<const Picture*>(&element);
  const auto* const window = dynamic_cast<const Window*>(&element);
  return fileName(picture ? picture->picturePath() : window ? window->Icon.get() : "");
}

bool ScriptedDesktop::visible(Name name) {
  // An element that is gone has left the pattern of its array.
  const auto bracket = name.text.find('(');
  if (bracket != name.text.npos && !find(name.text))
    return known(Name(at(name.text.substr(0, bracket), 0), name.file, name.line)).Visible;
  return allAbove(known(name), &Element::Visible);
}

std::string ScriptedDesktop::accessibleName(Name name) {
  const Element& element = known(name);
  return element.AccessibleName.get().empty() ? textOf(element) : element.AccessibleName.get();
}

std::string ScriptedDesktop::transcript(std::string_view name) const {
  const auto* const window = dynamic_cast<Window*>(find(name));
  if (!window)
    return std::string(name) + " is closed\n";
  std::ostringstream lines;
  lines << name << " \"" << window->Caption.get() << "\"\n";
  for (const Element* element : window->elements())
    if (element->Visible && element->kind() != Kind::Timer)
      lines << (element == focus_ ? "* " : "  ") << element->name() << " " << element->Left.get()
            << "," << element->Top.get() << " " << element->Width.get() << "x"
            << element->Height.get() << (element->Enabled ? "" : " disabled") << " \""
            << textOf(*element) << "\" " << pictureOf(*element) << " ["
            << element->AccessibleName.get() << "]\n";
  return lines.str();
}

} // namespace scripted
