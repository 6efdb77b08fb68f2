#include "desktop/qt/square_cursor.h"

#include <QPainter>

namespace forms::qt {

SquareCursor::SquareCursor(QWidget* form) : QWidget(form) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  hide();
}

// Yellow between two dark lines: it shows on both tones of a board and on either side's units.
void SquareCursor::paintEvent(QPaintEvent* /*event*/) {
  constexpr int Width = 3;
  QPainter painter(this);
  const auto frame = [&](int inset, const QColor& color) {
    painter.setPen(color);
    painter.drawRect(rect().adjusted(inset, inset, -inset - 1, -inset - 1));
  };
  frame(0, Qt::black);
  for (int inset = 1; inset <= Width; ++inset)
    frame(inset, QColor(255, 214, 0));
  frame(Width + 1, Qt::black);
}

} // namespace forms::qt
