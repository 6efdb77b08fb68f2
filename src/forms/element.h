// What all elements of a window have in common: place, size, visibility, names, focus.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "forms/property.h"

namespace forms {

class Window;

constexpr int TwipsPerPixel = 15; // at 96 dpi

// A failure that the caller knows of and passes over, said by name.
inline void passOver(bool /*worked*/) {}

// Runs an event's handler. It may destroy the element that holds it: what runs is a copy.
template <class Handler, class... Arguments>
void raise(const Handler& handler, Arguments... arguments) {
  const Handler running = handler;
  if (running)
    running(arguments...);
}

// What a person presses, as far as it means something to the program.
enum class Key { Left, Right, Up, Down, Enter, Space, Delete, Escape, Digit };
enum class MouseButton { Left, Right, Other };

enum class Kind { Window, Picture, Label, TextBox, CheckBox, DropList, Button, MenuEntry, Timer };

struct Color {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
  bool operator==(const Color&) const = default;
};

// `family` is what the element asks for; a desktop without it takes one of the same measures.
struct Font {
  std::string family = "MS Sans Serif";
  double points = 9.75;
  bool bold = false;
};

// An element is a plain object with properties. It lives as long as its Window object (elements of
// a PictureArray: from Load to Unload), whether the window is on the screen or not, so that a
// handler may close its own window and go on.
class Element {
public:
  // `index` is 0 or above for the elements of an array. A Window is its own window. The name must
  // outlive the element: a literal.
  Element(Kind kind, Window& window, std::string_view name, int index = -1);
  virtual ~Element();
  Element(const Element&) = delete;
  Element& operator=(const Element&) = delete;

  Kind kind() const { return kind_; }
  // As the program's developers call it: "picTablero", "picUnidad(17)".
  std::string name() const;
  std::string_view arrayName() const { return name_; }
  int index() const { return index_; }
  Window& window() const { return window_; }

  // Place and size, twips.
  void place(int left, int top, int width, int height);
  void moveTo(int left, int top);

  // Moves the keyboard focus here, as far as the rules of focus allow it. False while the window
  // is not on the screen yet, for an element that is hidden or disabled, and when the element
  // that had the focus took it back.
  bool SetFocus();

  // True for the kinds that a click or the Tab key gives the focus to.
  virtual bool takesFocus() const { return false; }
  // True when a person can see and use the element now.
  bool isReachable() const;

  // What a press of a mouse button does, by whatever means. False: the action ends here, as the
  // focus was not let go.
  virtual bool press(MouseButton button);
  // What a click does beyond the focus.
  virtual void click() {}
  // What assistive technology says, and what it adds; an empty name: the caption.
  virtual std::string spokenName() const { return AccessibleName; }
  virtual std::string spokenHint() const { return ToolTipText; }

  // The window opens. At its first time the properties say how the element is made; later they go
  // back to that, and no event is raised.
  virtual void startAnew(bool firstTime);

  // A new property enters itself; back comes the one before it in the chain.
  PropertyBase* enter(PropertyBase& property) { return std::exchange(properties_, &property); }
  // The property has another value. Tells the desktop, while the window is on the screen.
  virtual void changed(const PropertyBase& property);

private:
  PropertyBase* properties_ = nullptr; // before the properties

public:
  // Twips inside the parent; of a window: its outer frame.
  Property<int> Top{*this, 0};
  Property<int> Left{*this, 0};
  Property<int> Width{*this, 0};
  Property<int> Height{*this, 0};
  Property<bool> Visible{*this, true};
  Property<bool> Enabled{*this, true};
  Property<std::string> ToolTipText{*this, {}};
  Property<std::string> AccessibleName{*this, {}};

  // Looks and order that never change once the window is made.
  std::optional<Color> BackColor;
  std::optional<Color> ForeColor;
  Font TextFont;
  int TabIndex = -1; // -1: the Tab key passes the element over
  // Raised by the forms layer alone, when the focus goes to another element or another child
  // window.
  std::function<void()> LostFocus;

protected:
  void tellDesktop();

private:
  Kind kind_;
  Window& window_;
  std::string_view name_;
  int index_;
};

} // namespace forms
