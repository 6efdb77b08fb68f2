// A desktop without a screen, for tests: acts by names, answers boxes from a list, shows what is
// seen.
//
//   ScriptedDesktop screen;               // first, so that it outlives the program under test
//   App app(screen);
//   screen.expectBox("Bienvenido.");      // queued; a box that comes otherwise fails the test
//   app.start();
//   screen.menu("mnuNuevoJuego");
//   screen.choose("comTablero", "8x8");
//   screen.clickOn("picTablero", 1500, 9000);
//   screen.expectBox("¿Empezar?", Answer::Yes);
//   screen.click("btnIniciar");
//   EXPECT_EQ(screen.picture(at("picUnidad", 57)), "inf_j1.jpg");
//   EXPECT_EQ(screen.text("lblJ1_Estado"), "En Turno");
#pragma once

#include <set>

#include "scripted/player.h"

namespace scripted {

class ScriptedDesktop final : public Player {
public:
  forms::MessageBox lastBox;
  forms::FileDialog lastFile;
  // File names such as "8x8.jpg" that cannot be loaded.
  std::set<std::string> missingPictures;
  bool allPicturesMissing = false;

  // --- What a person does ----------------------------------------------------------------------
  // On a picture: in its middle.
  bool click(const std::string& element) override;
  void rightClick(const std::string& element) override;
  // A click at X, Y of the picture, twips from its inner corner; false when it was not carried out.
  bool clickOn(const std::string& picture, double X, double Y);
  // The pointer goes to X, Y of the picture, twips from its inner corner. Outside of it: as with a
  // button held down.
  void moveOver(const std::string& picture, double X, double Y);
  void type(const std::string& textBox, std::string_view text) override;
  void choose(const std::string& list, std::string_view item) override;
  void tab(bool forwards = true) override;
  void key(forms::Key key, int digit = 0) override;
  void menu(const std::string& entry) override;
  void shortcut(const std::string& button) override;
  bool closeWindow(const std::string& window) override;
  bool activate(const std::string& window) override;

  // --- What a person sees ----------------------------------------------------------------------
  bool isOpen(std::string_view window) const { return find(window) != nullptr; }
  std::string focused() override { return focus_ ? focus_->name() : ""; }
  // False also for an array element that does not exist.
  bool visible(const std::string& element);
  bool enabled(const std::string& element) { return get<forms::Element>(element).Enabled; }
  // Caption or text; the chosen item of a list; "0" or "1" of a check box.
  std::string text(const std::string& element);
  // The file's name alone, of a window that of its icon.
  std::string picture(const std::string& element);
  std::string accessibleName(const std::string& element);
  std::string toolTip(const std::string& element) {
    return get<forms::Element>(element).ToolTipText;
  }
  // One line for each visible element of the open window.
  std::string transcript(const std::string& window);
  // The element itself, for all that has no question of its own here.
  template <class T> T& get(const std::string& name) const {
    auto* const found = dynamic_cast<T*>(find(name));
    if (!found)
      giveUp(name, "is not on the screen, or of another kind");
    return *found;
  }

  // --- Desktop ---------------------------------------------------------------------------------
  void windowOpened(forms::Window& window) override;
  void windowClosed(forms::Window& window) override;
  void waitModal(forms::Window& window) override;
  void changed(forms::Element& /*element*/) override {}
  void removed(forms::Element& element) override;
  void focusAsked(forms::Element& element) override;
  forms::Answer messageBox(const forms::MessageBox& box) override;
  std::optional<std::string> fileDialog(const forms::FileDialog& dialog) override;
  std::optional<forms::PictureSize> pictureSize(const std::string& path) override;

private:
  // Why a person cannot act on it now; "" when nothing hinders.
  std::string hindrance(const forms::Element& element) const;
  // As get, of an element that a person can act on now.
  template <class T> T& usable(const std::string& name) const {
    T& element = get<T>(name);
    if (const std::string reason = hindrance(element); !reason.empty())
      giveUp(name, reason);
    return element;
  }
  // True when the element has taken the press and still stands there.
  bool press(const std::string& name, forms::MouseButton button);
  forms::Window& keyboardWindow() const;
  void wait(const Meanwhile& meanwhile);

  int boxes_ = 0; // on the screen
  forms::Window* active_ = nullptr;
  const forms::Element* focus_ = nullptr;
};

} // namespace scripted
