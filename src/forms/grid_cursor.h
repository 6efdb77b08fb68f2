// The keyboard's cursor over a picture that shows a grid of squares: a pointer without a mouse.
#pragma once

#include <functional>
#include <string>

namespace forms {

class Element;
class Forms;
class Picture;
class Window;

enum class Key { Left, Right, Up, Down, Enter, Space, Delete, Escape, Digit };

// Stands on a square of the grid, numbered from 1 row by row, and makes the events that a pointer
// in the middle of that square would make. It belongs to the screen: no rule knows of it. It keeps
// its square while the window is closed, as long as the grid stays the same.
class GridCursor {
public:
  explicit GridCursor(Picture& board) : board_(board) {}

  // A grid of columns x columns squares with this side in twips, from the picture's inner corner.
  void setGrid(int columns, int side);
  int columns() const { return columns_; }
  int side() const { return side_; }
  // 0 until the keyboard has first been used on this grid.
  int square() const { return square_; }

  // True for a key that means something here: it has been handled.
  bool keyPressed(Forms& forms, Key key);
  // What stands on the cursor's square, frontmost first; the picture itself where nothing does.
  Element& target() const;
  // Brings the picture's accessible name into line with the square; without a square it keeps its
  // own.
  void describe();

  // What the picture is called while the cursor stands on an empty square.
  std::function<std::string(int square)> nameOfEmptySquare;

private:
  void move(Forms& forms, int columns, int rows);
  void point(Forms& forms, Element& element) const;
  // Middle of the cursor's square, twips from the picture's inner corner.
  int middleX() const;
  int middleY() const;

  Picture& board_;
  int columns_ = 0;
  int side_ = 0;
  int square_ = 0;
};

} // namespace forms
