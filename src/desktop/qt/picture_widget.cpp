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

// Darker than the ground, and twice as wide under the pointer.
void drawEdge(QPainter& painter, const QRect& rect, const QColor& ground, bool underPointer) {
  constexpr int Darker = 160; // per cent
  painter.setPen(ground.darker(Darker));
  for (int inset = 0; inset <= (underPointer ? 1 : 0); ++inset)
    painter.drawRect(rect.adjusted(inset, inset, -inset - 1, -inset - 1));
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
  setAttribute(Qt::WA_Hover, content_.plainButton); // paints it anew when the pointer comes or goes
  update();
}

void PictureWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QRect& inner = content_.inner;
  const QPixmap pixmap = content_.path.isEmpty()
                             ? QPixmap()
                             : pictures_.pixmap(content_.path, inner.size(), devicePixelRatioF());
  if (!pixmap.isNull())
    painter.drawPixmap(inner.topLeft(), pixmap); // pixel by pixel
  else
    painter.fillRect(inner, content_.background);
  if (content_.plainButton)
    drawEdge(painter, inner, content_.background, underMouse());
  if (content_.border) {
    for (const QRect& side : QRegion(rect()).subtracted(inner))
      painter.fillRect(side, Qt::black);
    drawBorder(painter, rect());
  }
  if (content_.raised > 0)
    drawRaised(painter, rect(), content_.raised);
}

} // namespace forms::qt
