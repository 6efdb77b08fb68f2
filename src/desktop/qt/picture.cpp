#include "desktop/qt/picture.h"

#include <QMouseEvent>

#include "desktop/qt/conversions.h"
#include "desktop/qt/reporter.h"
#include "desktop/qt/stacking.h"

namespace forms::qt {

namespace {

constexpr int CursorWidth = 3; // pixels

} // namespace

PictureView::PictureView(Picture& picture, Services services, QWidget* form)
    : WidgetView(picture, services, new PictureWidget(services.pictures, form)) {
  setClicks(Clicks::OfMouse);
  canvas().isButton = static_cast<bool>(picture.Click);
  // Later, for the press may end in a message box, and the screen reader waits for its call's end.
  canvas().press = [this] {
    QMetaObject::invokeMethod(
        this, [this] { press(); }, Qt::QueuedConnection);
  };
}

void PictureView::syncKind() {
  const Picture& shown = *picture();
  const QColor background =
      shown.BackColor ? toQt(*shown.BackColor) : widget()->palette().color(QPalette::Base);
  canvas().setLooks({toQt(shown.picturePath()), shown.Appearance == 1, shown.Border, background});
  canvas().isButton = static_cast<bool>(shown.Click);
  syncStacking();
  syncCursor();
}

// Qt stacks in the order of making, as the forms layer does; only the rank must be told.
void PictureView::syncStacking() {
  const int rank = picture()->zOrderRank;
  if (shownRank_ == rank)
    return;
  shownRank_ = rank;
  setStackingRank(*widget(), rank);
}

void PictureView::syncCursor() {
  const Picture& board = *picture();
  const int square = board.cursorSquare - 1; // from 0
  if (square < 0 || board.grid.columns() == 0) {
    if (cursor_)
      cursor_->hide();
    return;
  }
  if (!cursor_)
    cursor_ = new Mark(widget()->parentWidget(), CursorWidth);
  const int frame = board.Border ? 1 : 0;
  const int side = pixels(board.grid.side());
  const QPoint corner(pixels(square % board.grid.columns() * board.grid.side()),
                      pixels(square / board.grid.columns() * board.grid.side()));
  cursor_->setGeometry(QRect(widget()->pos() + QPoint(frame, frame) + corner, QSize(side, side)));
  cursor_->setVisible(board.Visible);
}

void PictureView::takeOff() {
  if (cursor_) {
    cursor_->hide();
    services().reporter.bury(cursor_);
  }
  WidgetView::takeOff();
}

bool PictureView::eventFilter(QObject* watched, QEvent* event) {
  if (!element())
    return true;
  switch (event->type()) {
  case QEvent::MouseMove:
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonDblClick:
  case QEvent::MouseButtonRelease:
    // A press or a release may come without a move before it, as when a box has just gone.
    movedTo(static_cast<QMouseEvent*>(event)->position());
    if (!element() || event->type() == QEvent::MouseMove)
      return true;
    break;
  default:
    break;
  }
  return WidgetView::eventFilter(watched, event);
}

void PictureView::movedTo(QPointF position) {
  const int frame = picture()->Border ? 1 : 0;
  const QPoint pixel = wholePixel(position) - QPoint(frame, frame);
  if (pointer_ == pixel)
    return;
  pointer_ = pixel;
  services().reporter.report([&](Forms& forms) {
    forms.moved(*picture(), static_cast<float>(twips(pixel.x())),
                static_cast<float>(twips(pixel.y())));
  });
}

void PictureView::press() {
  if (!element())
    return;
  const bool goesOn = services().reporter.report(
      [this](Forms& forms) { return forms.pressed(*element(), MouseButton::Left); });
  if (goesOn)
    click();
}

} // namespace forms::qt
