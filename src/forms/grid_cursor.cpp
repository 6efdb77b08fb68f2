#include "forms/grid_cursor.h"

#include <algorithm>

#include "forms/forms.h"

namespace forms {

namespace {

constexpr int FrameWidth = 15; // twips of the picture's frame

// What stands on a square need not reach the square's middle: its own lies on the square.
bool standsOn(const Element& element, int left, int top, int side) {
  const int x = element.Left + element.Width / 2 - left;
  const int y = element.Top + element.Height / 2 - top;
  return x >= 0 && x < side && y >= 0 && y < side;
}

} // namespace

void GridCursor::setGrid(int columns, int side) {
  if (columns != columns_)
    square_ = 0;
  columns_ = columns;
  side_ = side;
  board_.cursorSquare = square_;
}

int GridCursor::middleX() const {
  return (square_ - 1) % columns_ * side_ + side_ / 2;
}

int GridCursor::middleY() const {
  return (square_ - 1) / columns_ * side_ + side_ / 2;
}

Element& GridCursor::target() const {
  if (square_ == 0)
    return board_;
  const int frame = board_.Border ? FrameWidth : 0;
  const int left = board_.Left + frame + (square_ - 1) % columns_ * side_;
  const int top = board_.Top + frame + (square_ - 1) / columns_ * side_;
  Picture* front = &board_;
  for (Element* element : board_.window().elements()) {
    if (element->kind() != Kind::Picture || !element->Visible ||
        !standsOn(*element, left, top, side_))
      continue;
    auto* picture = static_cast<Picture*>(element);
    if (picture->zOrderRank.get() >= front->zOrderRank.get())
      front = picture;
  }
  return *front;
}

void GridCursor::describe() {
  if (square_ == 0)
    return;
  const Element& standing = target();
  if (&standing != &board_)
    board_.AccessibleName = standing.AccessibleName.get();
  else if (nameOfEmptySquare)
    board_.AccessibleName = nameOfEmptySquare(square_);
}

bool GridCursor::keyPressed(Forms& forms, Key key) {
  if (columns_ == 0)
    return false;
  switch (key) {
  case Key::Left:
    move(forms, -1, 0);
    return true;
  case Key::Right:
    move(forms, 1, 0);
    return true;
  case Key::Up:
    move(forms, 0, -1);
    return true;
  case Key::Down:
    move(forms, 0, 1);
    return true;
  case Key::Enter:
  case Key::Space:
  case Key::Delete:
    break;
  default:
    return false;
  }
  if (square_ == 0)
    return true; // nothing is pointed at yet
  Element& element = target();
  point(forms, element);
  const bool remove = key == Key::Delete;
  if (forms.pressed(element, remove ? MouseButton::Right : MouseButton::Left) && !remove)
    forms.clicked(element);
  return true;
}

// The first key puts the cursor on the lower left square, next to player 1's army.
void GridCursor::move(Forms& forms, int columns, int rows) {
  if (square_ == 0) {
    square_ = columns_ * (columns_ - 1) + 1;
  } else {
    const int column = std::clamp((square_ - 1) % columns_ + columns, 0, columns_ - 1);
    const int row = std::clamp((square_ - 1) / columns_ + rows, 0, columns_ - 1);
    square_ = row * columns_ + column + 1;
  }
  board_.cursorSquare = square_;
  // A click may have left the focus on a unit; the picture that carries the cursor's name takes it
  // back.
  passOver(board_.SetFocus());
  point(forms, target());
}

// The hint of what stands there follows the cursor as it follows the pointer.
void GridCursor::point(Forms& forms, Element& element) const {
  auto& picture = static_cast<Picture&>(element);
  const bool board = &picture == &board_;
  const int frame = board_.Border ? FrameWidth : 0;
  const int left = board ? 0 : picture.Left - board_.Left - frame;
  const int top = board ? 0 : picture.Top - board_.Top - frame;
  forms.moved(picture, static_cast<float>(middleX() - left), static_cast<float>(middleY() - top));
}

} // namespace forms
