// A desktop without a screen, for tests: acts by names, answers boxes from a list, shows what is
// seen.
//
//   ScriptedDesktop screen;               // first, so that it outlives the program under test
//   App app(screen);
//   screen.expectBox("Bienvenido.");      // queued; a box that comes otherwise fails the test
//   app.start();
//   screen.menu("mnuNuevoJuego");
//   screen.choose("comTablero", "8x8");
//   screen.clickAt("frmNuevoJuego", 1500, 9000);
//   screen.expectBox("¿Empezar?", Answer::Yes);
//   screen.click("btnIniciar");
//   EXPECT_EQ(screen.picture(at("picUnidad", 57)), "inf_j1.jpg");
//   EXPECT_EQ(screen.text("lblJ1_Estado"), "En Turno");
#pragma once

#include <chrono>
#include <deque>
#include <map>
#include <set>

#include "model/forms/forms.h"
#include "scripted/player.h"
#include "scripted/temporary_folder.h"

namespace scripted {

// Strict: an unexpected box, an answer left over, an action that a person could not do and a breach
// of the contract of Desktop each fail the running test.
class ScriptedDesktop final : public forms::Desktop, public Player {
public:
  ScriptedDesktop() = default;
  ~ScriptedDesktop() override {
    forms_ = nullptr; // the program is gone
    finish();
  }
  // Fails for each answer that was not asked for, and forgets it.
  void finish();

  // --- What the program will ask ---------------------------------------------------------------
  using Player::expectBox;
  void expectBox(Name text, forms::Answer answer, Meanwhile meanwhile = {}) override {
    expected_.push_back({Asked::Box, text, {}, answer, {}, meanwhile});
  }
  // As above, and the box must have this style.
  void expectBox(Name text, forms::BoxStyle style, forms::Answer answer, Meanwhile meanwhile = {}) {
    expected_.push_back({Asked::Box, text, style, answer, {}, meanwhile});
  }
  // Path nullopt: cancelled.
  void expectFile(Name title, std::optional<std::string> path, Meanwhile meanwhile = {}) {
    expected_.push_back({Asked::File, title, {}, forms::Answer::Ok, path, meanwhile});
  }
  void expectModal(Name window, Meanwhile meanwhile) override {
    expected_.push_back({Asked::Modal, window, {}, forms::Answer::Ok, {}, meanwhile});
  }
  forms::MessageBox lastBox;
  forms::FileDialog lastFile;
  // File names such as "8x8.jpg" that cannot be loaded.
  std::set<std::string> missingPictures;
  bool allPicturesMissing = false;
  // 9 March 2005, 08:05:07 at the start; each second of tick adds one.
  std::chrono::sys_seconds clock =
      std::chrono::sys_days(std::chrono::year(2005) / 3 / 9) + std::chrono::seconds(29107);

  // --- What a person does ----------------------------------------------------------------------
  bool click(Name element) override { return point(element, forms::MouseButton::Left); }
  // As click, but false where click would fail the test.
  bool tryClick(Name element);
  void rightClick(Name element) override { point(element, forms::MouseButton::Right); }
  // The same at a place of a window, in twips from its inner corner: on what lies topmost there.
  bool clickAt(Name window, int x, int y, forms::MouseButton button = forms::MouseButton::Left);
  // A click at X, Y of the picture, twips from its inner corner; false when it was not carried out.
  bool clickOn(Name picture, double X, double Y);
  // The pointer goes to X, Y of the picture, twips from its inner corner. Outside of it: as with a
  // button held down.
  void moveOver(Name picture, double X, double Y);
  void type(Name textBox, std::string_view text) override;
  // Replaces what the text box holds at once, as pasting does.
  void setText(Name textBox, std::string text);
  void choose(Name list, std::string_view item) override;
  void tab(bool forwards = true) override;
  bool key(forms::Key key, int digit = 0) override;
  void menu(Name entry) override { forms_->menuChosen(usable<forms::MenuEntry>(entry)); }
  void shortcut(Name button) override;
  bool closeWindow(Name window) override;
  bool activate(Name window) override;
  void tick(int seconds = 1) override;

