// A picture that shows a grid of squares, and the keyboard's cursor on it: a pointer without a
// mouse.
#pragma once

#include <functional>
#include <string>

#include "forms/picture.h"

namespace forms {

// The cursor stands on a square of the grid, numbered from 1 row by row, and makes the events that
// a pointer in the middle of that square would make. It belongs to the screen: no rule knows of it.
// It goes when the window opens anew or another grid is set. A press of a mouse button hides it;
// the next arrow key brings it back on the square that the mouse last pointed at. A window has one
// such picture at most.
class GridPicture final : public Picture {
public:
  GridPicture(Window& window, std::string_view name);

  // A grid of columns x columns squares with this side in twips, from the picture's inner corner,
  // without a cursor.
  void setGrid(int columns, int side);
  // 0: the picture shows no grid.
  int columns() const { return columns_; }
  int side() const { return side_; }

  // Where the cursor stands and whether it shows, for a window that opens anew with the same board.
  struct Cursor {
    int square = 0;
    bool hidden = false;
    bool operator==(const Cursor&) const = default;
  };
  Cursor cursor() const { return cursor_; }
  // A square that the grid does not have gives none.
  void putCursor(Cursor cursor) {
    cursor_ = cursor.square <= columns_ * columns_ ? cursor : Cursor{};
  }
  // The square that the cursor marks, drawn in front of everything; 0 while none shows.
  int cursorSquare() const { return cursor().hidden ? 0 : cursor().square; }

  // True for a key that means something here: it has been handled.
  bool keyPressed(Key key);
  // Tells the desktop what stands on the cursor's square now.
  void tellCursor();
  // A mouse button was pressed in the window.
  void hideCursor() { cursor_ = Cursor{cursor().square, true}; }
  // The mouse points at X, Y (twips) of a picture of the window.
  void pointerAt(const Picture& picture, float X, float Y);

  // While the cursor shows: what stands on its square. The tip belongs to the mouse.
  std::string spokenName() const override;
  std::string spokenHint() const override;

  // What the picture is called while the cursor stands on an empty square.
  std::function<std::string(int square)> nameOfEmptySquare;

private:
  // Twips from the grid's corner.
  struct Point {
    int x;
    int y;
  };
  // The inner corner of a picture of the window.
  Point cornerOf(const Picture& picture) const;
  // The square at x, y twips of the picture; 0: beside the grid.
  int squareAt(const Picture& picture, int x, int y) const;
  Picture& target() const;
  void move(int columns, int rows);
  void point(Picture& picture);

  int columns_ = 0;
  int side_ = 0;
  Property<Cursor> cursor_{*this, {}};
  int pointed_ = 0; // square that the mouse last pointed at
};

} // namespace forms
