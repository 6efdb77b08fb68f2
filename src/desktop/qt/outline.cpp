#include "desktop/qt/outline.h"

#include <utility>

#include <QPainter>
#include <qdrawutil.h>

#include "desktop/qt/form.h"

namespace forms::qt {

Outline::Outline(QWidget* form) : QWidget(form) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  static_cast<Form*>(form)->stack(*this, Form::FrontRank);
  hide();
}

void Outline::showAt(const QRect& place, int width, bool faint) {
  setGeometry(place);
  const bool wider = std::exchange(width_, width) != width;
  if (std::exchange(faint_, faint) != faint || wider)
    update();
  show();
}

// Yellow between two dark lines: it shows on both tones of a board and on either side's units.
void Outline::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  constexpr double Faint = 0.4;
  painter.setOpacity(faint_ ? Faint : 1);
  const int inner = width_ + 1;
  qDrawPlainRect(&painter, rect(), Qt::black);
  qDrawPlainRect(&painter, rect().adjusted(1, 1, -1, -1), QColor(255, 214, 0), width_);
  qDrawPlainRect(&painter, rect().adjusted(inner, inner, -inner, -inner), Qt::black);
}

} // namespace forms::qt
