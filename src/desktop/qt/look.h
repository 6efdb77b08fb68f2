// The program's own look and language, the same on every system: style, light colours, fonts of the
// elements, Spanish.
#pragma once

#include <QFont>
#include <QPalette>

#include "desktop/qt/scale.h"
#include "forms/element.h"

class QWidget;

namespace forms::qt {

// Gives the whole application its style, colours and icons. Menus and boxes keep the system's font.
void applyLook();
// Makes Spanish the language of Qt's own texts. Needs the application. Without Qt's translation
// file its few texts stay English.
void speakSpanish();

// The font at its size in pixels of 96 dpi, on a form of this scale. A family that is missing is
// replaced by one of the same measures.
QFont fontFor(const Font& font, const Scale& scale = Scale());

// Draws the text of a widget in this font, or as much narrower and then smaller as it takes to have
// it whole in the room that there is.
void fitText(QWidget& widget, QFont font, const QString& text, const QSize& room,
             bool wrapped = false);

// Gives the widget the element's colours in the two roles that its kind is drawn with.
void applyColors(QWidget& widget, const Element& element, QPalette::ColorRole background,
                 QPalette::ColorRole foreground);

} // namespace forms::qt
