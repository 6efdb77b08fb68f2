#include "scripted/player.h"

#include <algorithm>
#include <sstream>

namespace scripted {

void walk(const std::vector<std::string>& rows,
          const std::function<std::string(const std::string&)>& seenAfter) {
  for (const std::string& row : rows) {
    SCOPED_TRACE(row);
    const std::size_t end = row.find(" => ");
    EXPECT_EQ(seenAfter(row.substr(0, end)), row.substr(end + 4));
  }
}

std::pair<float, float> placeOn(const Picture& picture, const std::string& place) {
  if (place.empty())
    return {static_cast<float>(picture.Width) / 2, static_cast<float>(picture.Height) / 2};
  return {std::stof(place), std::stof(place.substr(place.find(';') + 1))};
}

Player::Player() {
  // Moves there, presses, lets go. The press may move the focus, which may be refused, or take
  // the element away; then the click is not carried out.
  verbs["click"] = [this](auto& on, auto& place) {
    auto& element = get(on);
    if (dynamic_cast<Picture*>(&element))
      verbs["over"](on, place);
    if (press(element))
      forms_->clicked(element);
  };
  verbs["over"] = [this](auto& on, auto& place) {
    auto& picture = get<Picture>(on);
    const auto [X, Y] = placeOn(picture, place);
    forms_->moved(picture, X, Y);
  };
  verbs["right"] = [this](auto& on, auto&) { forms_->pressed(get(on), MouseButton::Right); };
  // In place of what the box holds.
  verbs["type"] = [this](auto& on, auto& text) {
    auto& box = get<TextBox>(on);
    if (!press(box))
      return;
    forms_->typed(box, "");
    forms_->typed(box, text);
  };
  verbs["choose"] = [this](auto& on, auto& item) {
    auto& list = get<DropList>(on);
    const auto& all = list.items();
    if (press(list))
      forms_->chosen(list, static_cast<int>(std::ranges::find(all, item) - all.begin()));
  };
  verbs["menu"] = [this](auto& on, auto&) { forms_->clicked(get<MenuEntry>(on)); };
  verbs["activate"] = [this](auto& on, auto&) { passOver(forms_->activated(get<Window>(on))); };
  verbs["close"] = [this](auto& on, auto&) { forms_->closeRequested(get<Window>(on)); };
  verbs["tick"] = [this](auto& seconds, auto&) { tick(std::stoi(seconds)); };
}

void Player::run(const std::string& script) {
  std::istringstream steps(script);
  for (std::string step; std::getline(steps >> std::ws, step, ',');) {
    SCOPED_TRACE(step);
    std::string what, on, value;
    std::istringstream(step) >> what >> on >> value;
    if (const auto verb = verbs.find(what); verb != verbs.end())
      verb->second(on, value);
    else
      key(what);
    afterAction();
  }
}

void Player::key(const std::string& name) {
  static const std::map<std::string, Key> keys = {{"Left", Key::Left},     {"Right", Key::Right},
                                                  {"Up", Key::Up},         {"Down", Key::Down},
                                                  {"Enter", Key::Enter},   {"Space", Key::Space},
                                                  {"Delete", Key::Delete}, {"Escape", Key::Escape}};
  Window& window = front();
  for (Element* element : window.elements())
    if (auto* button = dynamic_cast<Button*>(element); button && button->Shortcut == name)
      return forms_->shortcutPressed(*button);
  if (name.ends_with("Tab"))
    forms_->tabbed(window, name == "Tab");
  else if (const auto found = keys.find(name); found != keys.end())
    forms_->keyPressed(window, found->second);
  else
    forms_->keyPressed(window, Key::Digit, std::stoi(name));
}

bool Player::press(Element& element) {
  const Window& home = element.window();
  return forms_->pressed(element, MouseButton::Left) &&
         std::ranges::count(home.elements(), &element) > 0 && element.isReachable();
}

// Which timers run is the forms layer's knowledge: those of the screen would go by real time.
void Player::tick(int seconds) {
  for (; seconds > 0 && !forms_->openWindows().empty(); --seconds) {
    for (Element* element : forms_->openWindows().front()->elements())
      if (auto* timer = dynamic_cast<Timer*>(element))
        forms_->ticked(*timer);
    afterAction();
  }
}

// --- What the program asks -----------------------------------------------------------------------

Player::Expected Player::next(const std::string& text) {
  Expected first{text, Answer::No, {}, {}};
  if (!expected_.empty() && expected_.front().text == text) {
    first = expected_.front();
    expected_.pop_front();
  } else {
    ADD_FAILURE() << "Unexpected:\n" << text << "\nbefore " << expected_.size() << " others";
  }
  afterAction();
  if (first.meanwhile)
    first.meanwhile();
  return first;
}

void Player::finish() {
  for (const Expected& left : std::exchange(expected_, {}))
    ADD_FAILURE() << "Expected, but did not come:\n" << left.text;
}

Answer Player::messageBox(const MessageBox& box) {
  const Answer answer = next(box.text).answer;
  EXPECT_EQ(answer == Answer::Ok, box.style == BoxStyle::Information) << box.text;
  return answer;
}

void Player::waitModal(Window& window) {
  next(window.name());
  EXPECT_FALSE(window.isOpen() && window.close()) << "The modal window was not closed.";
}

std::optional<PictureSize> Player::pictureSize(const std::string& path) {
  const std::string name = std::filesystem::path(path).filename().string();
  if (name.find(missingPictures) != std::string::npos)
    return std::nullopt;
  const int board = ((name[0] - '0') * 1180 + 14) / 15; // of "6x6.jpg"
  const int side = name[1] == 'x' ? board : name.ends_with(".ico") ? 32 : 62;
  return PictureSize{side, side};
}

} // namespace scripted
