#include "scripted/player.h"

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

} // namespace scripted
