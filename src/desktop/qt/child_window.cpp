#include <algorithm>

#include <QAction>
#include <QEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QShortcut>

#include "desktop/qt/conversions.h"
#include "desktop/qt/keyboard_move.h"
#include "desktop/qt/window_view.h"
#include "desktop/qt/zoom.h"

namespace forms::qt {

namespace {

// Opens by Alt and the minus key, and by a click on the icon.
void makeSystemMenu(QMdiSubWindow& child) {
  auto* const menu = new QMenu(&child);
  const auto add = [&](const QString& text, const QList<QKeySequence>& keys, auto does) {
    QAction* const action = menu->addAction(text, &child, does);
    action->setShortcuts(keys);
    child.addAction(action);
  };
  add(QStringLiteral("&Mover"), {Qt::CTRL | Qt::Key_F7}, [&child] { moveByKeyboard(child); });
  // Each key once: what the system closes windows with may be one of the two.
  add(QStringLiteral("&Cerrar"), {Qt::CTRL | Qt::Key_F4, Qt::CTRL | Qt::Key_W},
      [&child] { child.close(); });
  child.setSystemMenu(menu);
  QObject::connect(new QShortcut(QKeySequence(QStringLiteral("Alt+-")), &child, nullptr, nullptr,
                                 Qt::WidgetWithChildrenShortcut),
                   &QShortcut::activated, &child, &QMdiSubWindow::showSystemMenu);
}

// Scrolls until a stretch of what is seen now is in sight, unless it is longer than the room.
void scrollToSee(QScrollBar& bar, int room, int start, int length) {
  if (length <= room)
    bar.setValue(bar.value() + std::clamp(0, start + length - room, start));
}

// Fixed in size, with a close box. One with a board is scaled as a whole, but for its decoration
// and its place. What fits depends on the size of the frame alone, not on the place: a window that
// is pushed aside keeps its size. When the frame or the size changes, the window is moved back into
// the frame, as if the person had done it.
class ChildView final : public WindowView {
public:
  ChildView(Window& window, Screen& screen)
      : WindowView(window, screen, new QMdiSubWindow(nullptr, Qt::SubWindow),
                   new Form(window, screen.reporter)),
        area_(*screen.area) {
    child().setWidget(&form());
    // The title's: the system's might be too large for a window of this size.
    child().setFont(screen.fonts.fontFor({}));
    makeSystemMenu(child());
    // A press on the title would move the focus past the forms layer.
    child().setFocusPolicy(Qt::NoFocus);
    if (window.grid())
      new ZoomControl(child(), form(), area_, screen.zoom, [this] { layOut(); });
  }

  void appear() override {
    const auto quiet = reporter().quiet();
    child().setParent(area_.viewport(), Qt::SubWindow | Qt::CustomizeWindowHint |
                                            Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                                            Qt::WindowCloseButtonHint |
                                            Qt::MSWindowsFixedSizeDialogHint);
    fit();
    area_.addSubWindow(&child(), child().windowFlags());
    if (!window().PlacedByDesktop)
      moveToPlace();
    child().show();
    tellPlace();
  }

  void showInSight(const QRect& place) override {
    if (!child().isVisible())
      return;
    const QPoint corner = form().mapTo(area_.viewport(), place.topLeft());
    const QSize room = area_.viewport()->size();
    scrollToSee(*area_.horizontalScrollBar(), room.width(), corner.x(), place.width());
    scrollToSee(*area_.verticalScrollBar(), room.height(), corner.y(), place.height());
    tellPlace();
  }

  void remove() override {
    WindowView::remove();
    const auto quiet = reporter().quiet();
    area_.removeSubWindow(&child());
  }

protected:
  void syncPlace() override {
    if (!child().isVisible())
      return;
    const bool resized = fit();
    if (!tellingPlace_)
      moveToPlace();
    if (resized && window().grid())
      settle();
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    switch (event->type()) {
    case QEvent::ContextMenu:
      // Qt's own would wait in a loop of its own, in which the window may close.
      return true;
    case QEvent::MouseButtonPress: {
      const bool goesOn = element() && reporter().report([this](Forms& forms) {
        return forms.activated(window());
      });
      return !goesOn || !element();
    }
    case QEvent::Move:
      if (element() && child().isVisible() && !reporter().isQuiet())
        tellPlace();
      return false;
    default:
      return WindowView::eventFilter(watched, event);
    }
  }

private:
  QMdiSubWindow& child() const { return static_cast<QMdiSubWindow&>(widget()); }

  void layOut() {
    if (!element() || !child().isVisible())
      return;
    const auto quiet = reporter().quiet();
    fit();
    settle();
  }

  // The size is another, or the room for it.
  void settle() {
    moveIntoFrame();
    tellPlace();
    screen().focus.laidOut(window());
  }

  // Whether the window has another size now.
  bool fit() {
    const QMargins frame = child().contentsMargins();
    const QSize decoration(frame.left() + frame.right(), frame.top() + frame.bottom());
    if (window().grid())
      scaleTo(Scale(screen().zoom.percent([&](int percent) {
        // Without the scroll bars, which a window that fits does not need.
        const QSize size = sizeAround(decoration, Scale(percent));
        return size.boundedTo(area_.maximumViewportSize()) == size;
      })));
    const QSize before = child().size();
    child().setFixedSize(sizeAround(decoration, form().scale()));
    return child().size() != before;
  }

  void scaleTo(const Scale& scale) {
    if (form().scale() == scale)
      return;
    form().setScale(scale);
    screen().pictures.forgetPixmaps();
    for (Element* element : window().elements())
      viewOf<ElementView>(screen().views, *element).sync();
  }

  void moveIntoFrame() {
    const QSize most = area_.maximumViewportSize() - child().size();
    // A scroll bar that is about to go would take the window along on its way back.
    if (most.width() >= 0)
      area_.horizontalScrollBar()->setValue(0);
    if (most.height() >= 0)
      area_.verticalScrollBar()->setValue(0);
    child().move(most.width() < 0 ? child().x() : std::clamp(child().x(), 0, most.width()),
                 most.height() < 0 ? child().y() : std::clamp(child().y(), 0, most.height()));
  }

  // Top and Left follow where the window stands. A place between two pixels stays as the program
  // gave it. While one of the two is told, the other is still the old one.
  void tellPlace() {
    const QScopedValueRollback telling(tellingPlace_, true);
    if (Scale().pixels(window().Left) != child().x())
      window().Left = twips(child().x());
    if (Scale().pixels(window().Top) != child().y())
      window().Top = twips(child().y());
  }

  QMdiArea& area_;
  bool tellingPlace_ = false;
};

} // namespace

WindowView* makeChildView(Window& window, Screen& screen) {
  return new ChildView(window, screen);
}

} // namespace forms::qt
