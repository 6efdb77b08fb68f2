#include "desktop/qt/windows.h"

#include <memory>
#include <utility>

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>
#include <QShortcut>
#include <QTimer>

#include "desktop/qt/conversions.h"
#include "desktop/qt/form.h"
#include "desktop/qt/look.h"
#include "desktop/qt/qt_desktop.h"

namespace forms::qt {

// --- What all windows do alike -------------------------------------------------------------------

WindowView::WindowView(Window& window, QtDesktop& desktop, QWidget* widget, Form* form)
    : ElementView(window, desktop, widget), widget_(*widget), form_(form) {
  widget->setObjectName(toQt(window.name()));
  widget->installEventFilter(this);
}

void WindowView::sync() {
  const auto quiet = reporter().quiet();
  widget_.setWindowTitle(toQt(window().Caption));
  if (const QIcon icon = desktop().pictures().icon(toQt(window().Icon));
      icon.cacheKey() != widget_.windowIcon().cacheKey()) {
    widget_.setWindowIcon(icon);
    if (window().windowKind() == WindowKind::Frame)
      QApplication::setWindowIcon(icon); // of the boxes
  }
  syncPlace();
}

void WindowView::detach() {
  if (form_)
    form_->detach();
  ElementView::detach();
}

void WindowView::remove() {
  const auto quiet = reporter().quiet();
  detach();
  widget_.hide();
  reporter().remove(&widget_);
  if (waiting_)
    waiting_->quit();
}

Form& WindowView::form() const {
  if (!form_)
    qFatal("%s has no place for elements", qPrintable(widget_.objectName()));
  return *form_;
}

void WindowView::waitUntilRemoved() {
  const auto loop = std::make_unique<QEventLoop>();
  waiting_ = loop.get();
  loop->exec();
}

QSize WindowView::sizeAround(QSize decoration) const {
  const QSize inner(pixels(window().ClientWidth), pixels(window().ClientHeight));
  const QSize outer(pixels(window().Width), pixels(window().Height));
  return (inner.isEmpty() ? outer : inner + decoration).expandedTo(neededSize() + decoration);
}

// What comes and goes at run time, such as the units of a board, never stretches the window.
QSize WindowView::neededSize() const {
  QRect needed;
  for (const Element* element : window().elements())
    if (element->Visible && element->index() < 0)
      needed |= desktop().viewOf<WidgetView>(*element).widget().geometry();
  return {needed.right() + 1, needed.bottom() + 1};
}

void WindowView::moveToPlace() {
  widget_.move(pixels(window().Left), pixels(window().Top));
}

bool WindowView::eventFilter(QObject* /*watched*/, QEvent* event) {
  switch (event->type()) {
  case QEvent::Close:
    event->ignore(); // the forms layer closes it, or not
    if (element())
      reporter().report([this](Forms& forms) { forms.closeRequested(window()); });
    return true;
  case QEvent::WindowActivate:
  case QEvent::WindowDeactivate:
    if (widget_.isWindow())
      desktop().focus().windowChanged();
    return false;
  default:
    return false;
  }
}

namespace {

// --- The frame: menu bar and area of child windows -----------------------------------------------

class FrameView final : public WindowView {
public:
  FrameView(Window& window, QtDesktop& desktop)
      : WindowView(window, desktop, new QMainWindow, nullptr) {
    auto& frame = static_cast<QMainWindow&>(widget());
    auto* const area = new QMdiArea(&frame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area->setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
    if (window.BackColor)
      area->setBackground(toQt(*window.BackColor));
    // Their menus wait in a loop of their own, in which a child window may close.
    for (QScrollBar* bar : {area->horizontalScrollBar(), area->verticalScrollBar()})
      bar->setContextMenuPolicy(Qt::PreventContextMenu);
    frame.setCentralWidget(area);
    QMenuBar& bar = *frame.menuBar();
    bar.setContextMenuPolicy(Qt::PreventContextMenu);
    connect(new QShortcut(Qt::Key_F10, &frame), &QShortcut::activated, this,
            [&bar] { bar.setActiveAction(bar.actions().value(0)); });
    desktop.focus().watch(*area);
  }

  // The place and size are those of the frame's outer edge; how wide the decoration is around it, a
  // window manager tells once it has drawn it.
  void appear() override {
    moveToPlace();
    widget().resize(pixels(window().Width), pixels(window().Height));
    if (!window().Maximized)
      return widget().show();
    widget().showMaximized();
    restored_ = false;
  }

protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    const bool restored = event->type() == QEvent::WindowStateChange && !widget().isMaximized() &&
                          !widget().isMinimized();
    constexpr int WhileDecorationIsDrawn = 100; // milliseconds
    if (restored && element() && !std::exchange(restored_, true))
      QTimer::singleShot(WhileDecorationIsDrawn, this, [this] { fitOuterEdge(); });
    return WindowView::eventFilter(watched, event);
  }

private:
  void fitOuterEdge() {
    if (!element() || widget().isMaximized())
      return;
    const QSize decoration = widget().frameGeometry().size() - widget().size();
    widget().resize(QSize(pixels(window().Width), pixels(window().Height)) - decoration);
    moveToPlace();
  }

  bool restored_ = true; // since it was shown maximised
};

// --- A child window inside the frame: fixed in size, with a close box ----------------------------

QMdiArea& areaFor(const Window& child, QtDesktop& desktop) {
  auto* const frame = qobject_cast<QMainWindow*>(desktop.frame());
  if (!frame)
    qFatal("%s has no frame around it", child.name().c_str());
  return static_cast<QMdiArea&>(*frame->centralWidget());
}

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
    fit();
    if (!tellingPlace_)
      moveToPlace();
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    switch (event->type()) {
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

  void fit() {
    const QMargins frame = child().contentsMargins();
    const QSize size = sizeAround({frame.left() + frame.right(), frame.top() + frame.bottom()});
    if (size != child().minimumSize() || size != child().maximumSize())
      child().setFixedSize(size);
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

  QMdiArea& area_;
  bool tellingPlace_ = false;
};

// --- A window of its own: fixed in size, with a close box ----------------------------------------

// Stays in front of the frame, if there is one.
class OwnView final : public WindowView {
public:
  OwnView(Window& window, QtDesktop& desktop)
      : WindowView(window, desktop, makeWidget(desktop.frame()), new Form(window, desktop)) {
    form().setParent(&widget());
  }

  void appear() override {
    if (window().isModal())
      widget().setWindowModality(Qt::ApplicationModal);
    if (!window().PlacedByDesktop)
      moveToPlace();
    widget().show();
  }

protected:
  void syncPlace() override {
    widget().setFixedSize(sizeAround({0, 0}));
    form().setGeometry(widget().rect());
  }

private:
  static QWidget* makeWidget(QWidget* frame) {
    return new QWidget(frame, (frame ? Qt::Dialog : Qt::Window) | Qt::CustomizeWindowHint |
                                  Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                                  Qt::WindowCloseButtonHint);
  }
};

} // namespace

WindowView* makeView(Window& window, QtDesktop& desktop) {
  switch (window.windowKind()) {
  case WindowKind::Frame:
    return new FrameView(window, desktop);
  case WindowKind::Child:
    return new ChildView(window, desktop);
  case WindowKind::Own:
    break;
  }
  return new OwnView(window, desktop);
}

} // namespace forms::qt
