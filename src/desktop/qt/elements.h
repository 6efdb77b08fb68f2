// An entry of the frame's menu.
#pragma once

#include "desktop/qt/element_view.h"
#include "forms/elements.h"

class QAction;
class QActionGroup;
class QMenu;
class QMenuBar;

namespace forms::qt {

class MenuEntryView final : public ElementView {
public:
  // `above` is the menu that holds the entry; nullptr: the menu bar does.
  MenuEntryView(MenuEntry& entry, Services services, QMenuBar* bar, MenuEntryView* above);

  void sync() override;

protected:
  void takeOff() override;

private:
  void chosen();
  // Puts the open child windows at the menu's foot.
  void listWindows();
  void listWindow(Window& window, int number);

  QAction* action_ = nullptr;
  QMenu* menu_ = nullptr;           // set when the entry has entries below it
  QActionGroup* windows_ = nullptr; // the open child windows, with the line above them
};

} // namespace forms::qt
