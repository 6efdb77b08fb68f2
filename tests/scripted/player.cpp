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

const std::map<std::string, Key> KeyNames = {
    {"Left", Key::Left},   {"Right", Key::Right}, {"Up", Key::Up},         {"Down", Key::Down},
    {"Enter", Key::Enter}, {"Space", Key::Space}, {"Delete", Key::Delete}, {"Escape", Key::Escape}};

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
    auto& element = usable(on);
    if (dynamic_cast<Picture*>(&element))
      verbs["over"](on, place);
    if (press(element))
      forms_->clicked(element);
  };
  verbs["over"] = [this](auto& on, auto& place) {
    auto& picture = usable<Picture>(on);
    const auto [X, Y] = placeOn(picture, place);
    forms_->moved(picture, X, Y);
  };
  verbs["right"] = [this](auto& on, auto&) { forms_->pressed(usable(on), MouseButton::Right); };
  verbs["type"] = [this](auto& on, auto& text) { type(usable<TextBox>(on), text); };
  verbs["tab"] = [this](auto& back, auto&) { forms_->tabbed(keyboardWindow(), back.empty()); };
  verbs["menu"] = [this](auto& on, auto&) { forms_->clicked(usable<MenuEntry>(on)); };
  // Also of a button that is hidden.
  verbs["shortcut"] = [this](auto& on, auto&) {
    if (auto& button = get<Button>(on); button.Shortcut == "Ctrl+Shift+D")
      forms_->shortcutPressed(button);
  };
  verbs["activate"] = [this](auto& on, auto&) { passOver(forms_->activated(usable<Window>(on))); };
  verbs["close"] = [this](auto& on, auto&) { forms_->closeRequested(usable<Window>(on)); };
  verbs["tick"] = [this](auto& seconds, auto&) { tick(std::stoi(seconds)); };
  verbs["choose"] = [this](auto& on, auto& item) {
    auto& list = usable<DropList>(on);
    const auto& all = list.items();
    if (press(list))
      forms_->chosen(list, static_cast<int>(std::ranges::find(all, item) - all.begin()));
  };
  for (const auto& [name, key] : KeyNames)
    verbs[name] = [this, which = key](auto&, auto&) {
      forms_->keyPressed(keyboardWindow(), which);
    };
  verbs["digit"] = [this](auto& digit, auto&) {
    forms_->keyPressed(keyboardWindow(), Key::Digit, std::stoi(digit));
  };
}

void Player::run(const std::string& script) {
  for (const std::string& step : stepsOf(script)) {
    SCOPED_TRACE(step);
    std::string what, on, value;
    std::istringstream(step) >> what >> on >> value;
    verbs.at(what)(on, value);
    afterAction();
  }
}

void Player::finish() {
  for (const Expected& left : std::exchange(expected_, {}))
    ADD_FAILURE() << "Expected, but did not come:\n" << left.text;
}

// Which timers run is the forms layer's knowledge: those of the screen would go by real time.
void Player::tick(int seconds) {
  for (; seconds > 0 && !forms_->openWindows().empty(); --seconds) {
    forms_->ticked(get<Timer>(""));
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

Answer Player::messageBox(const MessageBox& box) {
  lastBox = box;
  const Answer answer = next(box.text).answer;
  EXPECT_EQ(answer == Answer::Ok, box.style == BoxStyle::Information) << box.text;
  return answer;
}

void Player::waitModal(Window& window) {
  next(window.name());
  EXPECT_FALSE(window.isOpen() && window.close()) << "The modal window was not closed.";
}

std::optional<PictureSize> Player::pictureSize(const std::string& path) {
  const std::filesystem::path file(path);
  EXPECT_EQ(file.parent_path().parent_path(), programFolder());
  const std::string name = file.filename().string();
  if (name.find(missingPictures) != std::string::npos)
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

// Replaces what the text box holds, key by key.
void Player::type(TextBox& box, const std::string& text) {
  if (!press(box))
    return;
  forms_->typed(box, "");
  for (std::size_t end = 1; end <= text.size(); ++end)
    if ((text[end] & 0xC0) != 0x80) // else the character has more bytes
      forms_->typed(box, text.substr(0, end));
}

} // namespace scripted
