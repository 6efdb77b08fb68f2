#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include <QMouseEvent>
#include <QPainter>
#include <qdrawutil.h>

#include "desktop/qt/control_view.h"
#include "desktop/qt/conversions.h"
#include "desktop/qt/window_view.h"
#include "forms/grid_picture.h"

namespace forms::qt {

namespace {

// Draws a picture with its frame and its raised edge.
class PictureWidget final : public QWidget, public Pressable {
public:
  PictureWidget(PictureStore& pictures, QWidget* form) : QWidget(form), pictures_(pictures) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
  }

  struct Content {
    QString path;             // empty: no picture
    QRect inner;              // pixels of the picture in the widget
    int raised = 0;           // width of the slanted edge in pixels; 0: flat
    bool border = false;      // what is left around the picture, and a pixel at least
    QColor background;        // where there is no picture
    bool plainButton = false; // a click does something, and no picture shows what
    bool operator==(const Content&) const = default;
  };
  void show(Content content) {
    if (content == content_)
      return;
    content_ = std::move(content);
    // Paints it anew when the pointer comes or goes.
    setAttribute(Qt::WA_Hover, content_.plainButton);
    update();
  }

protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    if (content_.border)
      painter.fillRect(rect(), Qt::black);
    const QRect& inner = content_.inner;
    const QPixmap pixmap = content_.path.isEmpty()
                               ? QPixmap()
                               : pictures_.pixmap(content_.path, inner.size(), devicePixelRatioF());
    if (!pixmap.isNull())
      painter.drawPixmap(inner.topLeft(), pixmap); // pixel by pixel
    else
      painter.fillRect(inner, content_.background);
    if (content_.plainButton) {
      constexpr int Darker = 160; // per cent
      qDrawPlainRect(&painter, inner, content_.background.darker(Darker), underMouse() ? 2 : 1);
    }
    if (content_.border)
      qDrawPlainRect(&painter, rect(), Qt::black);
    if (content_.raised > 0)
      drawRaised(painter);
  }

private:
  // A slanted edge that catches the light from the top left, between two dark lines, so that it
  // shows on light and on dark pictures.
  void drawRaised(QPainter& painter) {
    const int width = content_.raised;
    QPalette edge;
    edge.setColor(QPalette::Light, QColor(255, 244, 190));
    edge.setColor(QPalette::Dark, QColor(150, 106, 0));
    qDrawPlainRect(&painter, rect(), Qt::black);
    qDrawShadePanel(&painter, rect().adjusted(1, 1, -1, -1), edge, false, width);
    const int inner = width + 1;
    qDrawPlainRect(&painter, rect().adjusted(inner, inner, -inner, -inner), Qt::black);
  }

  PictureStore& pictures_;
  Content content_;
};

// Of `whole` pixels the one in the middle of number `device` of the `painted` ones. In the middle
// between two it is the former.
int pixelAt(int device, int whole, int painted) {
  return static_cast<int>(std::floor(((2.0 * device + 1) * whole - 1) / (2.0 * painted)));
}

// The program hears of whole pixels at 96 dpi: of the file's `whole` ones the one that shows in the
// middle of the screen's. Counted as they are painted, in device pixels of the window.
QPoint pixelOfFile(const QWidget& widget, const QRect& picture, QSize whole, QPointF position) {
  const double ratio = widget.devicePixelRatioF();
  const auto onWindow = [&](QPointF place) {
    return (widget.mapTo(widget.window(), place) * ratio).toPoint();
  };
  const QPoint device = onWindow(position) - onWindow(picture.topLeft());
  const QSize painted = PictureStore::devicePixels(picture.size(), ratio);
  return {pixelAt(device.x(), whole.width(), painted.width()),
          pixelAt(device.y(), whole.height(), painted.height())};
}

class PictureView final : public ViewOf<Picture, PictureWidget> {
public:
  PictureView(Picture& picture, Screen& screen, QWidget* form)
      : ViewOf(picture, screen, new PictureWidget(screen.pictures, form)) {}

  // On a board the cursor shows the place, also that of a unit.
  bool needsOutline() const override {
    return shown().index() < 0 && (!board() || board()->cursorSquare() == 0);
  }
  QRect focusPlace() const override { return cursorPlace().value_or(widget().geometry()); }

protected:
  void syncKind() override {
    const QColor background =
        shown().BackColor ? toQt(*shown().BackColor) : widget().palette().color(QPalette::Base);
    constexpr int EdgeWidth = 4; // pixels at 96 dpi
    const int raised = shown().Appearance == 1 ? std::max(2, scale().length(EdgeWidth)) : 0;
    const QString path = toQt(shown().picturePath());
    const bool plainButton = path.isEmpty() && shown().index() > 0 && shown().Click;
    widget().show({path, inner(), raised, shown().Border, background, plainButton});
    offerPress(shown().Click || board());
    widget().role = shown().Click ? QAccessible::Button : QAccessible::Graphic;
    // Qt stacks in the order of making, as the forms layer does; only the rank must be told.
    const int rank = shown().zOrderRank;
    if (shown().Visible && std::exchange(shownRank_, rank) != rank)
      form().stack(widget(), rank);
    syncCursor();
    if (widget().underMouse())
      syncPointer();
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
      syncPointer();
      if (!element() || event->type() == QEvent::MouseMove)
        return true;
      break;
    case QEvent::Enter:
      syncPointer();
      break;
    case QEvent::FocusIn:
    case QEvent::FocusOut:
      syncCursor();
      break;
    default:
      break;
    }
    return ControlView::eventFilter(watched, event);
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

  // A hand over what a click does something with.
  void syncPointer() {
    if (!element())
      return;
    const auto shape = shown().invites() ? Qt::PointingHandCursor : Qt::ArrowCursor;
    if (widget().cursor().shape() != shape)
      widget().setCursor(shape);
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
      cursor_ = new Outline(form());
    const bool moved = cursor_->isHidden() || cursor_->geometry() != *place;
    cursor_->showAt(*place, std::max(2, scale().length(CursorWidth)), !widget().hasFocus());
    if (moved)
      viewOf<WindowView>(screen().views, shown().window()).showInSight(*place);
  }

  void movedTo(QPointF position) {
    const QPoint pixel =
        pixelOfFile(widget(), inner(), innerTwips().size() / TwipsPerPixel, position);
    if (std::exchange(pointer_, pixel) == pixel)
      return;
    reporter().report([&](Forms& forms) {
      forms.moved(shown(), static_cast<float>(twips(pixel.x())),
                  static_cast<float>(twips(pixel.y())));
    });
  }

  int shownRank_ = -1;
  Outline* cursor_ = nullptr;     // made at its first use
  std::optional<QPoint> pointer_; // whole pixels, as last reported
};

} // namespace

ElementView* makePictureView(Picture& picture, Screen& screen, QWidget* form) {
  return new PictureView(picture, screen, form);
}

} // namespace forms::qt
