#include "desktop/qt/picture_widget.h"

#include <utility>

#include <QPainter>
#include <QRegion>

#include "desktop/qt/picture_store.h"

namespace forms::qt {

namespace {

void drawBorder(QPainter& painter, const QRect& rect) {
  painter.setPen(Qt::black);
  painter.drawRect(rect.adjusted(0, 0, -1, -1));
}

// A slanted edge that catches the light from the top left, between two dark lines, so that it shows
// on light and on dark pictures.
void drawRaised(QPainter& painter, const QRect& rect, int width) {
  const QColor lit(255, 244, 190);
  const QColor shaded(150, 106, 0);
  for (int i = 1; i <= width; ++i) {
    const QRect line = rect.adjusted(i, i, -i - 1, -i - 1);
    painter.setPen(lit);
    painter.drawLine(line.topLeft(), line.topRight());
    painter.drawLine(line.topLeft(), line.bottomLeft());
    painter.setPen(shaded);
    painter.drawLine(line.bottomLeft(), line.bottomRight());
    painter.drawLine(line.topRight(), line.bottomRight());
  }
  const int inner = width + 1;
  drawBorder(painter, rect);
  drawBorder(painter, rect.adjusted(inner, inner, -inner, -inner));
}

} // namespace

PictureWidget::PictureWidget(PictureStore& pictures, QWidget* form)
    : QWidget(form), pictures_(pictures) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMouseTracking(true);
}

void PictureWidget::show(Content content) {
  if (content == content_)
    return;
  content_ = std::move(content);
  update();
}

void PictureWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QRect& inner = content_.inner;
  const QPixmap pixmap = content_.path.isEmpty()
                             ? QPixmap()
                             : pictures_.pixmap(content_.path, inner.size(), devicePixelRatioF());
  if (pixmap.isNull())
    painter.fillRect(inner, content_.background);
  else
    painter.drawPixmap(inner.topLeft(), pixmap); // pixel by pixel
  if (content_.border) {
    for (const QRect& side : QRegion(rect()).subtracted(inner))
      painter.fillRect(side, Qt::black);
    drawBorder(painter, rect());
  }
  if (content_.raised > 0)
    drawRaised(painter, rect(), content_.raised);
}

} // namespace forms::qt
