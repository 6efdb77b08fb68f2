#include "scripted/player.h"

#include <stdexcept>

#include <gtest/gtest.h>

namespace scripted {

using namespace forms;
using namespace std::chrono;

void giveUp(const std::string& element, const std::string& reason) {
  ADD_FAILURE() << element << " " << reason;
  throw std::runtime_error("A person could not do that.");
}

void Player::finish() {
  for (const Expected& left : std::exchange(expected_, {}))
    ADD_FAILURE() << "Expected, but did not come:\n" << left.text;
}

Player::Expected Player::next(Asked asked, const std::string& text, BoxStyle style) {
  const Expected first = expected_.empty() ? Expected() : expected_.front();
  const bool question = style != BoxStyle::Information;
  if (expected_.empty() || first.asked != asked || first.text != text ||
      first.style.value_or(style) != style || (first.answer != Answer::Ok) != question) {
    ADD_FAILURE() << "Unexpected:\n" << text << "\ninstead of:\n" << first.text;
    return {asked, text, style, Answer::No, {}, {}};
  }
  expected_.pop_front();
  return first;
}

Element* Player::find(std::string_view name) const {
  Element* found = nullptr;
  for (Window* window : forms_ ? forms_->openWindows() : std::vector<Window*>()) {
    if (window->name() == name)
      return window;
    for (Element* element : window->elements()) {
      // Most are passed over by a look at their end.
      if (!name.ends_with(element->index() < 0 ? element->arrayName() : ")") ||
          (element->name() != name && window->name() + "." + element->name() != name))
        continue;
      if (found)
        giveUp(std::string(name), "stands on two windows");
      found = element;
    }
  }
  return found;
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
  }
}

DateTime Player::now() {
  const auto today = floor<days>(clock);
  const year_month_day date(today);
  const hh_mm_ss time(clock - today);
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          static_cast<int>(time.hours().count()),
          static_cast<int>(time.minutes().count()),
          static_cast<int>(time.seconds().count())};
}

} // namespace scripted
