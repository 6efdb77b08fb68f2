// Scrolls an area in which windows stand.
#pragma once

class QAbstractScrollArea;
class QPoint;
class QRect;

namespace forms::qt {

// Moves what is seen, in pixels, as far as it goes.
void scrollBy(QAbstractScrollArea& area, QPoint way);
// Brings this place of what is seen now into sight, as far as it is not larger than the room for
// it.
void scrollToSee(QAbstractScrollArea& area, const QRect& place);

} // namespace forms::qt
