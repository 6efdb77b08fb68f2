// A person at a desktop: what the program will ask, and what the person does. The desktop itself
// has no screen; the tests of the real one put it in its place.
#pragma once

#include <algorithm>
#include <deque>
#include <map>
#include <memory>
#include <stdexcept>

#include <gtest/gtest.h>

#include "forms/forms.h"
#include "scripted/temporary_folder.h"

namespace scripted {

using namespace forms;

using Meanwhile = std::function<void()>;

// Each row of a table is what is done, " => ", what is seen then.
void walk(const std::vector<std::string>& rows,
          const std::function<std::string(const std::string&)>& seenAfter);

// Strict: a box that was not expected, an answer left over, and an action on what is hidden or
// disabled each fail the running test.
class Player : public Desktop {
public:
  Player();
  ~Player() override { finish(); }

  // --- What the program will ask, in this order ------------------------------------------------
  // A box with this text, to the letter: a question unless the answer is Ok. `meanwhile` runs while
  // it is open. Or a window shown modally, by its name: `meanwhile` must close it.
  void expectBox(std::string text, Answer answer = Answer::Ok, Meanwhile meanwhile = {}) {
    expected_.push_back({std::move(text), answer, {}, std::move(meanwhile)});
  }
  // By its title. Path nullopt: cancelled.
  void expectFile(std::string title, std::optional<std::string> path, Meanwhile meanwhile = {}) {
    expected_.push_back({std::move(title), {}, std::move(path), std::move(meanwhile)});
  }
  // Fails for each answer that was not asked for, and forgets it.
  void finish();
  FileDialog lastFile;

  // --- What the person does --------------------------------------------------------------------
  // Step by step, a verb or a key each: "click btn, type txtA 5, Up, 3, Shift+Tab". Those of Player
  // go straight to the forms layer; another screen has its own ways, and a test may bring more.
  void run(const std::string& script);
  using Verb = std::function<void(const std::string& on, const std::string& value)>;
  std::map<std::string, Verb> verbs;
  // The element or window that can be used and whose name ends so, in the window that opened last:
  // "btn", "frmUno.btn". A test without it cannot go on.
  template <class T = Element> T& get(const std::string& name) const {
    T* found = nullptr;
    for (Window* window : forms_->openWindows()) {
      std::vector<Element*> all = window->elements();
      all.push_back(window);
      for (Element* element : all)
        if (auto* fits = dynamic_cast<T*>(element);
            fits && fits->isReachable() && (window->name() + "." + fits->name()).ends_with(name))
          found = fits;
    }
    if (found)
      return *found;
    throw std::runtime_error(name + " cannot be used");
  }
  // The window that the keyboard goes to: one of its own, or the active child.
  Window& front() const {
    Window* const last = forms_->openWindows().back();
    return last->windowKind() == WindowKind::Own ? *last : *forms_->activeChild();
  }
  // Name of the element that the keyboard goes to, "" when there is none.
  std::string focused() const { return front().focused() ? front().focused()->name() : ""; }
  // Lets this many seconds pass, with a tick in each of every timer that runs.
  void tick(int seconds = 1);

  // A picture whose file name has this in it cannot be loaded.
  std::string missingPictures = "none";

  void windowOpened(Window& window) override { forms_ = &window.forms(); }
  void windowClosed(Window& /*window*/) override {}
  void waitModal(Window& window) override;
  void changed(Element& element) override { EXPECT_TRUE(element.window().isOpen()); }
  void removed(Element& /*element*/) override {}
  void focusAsked(Element& /*element*/) override {}
  Answer messageBox(const MessageBox& box) override;
  std::optional<std::string> fileDialog(const FileDialog& dialog) override {
    lastFile = dialog;
    return next(dialog.title).path;
  }
  std::optional<PictureSize> pictureSize(const std::string& path) override;
  DateTime now() override { return {2005, 3, 9, 8, 5, 7}; }
  // A folder of its own with the program's pictures in it, or none.
  std::string programFolder() override { return folder_.path(); }

protected:
  // Runs behind each step, behind each tick and before each answer: what the screen shows may be
  // looked at.
  virtual void afterAction() {}
  // As Qt calls it: "Up", "3", "Shift+Tab", "Ctrl+Shift+D".
  virtual void key(const std::string& name);

  TemporaryFolder folder_;
  Forms* forms_ = nullptr; // known from the first window on

private:
  struct Expected {
    std::string text;
    Answer answer{};
    std::optional<std::string> path;
    Meanwhile meanwhile;
  };
  // What was expected now, if it is what the program asks, with all that happens before the answer.
  Expected next(const std::string& text);
  // True when the element has taken the press and still stands there.
  bool press(Element& element);

  std::deque<Expected> expected_;
};

// "X;Y", twips from the picture's inner corner; "": its middle.
std::pair<float, float> placeOn(const Picture& picture, const std::string& place);

// Each test program defines this for its own screen.
std::unique_ptr<Player> makePlayer();

} // namespace scripted
