// A picture that shows a grid of squares, and the keyboard's cursor on it: a pointer without a
// mouse.
#pragma once

#include <functional>
#include <string>

#include "forms/input.h"
#include "forms/picture.h"

namespace forms {

// The cursor stands on a square of the grid, numbered from 1 row by row, and makes the events that
// a pointer in the middle of that square would make. It belongs to the screen: no rule knows of it.
// It keeps its square while the window is closed, as long as the grid stays the same. A window has
// one such picture at most.
class GridPicture final : public Picture {
public:
  GridPicture(Window& window, std::string_view name);

  // A grid of columns x columns squares with this side in twips, from the picture's inner corner.
  void setGrid(int columns, int side);
  // 0: the picture shows no grid.
  int columns() const { return columns_; }
  int side() const { return side_; }

  // True for a key that means something here: it has been handled.
  bool keyPressed(Key key);
  // Brings the picture's accessible name into line with the square; without a square it keeps its
  // own.
  void describeCursor();

  // The square that the cursor marks, drawn in front of everything; 0 until the keyboard has first
  // been used on this grid.
  Property<int> cursorSquare{*this, 0};
  // What the picture is called while the cursor stands on an empty square.
  std::function<std::string(int square)> nameOfEmptySquare;

private:
  // Twips from the grid's corner.
  struct Point {
    int x;
    int y;
  };
  Point corner() const;
  Picture& target();
  void move(int columns, int rows);
  void point(Picture& picture);

  int columns_ = 0;
  int side_ = 0;
  int square_ = 0;
};

} // namespace forms
