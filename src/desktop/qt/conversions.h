// Texts and measures on their way between the forms layer and Qt.
#pragma once

#include <QColor>
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

} // namespace forms::qt
