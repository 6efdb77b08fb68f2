// A person at the Qt desktop, offscreen: acts on the widgets that show the elements.
#pragma once

#include <QWidget>
#include <deque>
#include <optional>

#include "desktop/qt/qt_desktop.h"
#include "model/forms/forms.h"
#include "scripted/player.h"
#include "scripted/temporary_folder.h"

namespace scripted {

// Passes everything on to the Qt desktop, and answers the boxes that it opens.
class QtPlayer final : public forms::Desktop, public Player {
public:
  QtPlayer();
  ~QtPlayer() override;

  using Player::expectBox;
  void expectBox(Name text, forms::Answer answer, Meanwhile meanwhile) override;
  void expectModal(Name window, Meanwhile meanwhile) override;
  bool click(Name element) override;
  void rightClick(Name element) override;
  void type(Name textBox, std::string_view text) override;
  void choose(Name list, std::string_view item) override;
  void tab(bool forwards = true) override;
  bool key(forms::Key key, int digit = 0) override;
  void menu(Name entry) override;
  void shortcut(Name button) override;
  bool closeWindow(Name window) override;
  bool activate(Name window) override;
  void tick(int seconds = 1) override;
  std::string focused() override;

  // The widget that shows an element or a window; fails the test, and throws, when there is none.
  QWidget& widget(const Name& name);

  forms::Desktop& desktop() override { return *this; }
  void windowOpened(forms::Window& window) override;
  void windowClosed(forms::Window& window) override { qt_.windowClosed(window); }
  void waitModal(forms::Window& window) override;
  void changed(forms::Element& element) override { qt_.changed(element); }
  void removed(forms::Element& element) override { qt_.removed(element); }
  void focusAsked(forms::Element& element) override { qt_.focusAsked(element); }
  forms::Answer messageBox(const forms::MessageBox& box) override;
  std::optional<std::string> fileDialog(const forms::FileDialog& dialog) override {
    return qt_.fileDialog(dialog);
  }
  std::optional<forms::PictureSize> pictureSize(const std::string& path) override {
    return qt_.pictureSize(path);
  }
  forms::DateTime now() override { return qt_.now(); }
  // A folder of its own with the program's pictures in it.
  std::string programFolder() override { return folder_.path(); }

private:
  struct Expected {
    Name text;
    forms::Answer answer;
    Meanwhile meanwhile;
  };

  forms::Window* window(const std::string& name) const;
  forms::Element* element(const std::string& name) const;
  Expected next(const std::string& asked);

  TemporaryFolder folder_;
  forms::qt::QtDesktop qt_;
  forms::Forms* forms_ = nullptr;
  std::deque<Expected> expected_;
};

} // namespace scripted
