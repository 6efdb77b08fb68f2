// A person at the Qt desktop, offscreen: acts on the widgets that show the elements.
#pragma once

#include <QWidget>

#include "desktop/qt/qt_desktop.h"
#include "scripted/player.h"

namespace scripted {

// Passes everything on to the Qt desktop, and answers the boxes that it opens.
class QtPlayer final : public Player {
public:
  QtPlayer();

  bool click(const std::string& element) override;
  void rightClick(const std::string& element) override;
  void type(const std::string& textBox, std::string_view text) override;
  void choose(const std::string& list, std::string_view item) override;
  void tab(bool forwards = true) override;
  void key(forms::Key key, int digit = 0) override;
  void menu(const std::string& entry) override;
  void shortcut(const std::string& button) override;
  bool closeWindow(const std::string& window) override;
  bool activate(const std::string& window) override;
  std::string focused() override;

  // The widget that shows an element or a window; fails the test, and throws, when there is none.
  QWidget& widget(const std::string& name);

  void windowOpened(forms::Window& window) override;
  void windowClosed(forms::Window& window) override { qt_.windowClosed(window); }
  void waitModal(forms::Window& window) override;
  void changed(forms::Element& element) override { qt_.changed(element); }
  void removed(forms::Element& element) override { qt_.removed(element); }
  void focusAsked(forms::Element& element) override { qt_.focusAsked(element); }
  forms::Answer messageBox(const forms::MessageBox& box) override;
  std::optional<std::string> fileDialog(const forms::FileDialog& dialog) override;
  std::optional<forms::PictureSize> pictureSize(const std::string& path) override {
    return qt_.pictureSize(path);
  }

private:
  forms::qt::QtDesktop qt_;
};

} // namespace scripted
