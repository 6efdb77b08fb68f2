#include "desktop/qt/child_window.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QShortcut>
#include <QWheelEvent>

#include "desktop/qt/conversions.h"
#include "desktop/qt/form.h"
#include "desktop/qt/look.h"
#include "desktop/qt/qt_desktop.h"
#include "desktop/qt/windows.h"

namespace forms::qt {

namespace {

// --- Moved by the keyboard -----------------------------------------------------------------------

// Moves a child window by the arrow keys, until Enter, or until Escape takes it back or a mouse
// button is pressed. Qt's own way moves the pointer too, which not every system allows.
class KeyboardMove final : public QObject {
public:
  explicit KeyboardMove(QMdiSubWindow& child) : QObject(&child), child_(child), from_(child.pos()) {
    QApplication::setOverrideCursor(Qt::SizeAllCursor);
    qApp->installEventFilter(this);
  }
  ~KeyboardMove() override { QApplication::restoreOverrideCursor(); }

protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (QApplication::activeModalWidget()) { // it has opened meanwhile, and the keys are for it
      end();
      return false;
    }
    switch (event->type()) {
    case QEvent::KeyPress:
      pressed(static_cast<QKeyEvent*>(event)->key());
      return true;
    case QEvent::ShortcutOverride:
      event->accept(); // no key is a shortcut meanwhile
      return true;
    case QEvent::MouseButtonPress:
      end();
      return false;
    default:
      return false;
    }
  }

private:
  void end() {
    qApp->removeEventFilter(this);
    deleteLater();
  }

  void pressed(int key) {
    constexpr int Step = 10; // pixels
    switch (key) {
    case Qt::Key_Left:
      return child_.move(child_.pos() - QPoint(Step, 0));
    case Qt::Key_Right:
      return child_.move(child_.pos() + QPoint(Step, 0));
    case Qt::Key_Up:
      return child_.move(child_.pos() - QPoint(0, Step));
    case Qt::Key_Down:
      return child_.move(child_.pos() + QPoint(0, Step));
    case Qt::Key_Escape:
      child_.move(from_);
      return end();
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return end();
    default:
      return;
    }
  }

  QMdiSubWindow& child_;
  const QPoint from_;
};

// --- A child window inside the frame: fixed in size, with a close box ----------------------------

QMdiArea& areaFor(const Window& child, QtDesktop& desktop) {
  auto* const frame = qobject_cast<QMainWindow*>(desktop.frame());
  if (!frame)
    qFatal("%s has no frame around it", child.name().c_str());
  return static_cast<QMdiArea&>(*frame->centralWidget());
}

// Percent of the size at 96 dpi, in which a window with a board can be shown.
constexpr std::array Steps{50, 55,  60,  65,  70,  75,  80,  85,  90,
                           95, 100, 110, 125, 150, 175, 200, 250, 300};

// The nearest larger or smaller one; the last one itself.
int stepBeside(int percent, bool larger) {
  const auto* const step = std::lower_bound(Steps.begin(), Steps.end(), percent);
  if (larger)
    return step + 1 == Steps.end() ? percent : *(step + 1);
  return step == Steps.begin() ? percent : *(step - 1);
}

// How far to scroll until a stretch is seen that begins and ends there; not at all for one that is
// longer than the room for it.
int wayToSee(int room, int start, int length) {
  return length > room ? 0 : std::clamp(0, start + length - room, start);
}

// One with a board is shown smaller where the frame has no room for it, and in the size that the
// person has chosen: the whole window is, but for its decoration. Its place is never scaled. What
// fits depends on the size of the frame alone, not on the place: a window that is pushed aside
// keeps its size. When the frame or the size changes, the window is moved back into the frame, as
// if the person had done it.
class ChildView final : public WindowView {
public:
  ChildView(Window& window, QtDesktop& desktop)
      : WindowView(window, desktop, new QMdiSubWindow(nullptr, Qt::SubWindow),
                   new Form(window, desktop)),
        area_(areaFor(window, desktop)) {
    child().setWidget(&form());
    // The title's: the system's might be too large for a window of this size.
    child().setFont(fontFor({}));
    makeSystemMenu();
    // A press on the title would move the focus past the forms layer.
    child().setFocusPolicy(Qt::NoFocus);
    if (window.grid())
      makeScalable();
  }

  void appear() override {
    {
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
    }
    tellPlace();
  }

  void showInSight(const QRect& place) override {
    if (!child().isVisible())
      return;
    const QSize room = area_.viewport()->size();
    const QPoint at = form().mapTo(area_.viewport(), place.topLeft());
    scrollBy({wayToSee(room.width(), at.x(), place.width()),
              wayToSee(room.height(), at.y(), place.height())});
  }

