// The fonts of the elements.
#pragma once

#include <QFont>
#include <QHash>
#include <QString>

#include "desktop/qt/scale.h"
#include "forms/element.h"

class QWidget;

namespace forms::qt {

class Fonts {
public:
  // The font at its size in pixels of 96 dpi, on a form of this scale. A family that is missing is
  // replaced by one of the same measures.
  QFont fontFor(const Font& font, const Scale& scale = Scale());

private:
  QHash<QString, QString> families_; // by the one that is wanted
};

// Draws the text of a widget in this font, or as much narrower and then smaller as it takes to have
// it whole in the room that there is.
void fitText(QWidget& widget, QFont font, const QString& text, const QSize& room,
             bool wrapped = false);

} // namespace forms::qt
