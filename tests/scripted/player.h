// A person at a screen, whichever it is: what the program will ask, and what the person does.
#pragma once

#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "forms/forms.h"
#include "scripted/temporary_folder.h"

namespace scripted {

// "picUnidad(17)"
inline std::string at(std::string_view array, int index) {
  return std::string(array) + "(" + std::to_string(index) + ")";
}

using Meanwhile = std::function<void()>;

// Strict: an unexpected box, an answer left over and an action that a person could not do (on what
// is hidden, disabled or behind a box) each fail the running test. Elements are named as
// Element::name() has them, with the window in front where two open windows have the same:
// "picUnidad(17)", "frmEnJuego.picTablero".
class Player : public forms::Desktop {
public:
  Player() = default;
  ~Player() override { finish(); }
  Player(const Player&) = delete;
  Player& operator=(const Player&) = delete;

  // --- What the program will ask, in this order ------------------------------------------------
  // A box with this text, to the letter. `meanwhile` runs while it is open.
  void expectBox(std::string text, forms::Answer answer = forms::Answer::Ok,
                 Meanwhile meanwhile = {}) {
    expected_.push_back({Asked::Box, std::move(text), {}, answer, {}, std::move(meanwhile)});
  }
  // As above, and the box must have this style.
  void expectBox(std::string text, forms::BoxStyle style, forms::Answer answer,
                 Meanwhile meanwhile = {}) {
    expected_.push_back({Asked::Box, std::move(text), style, answer, {}, std::move(meanwhile)});
  }
  // Path nullopt: cancelled.
  void expectFile(std::string title, std::optional<std::string> path, Meanwhile meanwhile = {}) {
    expected_.push_back({Asked::File,
                         std::move(title),
                         {},
                         forms::Answer::Ok,
                         std::move(path),
                         std::move(meanwhile)});
  }
  // A window shown modally. `meanwhile` must close it.
  void expectModal(std::string window, Meanwhile meanwhile) {
    expected_.push_back(
        {Asked::Modal, std::move(window), {}, forms::Answer::Ok, {}, std::move(meanwhile)});
  }
  // Fails for each answer that was not asked for, and forgets it.
  void finish();

  // --- What the person does --------------------------------------------------------------------
  // Move there, press, let go. False when the click was not carried out, as the press moved the
  // focus and that was refused, or took the element away.
  virtual bool click(const std::string& element) = 0;
  virtual void rightClick(const std::string& element) = 0;
  // Replaces what the text box holds, key by key.
  virtual void type(const std::string& textBox, std::string_view text) = 0;
  virtual void choose(const std::string& list, std::string_view item) = 0;
  virtual void tab(bool forwards = true) = 0;
  // Any other key; `digit` with Key::Digit.
  virtual void key(forms::Key key, int digit = 0) = 0;
  virtual void menu(const std::string& entry) = 0;
  virtual void shortcut(const std::string& button) = 0;
  // Asks the window to close; true when it has.
  virtual bool closeWindow(const std::string& window) = 0;
  // Turns to another child window; true when that became the active one.
  virtual bool activate(const std::string& window) = 0;
  // Name of the element that the keyboard goes to, "" when there is none.
  virtual std::string focused() = 0;
  // Lets this many seconds pass, with a tick in each of every timer that runs.
  void tick(int seconds = 1);

  // The window or element with this name; nullptr when there is none.
  forms::Element* find(std::string_view name) const;

  // 9 March 2005, 08:05:07 at the start.
  std::chrono::sys_seconds clock =
      std::chrono::sys_days(std::chrono::year(2005) / 3 / 9) + std::chrono::seconds(29107);
  forms::DateTime now() override;
  // A folder of its own with the program's pictures in it, or none.
  std::string programFolder() override { return folder_.path(); }

protected:
  enum class Asked { Box, File, Modal };
  struct Expected {
    Asked asked{};
    std::string text;
    std::optional<forms::BoxStyle> style;
    forms::Answer answer{};
    std::optional<std::string> path;
    Meanwhile meanwhile;
  };
  // What was expected now, if it is what the program asks.
  Expected next(Asked asked, const std::string& text,
                forms::BoxStyle style = forms::BoxStyle::Information);

  TemporaryFolder folder_;
  forms::Forms* forms_ = nullptr; // known from the first window on

private:
  std::deque<Expected> expected_;
};

// Fails the test, which cannot go on.
[[noreturn]] void giveUp(const std::string& element, const std::string& reason);

// Each test program defines this for its own screen.
std::unique_ptr<Player> makePlayer();

} // namespace scripted
