#include "desktop/qt/picture.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

#include <QMouseEvent>
#include <QPainter>
#include <QRegion>
#include <QVariant>

#include "desktop/qt/conversions.h"
#include "desktop/qt/element_view.h"
#include "desktop/qt/picture_store.h"
#include "desktop/qt/qt_desktop.h"
#include "desktop/qt/windows.h"
#include "forms/grid_picture.h"

namespace forms::qt {

// --- What lies in front of what ------------------------------------------------------------------

namespace {

// Rank of what lies in front of every element.
constexpr int FrontRank = std::numeric_limits<int>::max();

// Moves the widget behind all of its form that have a higher rank and in front of all others. A
// widget that was never given a rank has rank 0.
void setStackingRank(QWidget& widget, int rank) {
  constexpr const char* RankProperty = "stackingRank";
  widget.setProperty(RankProperty, rank);
  // From the hindmost to the frontmost.
  for (QObject* sibling : widget.parentWidget()->children()) {
    auto* const other = qobject_cast<QWidget*>(sibling);
    if (other && other != &widget && other->property(RankProperty).toInt() > rank)
      return widget.stackUnder(other);
  }
  widget.raise();
}

} // namespace

// --- Mark ----------------------------------------------------------------------------------------

Mark::Mark(QWidget* form) : QWidget(form) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setStackingRank(*this, FrontRank);
  hide();
}

void Mark::showAt(const QRect& place, int width) {
  setGeometry(place);
  if (std::exchange(width_, width) != width)
    update();
  show();
}

// Yellow between two dark lines: it shows on both tones of a board and on either side's units.
void Mark::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const auto frame = [&](int inset, const QColor& color) {
    painter.setPen(color);
    painter.drawRect(rect().adjusted(inset, inset, -inset - 1, -inset - 1));
  };
  frame(0, Qt::black);
  for (int inset = 1; inset <= width_; ++inset)
    frame(inset, QColor(255, 214, 0));
  frame(width_ + 1, Qt::black);
}

// --- What is drawn -------------------------------------------------------------------------------

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

void PictureWidget::setLooks(Looks looks) {
  if (looks == looks_)
    return;
  looks_ = std::move(looks);
  update();
}

void PictureWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QRect& inner = looks_.inner;
  const QPixmap pixmap = looks_.path.isEmpty()
                             ? QPixmap()
                             : pictures_.pixmap(looks_.path, inner.size(), devicePixelRatioF());
  if (pixmap.isNull())
    painter.fillRect(inner, looks_.background);
  else
    painter.drawPixmap(inner.topLeft(), pixmap); // pixel by pixel
  if (looks_.border) {
    for (const QRect& side : QRegion(rect()).subtracted(inner))
      painter.fillRect(side, Qt::black);
    drawBorder(painter, rect());
  }
  if (looks_.raised > 0)
    drawRaised(painter, rect(), looks_.raised);
}

// --- The element ---------------------------------------------------------------------------------

namespace {

class PictureView final : public ViewOf<Picture, PictureWidget> {
public:
  PictureView(Picture& picture, QtDesktop& desktop, QWidget* form)
      : ViewOf(picture, desktop, new PictureWidget(desktop.pictures(), form)) {
    setClicks(Clicks::OfMouse);
  }

  void remove() override {
    if (cursor_) {
      cursor_->hide();
      reporter().remove(cursor_);
    }
    WidgetView::remove();
  }

