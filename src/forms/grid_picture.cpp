#include "forms/grid_picture.h"

#include <algorithm>

#include "forms/forms.h"

namespace forms {

GridPicture::GridPicture(Window& window, std::string_view name) : Picture(window, name) {
  window.grid_ = this;
}

void GridPicture::setGrid(int columns, int side) {
  if (columns != columns_)
    square_ = 0;
  columns_ = columns;
  side_ = side;
  cursorSquare = square_;
}

// Of the cursor's square.
GridPicture::Point GridPicture::corner() const {
  return {(square_ - 1) % columns_ * side_, (square_ - 1) / columns_ * side_};
}

// What stands on the cursor's square, frontmost first; the picture itself where nothing does. It
// need not reach the square's middle: its own lies on the square.
Picture& GridPicture::target() {
  if (square_ == 0)
    return *this;
  const auto [left, top] = corner();
  const auto standsHere = [&](const Element& element) {
    const int x = element.Left + element.Width / 2 - (Left + frameWidth() + left);
    const int y = element.Top + element.Height / 2 - (Top + frameWidth() + top);
    return x >= 0 && x < side_ && y >= 0 && y < side_;
  };
  Picture* front = this;
  for (Element* element : window().elements()) {
    if (element->kind() != Kind::Picture || !element->Visible || !standsHere(*element))
      continue;
    auto* picture = static_cast<Picture*>(element);
    if (picture->zOrderRank.get() >= front->zOrderRank.get())
      front = picture;
  }
  return *front;
}

void GridPicture::describeCursor() {
  if (square_ == 0)
    return;
  const Picture& standing = target();
  if (&standing != this)
    AccessibleName = standing.AccessibleName.get();
  else if (nameOfEmptySquare)
    AccessibleName = nameOfEmptySquare(square_);
}

bool GridPicture::keyPressed(Key key) {
  if (columns_ == 0)
    return false;
  switch (key) {
  case Key::Left:
    move(-1, 0);
    return true;
  case Key::Right:
    move(1, 0);
    return true;
  case Key::Up:
    move(0, -1);
    return true;
  case Key::Down:
    move(0, 1);
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
  Picture& picture = target();
  point(picture);
  const bool remove = key == Key::Delete;
  Forms& forms = window().forms();
  if (forms.pressed(picture, remove ? MouseButton::Right : MouseButton::Left) && !remove)
    forms.clicked(picture);
  return true;
}

// The first key puts the cursor on the lower left square, next to player 1's army.
void GridPicture::move(int columns, int rows) {
  if (square_ == 0) {
    square_ = columns_ * (columns_ - 1) + 1;
  } else {
    const int column = std::clamp((square_ - 1) % columns_ + columns, 0, columns_ - 1);
    const int row = std::clamp((square_ - 1) / columns_ + rows, 0, columns_ - 1);
    square_ = row * columns_ + column + 1;
  }
  cursorSquare = square_;
  // A click may have left the focus on a unit; the picture that carries the cursor's name takes it
  // back.
  passOver(SetFocus());
  point(target());
}

// The hint of what stands there follows the cursor as it follows the pointer.
void GridPicture::point(Picture& picture) {
  auto [x, y] = corner();
  if (&picture != this) {
    x -= picture.Left - Left - frameWidth();
    y -= picture.Top - Top - frameWidth();
  }
  window().forms().moved(picture, static_cast<float>(x + side_ / 2),
                         static_cast<float>(y + side_ / 2));
}

} // namespace forms
