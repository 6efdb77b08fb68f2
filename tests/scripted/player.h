// What a person can do with a screen, whichever it is: the cases of the forms layer act through
// this.
#pragma once

#include <concepts>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "model/forms/desktop.h"
#include "model/forms/grid_cursor.h"

namespace scripted {

// A text of the caller, and the line it stands on, which a failure names (clang 14 has no
// std::source_location). Elements are named as Element::name() has them, with the window in front
// where two open windows have the same: "picUnidad(17)", "frmEnJuego.picTablero".
struct Name {
  template <std::convertible_to<std::string> Text>
  Name(const Text& name, const char* ofFile = __builtin_FILE(), int ofLine = __builtin_LINE())
      : text(name), file(ofFile), line(ofLine) {}
  std::string text;
  const char* file;
  int line;
};

// "picUnidad(17)"
inline std::string at(std::string_view array, int index) {
  return std::string(array) + "(" + std::to_string(index) + ")";
}

using Meanwhile = std::function<void()>;

// Asking for what a person cannot reach (hidden, disabled, covered, behind a box) fails the test.
class Player {
public:
  virtual ~Player() = default;
  virtual forms::Desktop& desktop() = 0;

  // The next box has this text, to the letter, and is answered so. `meanwhile` runs while it is
  // open.
  virtual void expectBox(Name text, forms::Answer answer, Meanwhile meanwhile) = 0;
  void expectBox(Name text) { expectBox(std::move(text), forms::Answer::Ok, {}); }
  // The next window shown modally is this one. `meanwhile` must close it.
  virtual void expectModal(Name window, Meanwhile meanwhile) = 0;

  // Move there, press, let go. False when the click was not carried out, as the press moved the
  // focus and that was refused, or took the element away.
  virtual bool click(Name element) = 0;
  virtual void rightClick(Name element) = 0;
  // Replaces what the text box holds, key by key.
  virtual void type(Name textBox, std::string_view text) = 0;
  virtual void choose(Name list, std::string_view item) = 0;
  virtual void tab(bool forwards = true) = 0;
  // Any other key; `digit` with Key::Digit. True when it meant something.
  virtual bool key(forms::Key key, int digit = 0) = 0;
  virtual void menu(Name entry) = 0;
  virtual void shortcut(Name button) = 0;
  // Asks the window to close; true when it has.
  virtual bool closeWindow(Name window) = 0;
  // Turns to another child window; true when that became the active one.
  virtual bool activate(Name window) = 0;
  // Lets this many seconds pass, with a tick in each of every timer that runs.
  virtual void tick(int seconds = 1) = 0;
  // Name of the element that the keyboard goes to, "" when there is none.
  virtual std::string focused() = 0;
};

// Each test program defines this for its own screen.
std::unique_ptr<Player> makePlayer();

} // namespace scripted
