#include "forms/grid_picture.h"

#include <algorithm>

#include "forms/forms.h"

namespace forms {

GridPicture::GridPicture(Window& window, std::string_view name) : Picture(window, name) {
  window.grid_ = this;
}

void GridPicture::setGrid(int columns, int side) {
  columns_ = columns;
  side_ = side;
  cursor_ = {};
  cursorSquare = 0;
  pointed_ = 0;
}

void GridPicture::putCursor(Cursor cursor) {
  if (cursorSquare == 0)
    ownName_ = AccessibleName;
  cursor_ = cursor.square <= columns_ * columns_ ? cursor : Cursor{};
  cursorSquare = cursor_.hidden ? 0 : cursor_.square;
  describeCursor();
}

void GridPicture::restoreAsMade() {
  Picture::restoreAsMade();
  setGrid(0, 0);
}

void GridPicture::hideCursor() {
  cursor_.hidden = true;
  if (cursorSquare == 0)
    return;
  cursorSquare = 0;
  AccessibleName = ownName_;
}

void GridPicture::pointerAt(const Picture& picture, float X, float Y) {
  const auto [left, top] = cornerOf(picture);
  const int x = left + static_cast<int>(X);
  const int y = top + static_cast<int>(Y);
  const int width = columns_ * side_;
  if (x >= 0 && y >= 0 && x < width && y < width)
    pointed_ = y / side_ * columns_ + x / side_ + 1;
}

// Of the cursor's square.
GridPicture::Point GridPicture::corner() const {
  return {(cursor_.square - 1) % columns_ * side_, (cursor_.square - 1) / columns_ * side_};
}

GridPicture::Point GridPicture::cornerOf(const Picture& picture) const {
  if (&picture == this)
    return {0, 0};
  return {picture.Left - Left - frameWidth(), picture.Top - Top - frameWidth()};
}

// What stands on the cursor's square, frontmost first; the picture itself where nothing does. It
// need not reach the square's middle: its own lies on the square.
Picture& GridPicture::target() {
  const Point square = corner();
  const auto standsHere = [&](const Picture& picture) {
    const auto [x, y] = cornerOf(picture);
    const int middleX = x + picture.Width / 2 - square.x;
    const int middleY = y + picture.Height / 2 - square.y;
    return middleX >= 0 && middleX < side_ && middleY >= 0 && middleY < side_;
  };
  Picture* front = this;
  for (Element* element : window().elements()) {
    if (element == this || element->kind() != Kind::Picture || !element->Visible)
      continue;
    auto* const picture = static_cast<Picture*>(element);
    if (standsHere(*picture) && picture->zOrderRank.get() >= front->zOrderRank.get())
      front = picture;
  }
  return *front;
}

void GridPicture::describeCursor() {
  if (cursorSquare == 0)
    return;
  const Picture& standing = target();
  if (&standing != this)
    AccessibleName = standing.AccessibleName.get();
  else if (nameOfEmptySquare)
    AccessibleName = nameOfEmptySquare(cursorSquare);
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
  if (cursorSquare == 0)
    return true; // nothing that could be seen is pointed at
  Picture& picture = target();
  point(picture);
  const bool remove = key == Key::Delete;
  Forms& forms = window().forms();
  if (forms.press(picture, remove ? MouseButton::Right : MouseButton::Left) && !remove)
    forms.clicked(picture);
  return true;
}

// The first key puts the cursor on the lower left square, next to player 1's army; the first after
// the mouse puts it where that pointed.
void GridPicture::move(int columns, int rows) {
  Cursor to;
  if (cursor_.hidden && pointed_ != 0) {
    to.square = pointed_;
  } else if (cursor_.square == 0) {
    to.square = columns_ * (columns_ - 1) + 1;
  } else if (cursor_.hidden) {
    to.square = cursor_.square;
  } else {
    const int column = std::clamp((cursor_.square - 1) % columns_ + columns, 0, columns_ - 1);
    const int row = std::clamp((cursor_.square - 1) / columns_ + rows, 0, columns_ - 1);
    to.square = row * columns_ + column + 1;
  }
  putCursor(to);
  // A click may have left the focus on a unit; the picture that carries the cursor's name takes it
  // back.
  passOver(SetFocus());
  point(target());
}

// The hint of what stands there follows the cursor as it follows the pointer.
void GridPicture::point(Picture& picture) {
  const auto [left, top] = cornerOf(picture);
  const int x = corner().x + side_ / 2 - left;
  const int y = corner().y + side_ / 2 - top;
  window().forms().point(picture, static_cast<float>(x), static_cast<float>(y));
}

} // namespace forms
