// What Qt has on the screen, beside what the program's windows and elements say.
#pragma once

#include <QImage>
#include <QWidget>

#include "scripted/game.h"

namespace scripted {

// Fails the running test for everything that the screen shows, or a screen reader finds, otherwise
// than the open windows and their elements say, or that belongs to none of them. Changes nothing on
// the screen. Looks no further in a test that has failed already.
void agrees(const Forms& forms);

// The widget that shows an element or a window; nullptr when there is none to be seen.
QWidget* shownWidget(const Element& element);
// The same once the screen has come to rest; throws when there is none.
QWidget& widgetOf(const Element& element);

// The pixels of a window on the screen: where they can be had as they were last painted, not anew.
QImage onScreen(QWidget& window);

// Whether no channel of the two colours differs by more than so many of its 256 levels.
bool isNear(QRgb a, QRgb b, int levels);

// Moves the pointer to this pixel of the widget.
void pointAt(QWidget& widget, QPointF place);

} // namespace scripted
