// A desktop without a screen: what the person does goes straight to the forms layer.
#pragma once

#include <set>

#include "scripted/player.h"

namespace scripted {

class ScriptedDesktop : public Player {
public:
  // File names such as "8x8.jpg" that cannot be loaded.
  std::set<std::string> missingPictures;
  bool allPicturesMissing = false;

  std::string focused() override { return focus_ ? focus_->name() : ""; }

  void windowOpened(forms::Window& window) override { forms_ = &window.forms(); }
  void windowClosed(forms::Window& window) override;
  void waitModal(forms::Window& window) override;
  void changed(forms::Element& element) override;
  void removed(forms::Element& element) override;
  void focusAsked(forms::Element& element) override;
  forms::Answer messageBox(const forms::MessageBox& box) override;
  std::optional<std::string> fileDialog(const forms::FileDialog& dialog) override;
  std::optional<forms::PictureSize> pictureSize(const std::string& path) override;

private:
  bool doClick(forms::Element& element) override;
  void doRightClick(forms::Element& element) override;
  bool doClickOn(forms::Picture& picture, float X, float Y) override;
  void doMoveOver(forms::Picture& picture, float X, float Y) override;
  void doType(forms::TextBox& box, std::string_view text) override;
  void doChoose(forms::DropList& list, int item) override;
  void doTab(bool forwards) override;
  void doKey(forms::Key key, int digit) override;
  void doMenu(forms::MenuEntry& entry) override { forms_->menuChosen(entry); }
  void doShortcut(forms::Button& button) override { forms_->shortcutPressed(button); }
  void doClose(forms::Window& window) override { forms_->closeRequested(window); }
  void doActivate(forms::Window& window) override { forms::passOver(forms_->activated(window)); }

  // True when the element has taken the press and still stands there.
  bool press(forms::Element& element);
  forms::Window& keyboardWindow() const;

  const forms::Element* focus_ = nullptr;
};

} // namespace scripted
