#include "forms/grid_picture.h"

#include <algorithm>

#include "forms/forms.h"

namespace forms {

GridPicture::GridPicture(Window& window, std::string_view name) : Picture(window, name) {
  window.enter(*this);
}

void GridPicture::setGrid(int columns, int side) {
  columns_ = columns;
  side_ = side;
  cursor_ = Cursor{};
  pointed_ = 0;
}

void GridPicture::pointerAt(const Picture& picture, float X, float Y) {
  if (const int square = squareAt(picture, static_cast<int>(X), static_cast<int>(Y)))
    pointed_ = square;
}

GridPicture::Point GridPicture::cornerOf(const Picture& picture) const {
  return {picture.Left + picture.frameWidth() - Left - frameWidth(),
          picture.Top + picture.frameWidth() - Top - frameWidth()};
}

int GridPicture::squareAt(const Picture& picture, int x, int y) const {
  const auto [left, top] = cornerOf(picture);
  x += left;
  y += top;
  const int width = columns_ * side_;
  const bool inside = x >= 0 && y >= 0 && x < width && y < width;
  return inside ? y / side_ * columns_ + x / side_ + 1 : 0;
}

// What stands in front on the cursor's square, or else this picture. It need not reach the square's
// middle: its own lies on the square.
Picture& GridPicture::target() const {
  Picture* front = window().grid();
  for (Element* element : window().elements()) {
    auto* const picture = dynamic_cast<Picture*>(element);
    if (picture && picture != this && picture->Visible &&
        squareAt(*picture, picture->Width / 2, picture->Height / 2) == cursor().square &&
        picture->zOrderRank >= front->zOrderRank)
      front = picture;
  }
  return *front;
}

void GridPicture::tellCursor() {
  if (cursorSquare() != 0)
    tellDesktop();
}

std::string GridPicture::spokenName() const {
  if (cursorSquare() == 0)
    return AccessibleName;
  if (const Picture& picture = target(); &picture != this)
    return picture.AccessibleName;
  return nameOfEmptySquare ? nameOfEmptySquare(cursorSquare()) : AccessibleName.get();
}

std::string GridPicture::spokenHint() const {
  return cursorSquare() == 0 ? ToolTipText.get() : std::string();
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
  if (cursorSquare() == 0)
    return true; // nothing that could be seen is pointed at
  Picture& picture = target();
  point(picture);
  const bool remove = key == Key::Delete;
  if (picture.press(remove ? MouseButton::Right : MouseButton::Left) && !remove)
    window().forms().clicked(picture);
  return true;
}

// The first key puts the cursor on the lower left square, next to player 1's army; the first after
// the mouse puts it where that pointed.
void GridPicture::move(int columns, int rows) {
  auto [square, hidden] = cursor();
  if (hidden && pointed_ != 0) {
    square = pointed_;
  } else if (square == 0) {
    square = columns_ * (columns_ - 1) + 1;
  } else if (!hidden) {
    const int column = std::clamp((square - 1) % columns_ + columns, 0, columns_ - 1);
    const int row = std::clamp((square - 1) / columns_ + rows, 0, columns_ - 1);
    square = row * columns_ + column + 1;
  }
  putCursor({square, false});
  // A click may have left the focus on a unit; the picture that carries the cursor's name takes it
  // back.
  passOver(SetFocus());
  point(target());
}

// The grid's own tip stays: it is shown at the mouse, and tells of what that points at.
void GridPicture::point(Picture& picture) {
  const auto [left, top] = cornerOf(picture);
  const int x = (cursor().square - 1) % columns_ * side_ + side_ / 2 - left;
  const int y = (cursor().square - 1) / columns_ * side_ + side_ / 2 - top;
  const std::string tip = ToolTipText;
  raise(picture.MouseMove, static_cast<float>(x), static_cast<float>(y));
  ToolTipText = tip;
}

} // namespace forms
