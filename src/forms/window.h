// A window: the frame, a child window inside it, or one of its own.
#pragma once

#include <string>
#include <vector>

#include "forms/element.h"
#include "forms/input.h"

namespace forms {

class Forms;
class GridPicture;
class PictureArray;

enum class WindowKind { Frame, Child, Own };

// A window object outlives the open window: its public variables keep their values. Its elements
// go back to what they are made with at each opening; its array elements go at the closing.
class Window : public Element {
public:
  Window(Forms& forms, WindowKind windowKind, std::string_view name);
  ~Window() override;

  Forms& forms() const { return forms_; }
  WindowKind windowKind() const { return windowKind_; }
  bool isOpen() const { return open_; }
  // True while somebody waits for the window to close; no other window can be used then.
  bool isModal() const { return modal_; }

  // Runs the opening steps, then shows the window; a child becomes the active one. Opening a
  // window that is open does nothing.
  void open();
  // Opens the window and waits until it has closed.
  void showModal();
  // Asks the closing check, runs the closing steps and takes the window off the screen. False when
  // a check refused; then nothing has changed. The frame asks its children too before anything
  // closes, and closes them before itself. No LostFocus is raised.
  bool close();

  // All elements there are now, in the order of their making.
  const std::vector<Element*>& elements() const { return elements_; }
  // The element with the keyboard focus, or nullptr.
  Element* focused() const { return focused_; }
  // The picture that shows a grid of squares, or nullptr.
  GridPicture* grid() const { return grid_; }

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

protected:
  // Makes the present values of all elements those that each opening starts from. The constructor
  // of a window calls it last.
  void made();

  virtual void Form_Load() {}
  // The closing check: false refuses. It tells the person why.
  virtual bool Form_QueryUnload() { return true; }
  virtual void Form_Unload() {}
  // A key that the focused element had no use for; `digit` with Key::Digit. True: handled.
  virtual bool Form_KeyDown(Key /*key*/, int /*digit*/) { return false; }
  // Another child window has become the active one.
  virtual void Form_Deactivate() {}

private:
  friend class Element;
  friend class Forms;
  friend class GridPicture;
  friend class Picture;
  friend class PictureArray;

  bool mayClose();
  void finishClosing();

  Forms& forms_;
  WindowKind windowKind_;
  bool open_ = false;    // on the screen
  bool opening_ = false; // inside its opening steps
  bool closing_ = false; // inside its closing check or steps
  bool modal_ = false;
  std::vector<Element*> elements_;
  std::vector<PictureArray*> arrays_;
  GridPicture* grid_ = nullptr;
  Element* focused_ = nullptr;
  int topmost_ = 0; // highest zOrderRank given so far
};

} // namespace forms
