// Texts and measures on their way between the forms layer and Qt.
#pragma once

#include <QColor>
#include <QPoint>
#include <QRect>
#include <QString>

#include "forms/element.h"

namespace forms::qt {

QString toQt(const std::string& text);
std::string fromQt(const QString& text);
QColor toQt(Color color);

// The nearest whole logical pixel, 96 to the inch.
int pixels(int twips);
int twips(int pixels);
// The whole pixel that a position lies in.
QPoint wholePixel(QPointF position);
// Place and size of an element in pixels of its parent.
QRect pixelRect(const Element& element);

} // namespace forms::qt