  // --- What a person sees ----------------------------------------------------------------------
  bool isOpen(std::string_view window) const { return find(window) != nullptr; }
  std::string focused() override { return focus_ ? focus_->name() : ""; }
  // False also for an array element that does not exist. For a menu entry: it and all above it.
  bool visible(Name element);
  bool enabled(Name element) { return allAbove(known(element), &forms::Element::Enabled); }
  // Caption or text; the chosen item of a list; "0" or "1" of a check box.
  std::string text(Name element) { return textOf(known(element)); }
  // The file's name alone, of a window that of its icon.
  std::string picture(Name element) { return pictureOf(known(element)); }
  std::string accessibleName(Name element);
  std::string toolTip(Name element) { return known(element).ToolTipText; }
  // One line for each visible element of the open window.
  std::string transcript(std::string_view window) const;
  // The element itself, for all that has no question of its own here; nullptr when there is none.
  forms::Element* find(std::string_view name) const;
  // As find, of a known kind; fails the test, and throws, when there is none.
  template <class T> T& get(Name name) {
    auto* const found = dynamic_cast<T*>(&known(name));
    if (!found)
      giveUp(name, "is of another kind");
    return *found;
  }

  // --- Desktop ---------------------------------------------------------------------------------
  forms::Desktop& desktop() override { return *this; }
  void windowOpened(forms::Window& window) override;
  void windowClosed(forms::Window& window) override;
  void waitModal(forms::Window& window) override;
  void changed(forms::Element& element) override;
  void removed(forms::Element& element) override;
  void focusAsked(forms::Element& element) override;
  forms::Answer messageBox(const forms::MessageBox& box) override;
  std::optional<std::string> fileDialog(const forms::FileDialog& dialog) override;
  std::optional<forms::PictureSize> pictureSize(const std::string& path) override;
  forms::DateTime now() override;
  std::string programFolder() override { return folder_.path(); }

private:
  enum class Asked { Box, File, Modal };
  struct Expected {
    Asked asked;
    Name text;
    std::optional<forms::BoxStyle> style;
    forms::Answer answer;
    std::optional<std::string> path;
    Meanwhile meanwhile;
  };
  struct Point {
    int x, y; // twips from the window's inner corner
  };

  static std::string textOf(const forms::Element& element);
  static std::string pictureOf(const forms::Element& element);
  // Whether it holds for the element, and for a menu entry for all entries above it.
  static bool allAbove(const forms::Element& element, forms::Property<bool> forms::Element::*what);
  void fail(const Name& about, const std::string& message) const;
  [[noreturn]] void giveUp(const Name& about, const std::string& message) const;
  forms::Element& known(const Name& name);
  // As get, of an element that a person can act on now.
  template <class T> T& usable(const Name& name) {
    T& element = get<T>(name);
    acting_ = name;
    if (const std::string reason = hindrance(element); !reason.empty())
      giveUp(name, reason);
    return element;
  }
  std::string hindrance(const forms::Element& element) const;
  forms::Element* topmostAt(const forms::Window& window, Point place) const;
  forms::Window& keyboardWindow(const Name& key);
  std::optional<Point> openPlace(const forms::Element& element) const;
  bool point(const Name& name, forms::MouseButton button);
  void hover(forms::Picture& picture, Point place);
  bool act(forms::Element& element, Point place, forms::MouseButton button);
  bool press(forms::Element& element, forms::MouseButton button);
  std::optional<Expected> ask(Asked asked, const std::string& text);

  TemporaryFolder folder_;
  forms::Forms* forms_ = nullptr;            // of the first window opened
  std::set<const forms::Element*> onScreen_; // windows too
  std::deque<Expected> expected_;
  int boxes_ = 0;
  std::vector<forms::Window*> modal_;
  const forms::Element* focus_ = nullptr; // of what stands on the screen
  forms::Window* active_ = nullptr;
  Name acting_{"opening"}; // the action that goes on

public:
  ScriptedDesktop(const ScriptedDesktop&) = delete;
  ScriptedDesktop& operator=(const ScriptedDesktop&) = delete;
};

} // namespace scripted
