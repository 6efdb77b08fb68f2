// How large a form is shown.
#pragma once

#include <cmath>

#include <QRect>

#include "forms/element.h"

namespace forms::qt {

// The program measures in twips and knows of one size alone; the screen may show a form larger or
// smaller. Edges are scaled, not sizes: what touches in twips touches on the screen, without a gap
// and without an overlap.
class Scale {
public:
  explicit Scale(int percent = 100) : percent_(percent) {}

  int percent() const { return percent_; }
  bool operator==(const Scale&) const = default;

  // The nearest whole pixel.
  int pixels(int twips) const {
    return static_cast<int>(std::lround(static_cast<double>(twips) * percent_ / TwipsOfWhole));
  }
  // Pixels between the scaled edges of a rectangle in twips.
  QRect pixels(const QRect& twips) const {
    const QPoint corner(pixels(twips.x()), pixels(twips.y()));
    const QPoint end(pixels(twips.x() + twips.width()), pixels(twips.y() + twips.height()));
    return {corner, end - QPoint(1, 1)};
  }
  QRect pixels(const Element& element) const {
    return pixels(QRect(element.Left, element.Top, element.Width, element.Height));
  }
  // A length in pixels at 96 dpi, as lines and margins have it.
  int length(int pixelsOfWhole) const { return pixels(pixelsOfWhole * TwipsPerPixel); }
  QSize length(QSize size) const { return {length(size.width()), length(size.height())}; }

private:
  static constexpr double TwipsOfWhole = 100.0 * TwipsPerPixel;

  int percent_; // 100: one pixel of the screen for one at 96 dpi
};

} // namespace forms::qt
