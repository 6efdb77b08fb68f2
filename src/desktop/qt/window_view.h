// What stands on the screen for one window.
#pragma once

class QWidget;

namespace forms::qt {

class Form;

class WindowView {
public:
  virtual ~WindowView() = default;

  // The window's own widget.
  virtual QWidget* widget() = 0;
  // The area that holds the elements; nullptr for the frame, whose elements are menu and timer.
  virtual Form* form() = 0;
  // Shows what the window's properties say now. Reports nothing.
  virtual void sync() = 0;
  // Shows the window once all its elements are there.
  virtual void appear() = 0;
  // The window goes: takes it off the screen and never looks at it again.
  virtual void leave() = 0;
};

} // namespace forms::qt
