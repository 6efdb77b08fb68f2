// A window: the frame, a child window inside it, or one of its own.
#pragma once

#include <string>
#include <vector>

#include "forms/element.h"

namespace forms {

class Forms;
class GridPicture;
class PictureArray;

enum class WindowKind { Frame, Child, Own };

// A window object outlives the open window: its public variables keep their values. Its elements
// go back at each opening to what they were at the first; its array elements go at the closing.
class Window : public Element {
public:
  Window(Forms& forms, WindowKind windowKind, std::string_view name)
      : Element(Kind::Window, *this, name), forms_(forms), windowKind_(windowKind) {}

  Forms& forms() const { return forms_; }
  WindowKind windowKind() const { return windowKind_; }
  bool isOpen() const { return open_; }
  // True while somebody waits for the window to close; no other window can be used then.
  bool isModal() const { return modal_; }
  // True inside the closing check or steps.
  bool isClosing() const { return closing_; }

  // Runs the opening steps, then shows the window; a child becomes the active one. Opening a
  // window that is open does nothing.
  void open();
  // Opens the window and waits until it has closed.
  void showModal();
  // Asks the closing check, runs the closing steps and takes the window off the screen. False when
  // a check refused; then nothing has changed. The frame asks its children too before anything
  // closes, and closes them before itself. No LostFocus is raised.
  bool close();
  // Asks what closing asks, and closes nothing.
  bool mayClose();

  // All elements there are now, in the order of their making.
  const std::vector<Element*>& elements() const { return elements_; }
  // The element with the keyboard focus, or nullptr.
  Element* focused() const;
  // The picture that shows a grid of squares, or nullptr.
  GridPicture* grid() const { return grid_; }

  // A new element enters itself, and again as what it is besides; it leaves at its end.
  void enter(Element& element) { elements_.push_back(&element); }
  void enter(PictureArray& array) { arrays_.push_back(&array); }
  void enter(GridPicture& grid) { grid_ = &grid; }
  void leave(Element& element) { std::erase(elements_, &element); }
  // The zOrderRank in front of all that were given since the window opened.
  int nextRank() { return ++topmost_; }

  Property<std::string> Caption{*this, {}};
  Property<std::string> Icon{*this, {}}; // path of the file shown; empty: none
  bool Maximized = false;                // opens maximised
  bool PlacedByDesktop = false;          // Top and Left of a new window are the desktop's choice
  // Twips of the area inside the frame; 0: Width and Height of the frame count.
  int ClientWidth = 0;
  int ClientHeight = 0;

  // Shows the icon file, given as a picture's is. On failure the icon stays and the failure is
  // noted.
  [[nodiscard]] bool LoadIcon(std::string_view literal);

  // A key that the focused element had no use for; `digit` with Key::Digit. True: handled.
  virtual bool Form_KeyDown(Key /*key*/, int /*digit*/) { return false; }
  // Another child window has become the active one.
  virtual void Form_Deactivate() {}

protected:
  virtual void Form_Load() {}
  // The closing check: false refuses. It tells the person why.
  virtual bool Form_QueryUnload() { return true; }
  virtual void Form_Unload() {}

private:
  void finishClosing();

  Forms& forms_;
  WindowKind windowKind_;
  bool open_ = false;    // on the screen
  bool opening_ = false; // inside its opening steps
  bool closing_ = false;
  bool modal_ = false;
  bool made_ = false; // its first opening has begun
  std::vector<Element*> elements_;
  std::vector<PictureArray*> arrays_;
  GridPicture* grid_ = nullptr;
  int topmost_ = 0; // highest zOrderRank given so far
};

} // namespace forms
