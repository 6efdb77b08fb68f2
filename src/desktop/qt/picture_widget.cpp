#include "desktop/qt/picture_widget.h"

#include <utility>

#include <QPainter>

#include "desktop/qt/picture_store.h"

namespace forms::qt {

namespace {

void drawBorder(QPainter& painter, const QRect& rect) {
  painter.setPen(Qt::black);
  painter.drawRect(rect.adjusted(0, 0, -1, -1));
}

// A slanted edge that catches the light from the top left, between two dark lines, so that it shows
// on light and on dark pictures.
void drawRaised(QPainter& painter, const QRect& rect) {
  constexpr int EdgeWidth = 4;
  const QColor lit(255, 244, 190);
  const QColor shaded(150, 106, 0);
  for (int i = 1; i <= EdgeWidth; ++i) {
    const QRect line = rect.adjusted(i, i, -i - 1, -i - 1);
    painter.setPen(lit);
    painter.drawLine(line.topLeft(), line.topRight());
    painter.drawLine(line.topLeft(), line.bottomLeft());
    painter.setPen(shaded);
    painter.drawLine(line.bottomLeft(), line.bottomRight());
    painter.drawLine(line.topRight(), line.bottomRight());
  }
  constexpr int Inner = EdgeWidth + 1;
  drawBorder(painter, rect);
  drawBorder(painter, rect.adjusted(Inner, Inner, -Inner, -Inner));
}

} // namespace

PictureWidget::PictureWidget(PictureStore& pictures, QWidget* parent)
    : QWidget(parent), pictures_(pictures) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMouseTracking(true);
}

void PictureWidget::setLooks(Looks looks) {
  if (looks == looks_)
    return;
  looks_ = std::move(looks);
  update();
}

void PictureWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const int frame = looks_.border ? 1 : 0;
  const QRect inner = rect().adjusted(frame, frame, -frame, -frame);
  const QPixmap pixmap = looks_.path.isEmpty()
                             ? QPixmap()
                             : pictures_.pixmap(looks_.path, inner.size(), devicePixelRatioF());
  if (pixmap.isNull())
    painter.fillRect(inner, looks_.background);
  else
    painter.drawPixmap(inner.topLeft(), pixmap); // pixel by pixel
  if (looks_.border)
    drawBorder(painter, rect());
  if (looks_.raised)
    drawRaised(painter, rect());
}

} // namespace forms::qt
