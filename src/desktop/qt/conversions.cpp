#include "desktop/qt/conversions.h"

#include <cmath>

namespace forms::qt {

namespace {

constexpr int TwipsPerPixel = 15;

} // namespace

QString toQt(const std::string& text) {
  return QString::fromStdString(text);
}

std::string fromQt(const QString& text) {
  return text.toStdString();
}

QColor toQt(Color color) {
  return {color.red, color.green, color.blue};
}

int pixels(int twips) {
  return static_cast<int>(std::lround(static_cast<double>(twips) / TwipsPerPixel));
}

int twips(int pixels) {
  return pixels * TwipsPerPixel;
}

QPoint wholePixel(QPointF position) {
  return {static_cast<int>(std::floor(position.x())), static_cast<int>(std::floor(position.y()))};
}

QRect pixelRect(const Element& element) {
  return {pixels(element.Left), pixels(element.Top), pixels(element.Width), pixels(element.Height)};
}

} // namespace forms::qt
