#include "desktop/qt/scrolling.h"

#include <algorithm>

#include <QAbstractScrollArea>
#include <QScrollBar>

namespace forms::qt {

namespace {

// How far to scroll until a stretch is seen that begins there.
int wayToSee(int room, int start, int length) {
  return length > room ? 0 : std::clamp(0, start + length - room, start);
}

} // namespace

void scrollBy(QAbstractScrollArea& area, QPoint way) {
  QScrollBar& across = *area.horizontalScrollBar();
  QScrollBar& down = *area.verticalScrollBar();
  across.setValue(across.value() + way.x());
  down.setValue(down.value() + way.y());
}

void scrollToSee(QAbstractScrollArea& area, const QRect& place) {
  const QSize room = area.viewport()->size();
  scrollBy(area, {wayToSee(room.width(), place.x(), place.width()),
                  wayToSee(room.height(), place.y(), place.height())});
}

} // namespace forms::qt
