// The kinds of elements besides the picture: label, text box, check box, list, button, menu entry
// and timer.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/element.h"

namespace forms {

// A text on the window. A click on it takes no focus.
class Label : public Element {
public:
  Label(Window& window, std::string_view name) : Element(Kind::Label, window, name) {}
  void click() override { raise(Click); }
  Property<std::string> Caption{*this, {}};
  Property<bool> Framed{*this, false}; // stands out from the labels beside it
  bool Announced = false; // a screen reader says each new AccessibleName, wherever the focus is
  std::function<void()> Click;
};

// One line of text, or more. Assigning another text raises Change, as a person's typing does.
class TextBox : public Element {
public:
  TextBox(Window& window, std::string_view name) : Element(Kind::TextBox, window, name) {}
  bool takesFocus() const override { return true; }
  // Each button does something here: the right one opens its menu, the middle one pastes.
  bool press(MouseButton /*button*/) override { return Element::press(MouseButton::Left); }
  // As much of the text as the box holds: of several lines the first, unless it is MultiLine.
  std::string fitting(const std::string& text) const;
  void changed(const PropertyBase& property) override;
  Property<std::string> Text{*this, {}};
  int MaxLength = 0;      // characters, of an assigned text too; 0: no bound
  bool MultiLine = false; // several lines, to be read only
  std::function<void()> Change;
};

// A box without a caption. Assigning another value raises Click, as a person's click does.
class CheckBox : public Element {
public:
  CheckBox(Window& window, std::string_view name) : Element(Kind::CheckBox, window, name) {}
  bool takesFocus() const override { return true; }
  void click() override { Value = Value == 0 ? 1 : 0; }
  void changed(const PropertyBase& property) override;
  Property<int> Value{*this, 0}; // 0 or 1
  std::function<void()> Click;
};

// A drop-down list without typing. Selecting an item raises Click, also the item that is selected
// already: for a person's choice always, for an assignment by the program likewise.
class DropList : public Element {
public:
  DropList(Window& window, std::string_view name) : Element(Kind::DropList, window, name) {}
  bool takesFocus() const override { return true; }

  void AddItem(std::string item);
  const std::vector<std::string>& items() const { return items_; }
  // Index of the selected item from 0; -1: none.
  int ListIndex() const { return listIndex_; }
  // False, and nothing happens, when there is no such item.
  [[nodiscard]] bool select(int index);
  std::string Text() const;
  // Selects the item with this text; false, and nothing happens, when there is none.
  [[nodiscard]] bool setText(const std::string& text);

  void startAnew(bool firstTime) override;
  std::function<void()> Click;

private:
  std::vector<std::string> items_;
  int listIndex_ = -1;
};

class Button : public Element {
public:
  Button(Window& window, std::string_view name) : Element(Kind::Button, window, name) {}
  bool takesFocus() const override { return true; }
  void click() override { raise(Click); }
  Property<std::string> Caption{*this, {}};
  // A key such as "Ctrl+Shift+D" that runs Click even while the button is hidden; for developers.
  std::string Shortcut;
  std::function<void()> Click;
};

// "&" in the caption marks the accelerator. An entry without a parent stands in the menu bar.
class MenuEntry : public Element {
public:
  MenuEntry(Window& window, std::string_view name, MenuEntry* above = nullptr)
      : Element(Kind::MenuEntry, window, name), parent(above) {}
  void click() override { raise(Click); }
  Property<std::string> Caption{*this, {}};
  MenuEntry* const parent;
  bool WindowList = false; // shows the captions of the open child windows at its foot
  std::function<void()> Click;
};

// Raises Tick once in each interval while it is enabled; made stopped.
class Timer : public Element {
public:
  Timer(Window& window, std::string_view name) : Element(Kind::Timer, window, name) {
    Enabled = false;
  }
  Property<int> Interval{*this, 1000}; // milliseconds
  std::function<void()> Tick;
};

} // namespace forms
