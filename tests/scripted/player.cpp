#include "scripted/player.h"

#include <algorithm>
#include <sstream>

namespace scripted {

std::vector<std::string> stepsOf(const std::string& script) {
  std::vector<std::string> all;
  std::istringstream steps(script);
  for (std::string step; std::getline(steps >> std::ws, step, ',');)
    all.push_back(step);
  return all;
}

void walk(const std::vector<std::string>& rows,
          const std::function<std::string(const std::string&)>& seenAfter) {
  for (const std::string& row : rows) {
    SCOPED_TRACE(row);
    const std::size_t end = row.find(" => ");
    EXPECT_EQ(seenAfter(row.substr(0, end)), row.substr(end + 4));
  }
}

Player::Player() {
  verbs = {
      {"click", [this](auto& on, auto&) { click(get(on)); }},
      {"right", [this](auto& on, auto&) { doRightClick(usable(get(on))), afterAction(); }},
      {"type",
       [this](auto& on, auto& text) { doType(usable(get<TextBox>(on)), text), afterAction(); }},
      {"tab", [this](auto& back, auto&) { tab(back.empty()); }},
      {"menu", [this](auto& on, auto&) { menu(get<MenuEntry>(on)); }},
      {"shortcut", [this](auto& on, auto&) { doShortcut(get<Button>(on)), afterAction(); }},
      {"activate", [this](auto& on, auto&) { doActivate(usable(get<Window>(on))), afterAction(); }},
      {"close", [this](auto& on, auto&) { closeWindow(get<Window>(on)); }},
      {"tick", [this](auto& seconds, auto&) { tick(std::stoi(seconds)); }},
      {"choose",
       [this](auto& on, auto& item) {
         const auto& all = get<DropList>(on).items();
         choose(get<DropList>(on), static_cast<int>(std::ranges::find(all, item) - all.begin()));
       }},
  };
  int next = 0; // in the order of forms::Key
  for (const char* name : {"Left", "Right", "Up", "Down", "Enter", "Space", "Delete", "Escape"})
    verbs[name] = [this, which = Key(next++)](auto&, auto&) { key(which); };
}

void Player::run(const std::string& script) {
  for (const std::string& step : stepsOf(script)) {
    SCOPED_TRACE(step);
    std::string what, on, value;
    std::istringstream(step) >> what >> on >> value;
    verbs.at(what)(on, value);
  }
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

void Player::waitModal(Window& window) {
  next(window.name()).passed();
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

// --- What the person does ------------------------------------------------------------------------

bool Player::press(Element& element) {
  const Window& home = element.window();
  return forms_->pressed(element, MouseButton::Left) &&
         std::ranges::count(home.elements(), &element) > 0 && element.isReachable();
}

void Player::doClick(Element& element) {
  if (auto* const picture = dynamic_cast<Picture*>(&element))
    return doClickOn(*picture, static_cast<float>(picture->Width) / 2,
                     static_cast<float>(picture->Height) / 2);
  if (press(element))
    forms_->clicked(element);
}

void Player::doClickOn(Picture& picture, float X, float Y) {
  forms_->moved(picture, X, Y);
  if (press(picture))
    forms_->clicked(picture);
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

} // namespace scripted
