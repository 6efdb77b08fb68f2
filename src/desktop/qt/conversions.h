// Texts and measures on their way between the forms layer and Qt.
#pragma once

#include <cmath>

#include <QColor>
#include <QPoint>
#include <QString>

#include "forms/element.h"

namespace forms::qt {

inline QString toQt(const std::string& text) {
  return QString::fromStdString(text);
}
inline std::string fromQt(const QString& text) {
  return text.toStdString();
}
inline QColor toQt(Color color) {
  return {color.red, color.green, color.blue};
}

inline int twips(int pixels) {
  return pixels * TwipsPerPixel;
}
// The whole pixel that a position lies in.
inline QPoint wholePixel(QPointF position) {
  return {static_cast<int>(std::floor(position.x())), static_cast<int>(std::floor(position.y()))};
}

} // namespace forms::qt
