#include "scripted/player.h"

#include <algorithm>
#include <stdexcept>

#include <gtest/gtest.h>

namespace scripted {

using namespace forms;
using namespace std::chrono;

void Player::requireReachable(const Element& element) {
  if (!element.isReachable())
    throw std::runtime_error("Nobody could use " + element.name());
}

void Player::finish() {
  for (const Expected& left : std::exchange(expected_, {}))
    ADD_FAILURE() << "Expected, but did not come:\n" << left.text;
}

Player::Expected Player::next(const std::string& text) {
  const Expected first = expected_.empty() ? Expected() : expected_.front();
  if (expected_.empty() || first.text != text) {
    ADD_FAILURE() << "Unexpected:\n" << text << "\ninstead of:\n" << first.text;
    return {text, Answer::No, {}, {}};
  }
  expected_.pop_front();
  return first;
}

Player::Expected Player::next(const MessageBox& box) {
  lastBox = box;
  const Expected expected = next(box.text);
  EXPECT_EQ(expected.answer == Answer::Ok, box.style == BoxStyle::Information) << box.text;
  return expected;
}

// Which timers run is the forms layer's knowledge: those of the screen would go by real time.
void Player::tick(int seconds) {
  for (; seconds > 0; --seconds) {
    clock += 1s;
    std::vector<Timer*> timers;
    for (const Window* window : forms_->openWindows())
      for (Element* element : window->elements())
        if (element->kind() == Kind::Timer)
          timers.push_back(static_cast<Timer*>(element));
    for (Timer* timer : timers)
      forms_->ticked(*timer);
    afterAction();
  }
}

// --- What the program asks -----------------------------------------------------------------------

Answer Player::messageBox(const MessageBox& box) {
  const Expected expected = next(box);
  if (expected.meanwhile)
    expected.meanwhile();
  return expected.answer;
}

std::optional<std::string> Player::fileDialog(const FileDialog& dialog) {
  const Expected expected = next(dialog);
  if (expected.meanwhile)
    expected.meanwhile();
  return expected.path;
}

void Player::waitModal(Window& window) {
  if (const Expected expected = next(window.name()); expected.meanwhile)
    expected.meanwhile();
  EXPECT_FALSE(window.isOpen()) << "The modal window was not closed.";
}

std::optional<PictureSize> Player::pictureSize(const std::string& path) {
  const std::filesystem::path file(path);
  EXPECT_EQ(file.parent_path().parent_path(), programFolder());
  const std::string name = file.filename().string();
  if (name.find(missingPictures) != name.npos)
    return std::nullopt;
  const int board = ((name[0] - '0') * 1180 + 14) / 15; // of "6x6.jpg"
  const int side = name[1] == 'x' ? board : name.ends_with(".ico") ? 32 : 62;
  return PictureSize{side, side};
}

void Player::windowClosed(Window& window) {
  if (focus_ && &focus_->window() == &window)
    focus_ = nullptr;
}

void Player::changed(Element& element) {
  EXPECT_TRUE(element.window().isOpen()) << element.name();
}

void Player::removed(Element& element) {
  changed(element);
  if (focus_ == &element)
    focus_ = nullptr;
}

void Player::focusAsked(Element& element) {
  changed(element);
  focus_ = element.kind() == Kind::Window ? nullptr : &element;
}

DateTime Player::now() {
  const auto today = floor<days>(clock);
  const year_month_day date(today);
  const hh_mm_ss time(clock - today);
  const auto whole = [](auto part) { return static_cast<int>(part.count()); };
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          whole(time.hours()),
          whole(time.minutes()),
          whole(time.seconds())};
}

// --- What the person does ------------------------------------------------------------------------

bool Player::press(Element& element) {
  const Window& home = element.window();
  const bool let = forms_->pressed(element, MouseButton::Left);
  const auto& standing = home.elements();
  return let && std::find(standing.begin(), standing.end(), &element) != standing.end() &&
         element.isReachable();
}

bool Player::doClick(Element& element) {
  if (auto* const picture = dynamic_cast<Picture*>(&element))
    return doClickOn(*picture, static_cast<float>(picture->Width) / 2,
                     static_cast<float>(picture->Height) / 2);
  const bool let = press(element);
  if (let)
    forms_->clicked(element);
  return let;
}

void Player::doRightClick(Element& element) {
  forms_->pressed(element, MouseButton::Right);
}

bool Player::doClickOn(Picture& picture, float X, float Y) {
  forms_->moved(picture, X, Y);
  const bool let = press(picture);
  if (let)
    forms_->clicked(picture);
  return let;
}

void Player::doMoveOver(Picture& picture, float X, float Y) {
  forms_->moved(picture, X, Y);
}

void Player::doType(TextBox& box, std::string_view text) {
  if (!press(box))
    return;
  forms_->typed(box, "");
  for (std::size_t end = 0, start = 0; start < text.size(); start = end) {
    do
      ++end;
    while (end < text.size() && (text[end] & 0xC0) == 0x80); // the character has more bytes
    forms_->typed(box, box.Text.get() + std::string(text.substr(start, end - start)));
  }
}

void Player::doChoose(DropList& list, int item) {
  if (press(list))
    forms_->chosen(list, item);
}

Window& Player::keyboardWindow() const {
  return focus_ ? focus_->window() : *forms_->activeChild();
}

void Player::doTab(bool forwards) {
  forms_->tabbed(keyboardWindow(), forwards);
}

void Player::doKey(Key key, int digit) {
  forms_->keyPressed(keyboardWindow(), key, digit);
}

} // namespace scripted
