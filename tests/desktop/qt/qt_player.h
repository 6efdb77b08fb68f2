// A person at the Qt desktop, offscreen: acts on the widgets that show the elements.
#pragma once

#include <QPoint>
#include <QWidget>

#include "desktop/qt/qt_desktop.h"
#include "scripted/player.h"

namespace scripted {

// Passes everything on to the Qt desktop, and answers the boxes that it opens.
class QtPlayer final : public Player {
public:
  QtPlayer();

  // The program's own loop.
  int run() { return qt_.run(); }
  using Player::run; // of a script

  // The widget that shows an element or a window; throws when there is none.
  QWidget& widget(const forms::Element& element);

  void windowOpened(forms::Window& window) override;
  void windowClosed(forms::Window& window) override {
    Player::windowClosed(window), qt_.windowClosed(window);
  }
  void waitModal(forms::Window& window) override;
  void changed(forms::Element& element) override { stale_ = true, qt_.changed(element); }
  void removed(forms::Element& element) override { Player::removed(element), qt_.removed(element); }
  void focusAsked(forms::Element& element) override {
    Player::focusAsked(element), qt_.focusAsked(element);
  }
  forms::Answer messageBox(const forms::MessageBox& box) override;
  std::optional<std::string> fileDialog(const forms::FileDialog& dialog) override;
  std::optional<forms::PictureSize> pictureSize(const std::string& path) override {
    return qt_.pictureSize(path);
  }

private:
  void doClick(forms::Element& element) override;
  void doRightClick(forms::Element& element) override;
  void doClickOn(forms::Picture& picture, float X, float Y) override;
  void doMoveOver(forms::Picture& picture, float X, float Y) override;
  void doType(forms::TextBox& box, std::string_view text) override;
  void doChoose(forms::DropList& list, int item) override;
  void doTab(bool forwards) override;
  void doKey(forms::Key key, int digit) override;
  void doMenu(forms::MenuEntry& entry) override;
  void doShortcut(forms::Button& button) override;
  void doClose(forms::Window& window) override { widget(window).close(); }
  void doActivate(forms::Window& window) override;
  void afterAction() override;

  void press(forms::Element& element, QPoint place);

  forms::qt::QtDesktop qt_;
  bool stale_ = false; // something has changed that may be painted later
};

} // namespace scripted