  // On a board the cursor shows the place, also that of a unit.
  bool needsMark() const override {
    return shown().index() < 0 && (!board() || board()->cursorSquare() == 0);
  }
  QRect focusPlace() const override { return cursorPlace().value_or(widget().geometry()); }

protected:
  void syncKind() override {
    const QColor background =
        shown().BackColor ? toQt(*shown().BackColor) : widget().palette().color(QPalette::Base);
    constexpr int EdgeWidth = 4; // pixels at 96 dpi
    const int raised = shown().Appearance == 1 ? std::max(2, scale().length(EdgeWidth)) : 0;
    widget().setLooks({toQt(shown().picturePath()), inner(), raised, shown().Border, background});
    offerPress(widget(), shown().Click || board());
    widget().role = shown().Click ? QAccessible::Button : QAccessible::Graphic;
    // Qt stacks in the order of making, as the forms layer does; only the rank must be told.
    if (const int rank = shown().zOrderRank; std::exchange(shownRank_, rank) != rank)
      setStackingRank(widget(), rank);
    syncCursor();
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    // What the mouse still does here is meant for no other element either.
    if (!element())
      return event->isInputEvent();
    switch (event->type()) {
    case QEvent::MouseMove:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
      // A press or a release may come without a move before it, as when a box has just gone; and
      // since the last move the keyboard may have pointed elsewhere.
      if (event->type() != QEvent::MouseMove)
        pointer_.reset();
      movedTo(static_cast<QMouseEvent*>(event)->position());
      if (!element() || event->type() == QEvent::MouseMove)
        return true;
      break;
    default:
      break;
    }
    return WidgetView::eventFilter(watched, event);
  }

private:
  // Twips of the picture inside its frame, on the form.
  QRect innerTwips() const {
    const int frame = shown().frameWidth();
    return QRect(shown().Left, shown().Top, shown().Width, shown().Height)
        .adjusted(frame, frame, -frame, -frame);
  }
  // Its pixels in the widget.
  QRect inner() const { return scale().pixels(innerTwips()).translated(-widget().pos()); }

  // nullptr for a picture without a grid.
  const GridPicture* board() const {
    const GridPicture* const board = shown().window().grid();
    return board == &shown() ? board : nullptr;
  }

  // Pixels of the cursor's square on the form; nothing while no cursor shows here.
  std::optional<QRect> cursorPlace() const {
    if (!board() || board()->cursorSquare() == 0)
      return std::nullopt;
    const int square = board()->cursorSquare() - 1; // from 0
    const int columns = board()->columns();
    const int side = board()->side();
    const QPoint corner(square % columns * side, square / columns * side);
    return scale().pixels(QRect(innerTwips().topLeft() + corner, QSize(side, side)));
  }

  void syncCursor() {
    constexpr int CursorWidth = 3; // pixels at 96 dpi
    const std::optional<QRect> place = cursorPlace();
    if (!place || !shown().Visible) {
      if (cursor_)
        cursor_->hide();
      return;
    }
    if (!cursor_)
      cursor_ = new Mark(widget().parentWidget());
    const bool moved = cursor_->isHidden() || cursor_->geometry() != *place;
    cursor_->showAt(*place, std::max(2, scale().length(CursorWidth)));
    if (moved)
      desktop().viewOf<WindowView>(shown().window()).showInSight(*place);
  }

  // The program hears of whole pixels at 96 dpi: of the file's one that shows in the middle of the
  // screen's. Counted as they are painted, in device pixels of the window.
  QPoint pixelOfFile(QPointF position) const {
    const double ratio = widget().devicePixelRatioF();
    const auto onWindow = [&](QPointF place) {
      return (widget().mapTo(widget().window(), place) * ratio).toPoint();
    };
    const QRect picture = inner();
    const QPoint device = onWindow(position) - onWindow(picture.topLeft());
    const QSize whole = innerTwips().size() / TwipsPerPixel;
    const QSize painted = PictureStore::devicePixels(picture.size(), ratio);
    return {pixelAt(device.x(), whole.width(), painted.width()),
            pixelAt(device.y(), whole.height(), painted.height())};
  }

  // Of `whole` pixels the one in the middle of number `device` of the `painted` ones. In the middle
  // between two it is the former.
  static int pixelAt(int device, int whole, int painted) {
    return static_cast<int>(std::floor(((2.0 * device + 1) * whole - 1) / (2.0 * painted)));
  }

  void movedTo(QPointF position) {
    const QPoint pixel = pixelOfFile(position);
    if (std::exchange(pointer_, pixel) == pixel)
      return;
    reporter().report([&](Forms& forms) {
      forms.moved(shown(), static_cast<float>(twips(pixel.x())),
                  static_cast<float>(twips(pixel.y())));
    });
  }

  int shownRank_ = -1;
  Mark* cursor_ = nullptr;        // made at its first use
  std::optional<QPoint> pointer_; // whole pixels, as last reported
};

} // namespace

ElementView* makePictureView(Picture& picture, QtDesktop& desktop, QWidget* form) {
  return new PictureView(picture, desktop, form);
}

} // namespace forms::qt