  void remove() override {
    const auto quiet = reporter().quiet();
    detach();
    child().hide();
    area_.removeSubWindow(&child());
    WindowView::remove();
  }

protected:
  void syncPlace() override {
    if (!child().isVisible())
      return;
    const bool resized = fit();
    if (!tellingPlace_)
      moveToPlace();
    if (!resized || !window().grid())
      return;
    moveIntoFrame();
    tellPlace();
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched != &child()) {
      if (event->type() == QEvent::Resize && element() && child().isVisible())
        layOut();
      return false;
    }
    switch (event->type()) {
    case QEvent::Wheel:
      return turned(*static_cast<QWheelEvent*>(event));
    case QEvent::ContextMenu:
      // Qt's own would wait in a loop of its own, in which the window may close.
      event->accept();
      return true;
    case QEvent::MouseButtonPress: {
      event->accept();
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

  void makeSystemMenu() {
    auto* const menu = new QMenu(&child());
    QAction* const move =
        menu->addAction(QStringLiteral("&Mover"), &child(), [this] { new KeyboardMove(child()); });
    move->setShortcut(QKeySequence(QStringLiteral("Ctrl+F7")));
    child().addAction(move);
    QAction* const close =
        menu->addAction(QStringLiteral("&Cerrar"), &child(), [this] { child().close(); });
    close->setShortcuts(
        {QKeySequence(QStringLiteral("Ctrl+F4")), QKeySequence(QKeySequence::Close)});
    child().addAction(close);
    child().setSystemMenu(menu);
    connect(new QShortcut(QKeySequence(QStringLiteral("Alt+-")), &child(), nullptr, nullptr,
                          Qt::WidgetWithChildrenShortcut),
            &QShortcut::activated, &child(), &QMdiSubWindow::showSystemMenu);
  }

  void makeScalable() {
    const auto onKeys = [this](const QList<QKeySequence>& keys, auto choose) {
      auto* const shortcut = new QShortcut(&form());
      shortcut->setKeys(keys);
      connect(shortcut, &QShortcut::activated, this, choose);
    };
    onKeys({QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal)},
           [this] { chooseBeside(true); });
    onKeys({QKeySequence(Qt::CTRL | Qt::Key_Minus)}, [this] { chooseBeside(false); });
    onKeys({QKeySequence(Qt::CTRL | Qt::Key_0)}, [this] { choose(Fitting); });
    area_.viewport()->installEventFilter(this);
  }

  bool turned(const QWheelEvent& event) {
    if (!element() || !window().grid() || !event.modifiers().testFlag(Qt::ControlModifier))
      return false;
    turned_ += event.angleDelta().y(); // fine wheels tell a part of a notch
    const int notches = turned_ / QWheelEvent::DefaultDeltasPerStep;
    turned_ %= QWheelEvent::DefaultDeltasPerStep;
    const QPointF under = form().mapFromGlobal(event.globalPosition()) / form().scale().percent();
    for (int i = 0; i < std::abs(notches); ++i)
      chooseBeside(notches > 0);
    // What lies under the pointer stays there, as far as the window can be scrolled.
    const QPointF now = form().mapToGlobal(under * form().scale().percent());
    scrollBy((now - event.globalPosition()).toPoint());
    return true;
  }

  void chooseBeside(bool larger) { choose(stepBeside(form().scale().percent(), larger)); }

  void choose(int percent) {
    if (!element())
      return;
    desktop().chosenPercent(window()) = percent;
    layOut();
  }

  void layOut() {
    {
      const auto quiet = reporter().quiet();
      fit();
      moveIntoFrame();
    }
    tellPlace();
    desktop().focus().laidOut(window());
  }

  // Whether the window has another size now.
  bool fit() {
    const QMargins frame = child().contentsMargins();
    const QSize decoration(frame.left() + frame.right(), frame.top() + frame.bottom());
    if (window().grid())
      scaleTo(Scale(percentFor(decoration)));
    const QSize size = sizeAround(decoration, form().scale());
    if (size == child().minimumSize() && size == child().maximumSize())
      return false;
    child().setFixedSize(size);
    return true;
  }

  // The size that the person has chosen, or the largest one up to that at 96 dpi that has room.
  int percentFor(QSize decoration) const {
    if (const int chosen = desktop().chosenPercent(window()); chosen != Fitting)
      return chosen;
    // Without the scroll bars, which a window that fits does not need.
    const QSize room = area_.maximumViewportSize();
    int percent = Whole;
    for (QSize size; percent > Steps.front(); percent = stepBeside(percent, false))
      if (size = sizeAround(decoration, Scale(percent)); size.boundedTo(room) == size)
        break;
    return percent;
  }

  void scaleTo(const Scale& scale) {
    if (form().scale() == scale)
      return;
    form().setScale(scale);
    desktop().pictures().forgetPixmaps();
    for (Element* element : window().elements())
      desktop().changed(*element);
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

  void scrollBy(QPoint way) {
    QScrollBar& across = *area_.horizontalScrollBar();
    QScrollBar& down = *area_.verticalScrollBar();
    across.setValue(across.value() + way.x());
    down.setValue(down.value() + way.y());
    tellPlace();
  }

  // Top and Left follow where the window stands. A place between two pixels stays as the program
  // gave it. While one of the two is told, the other is still the old one.
  void tellPlace() {
    const QScopedValueRollback telling(tellingPlace_, true);
    if (pixels(window().Left) != child().x())
      window().Left = twips(child().x());
    if (pixels(window().Top) != child().y())
      window().Top = twips(child().y());
  }

  static constexpr int Fitting = 0;
  static constexpr int Whole = 100;

  QMdiArea& area_;
  bool tellingPlace_ = false;
  int turned_ = 0; // by the wheel, since the last step
};

} // namespace

WindowView* makeChildView(Window& window, QtDesktop& desktop) {
  return new ChildView(window, desktop);
}

} // namespace forms::qt
