#include <optional>
#include <utility>

#include <QEvent>
#include <QMainWindow>
#include <QMdiArea>
#include <QMenuBar>
#include <QScrollBar>
#include <QShortcut>
#include <QTimer>
#include <QWindow>

#include "desktop/qt/conversions.h"
#include "desktop/qt/window_view.h"

namespace forms::qt {

namespace {

// --- The frame: menu bar and area of child windows -----------------------------------------------

class FrameView final : public WindowView {
public:
  FrameView(Window& window, Screen& screen) : WindowView(window, screen, new QMainWindow, nullptr) {
    auto& frame = static_cast<QMainWindow&>(widget());
    auto* const area = new QMdiArea(&frame);
    screen.area = area;
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
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
    screen.focus.watch(*area);
  }

  void detach() override {
    screen().area = nullptr;
    WindowView::detach();
  }

  // The place and size are those of the frame's outer edge; how wide the decoration is around it, a
  // window manager tells once it has drawn it.
  void appear() override {
    moveToPlace();
    widget().resize(Scale().pixels(window().Width), Scale().pixels(window().Height));
    if (!window().Maximized)
      return widget().show();
    widget().showMaximized();
  }

protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    const bool restored = event->type() == QEvent::WindowStateChange && !widget().isMaximized() &&
                          !widget().isMinimized();
    constexpr int Looks = 100;
    if (restored && element() && !std::exchange(restored_, true))
      fitOuterEdge(Looks, {});
    return WindowView::eventFilter(watched, event);
  }

private:
  // Again whenever the decoration is another than the one that the size was chosen for. A window
  // manager draws it in its own time, and Qt does not tell when.
  void fitOuterEdge(int looksLeft, std::optional<QMargins> chosenFor) {
    if (!element() || widget().isMaximized() || looksLeft == 0)
      return;
    const QMargins decoration = widget().windowHandle()->frameMargins();
    if (chosenFor != decoration) {
      const QSize outer(Scale().pixels(window().Width), Scale().pixels(window().Height));
      widget().resize(outer.shrunkBy(decoration));
      moveToPlace();
    }
    constexpr int Pause = 50; // milliseconds
    QTimer::singleShot(Pause, this, [=, this] { fitOuterEdge(looksLeft - 1, decoration); });
  }

  bool restored_ = false; // since it was shown
};

// --- A window of its own: fixed in size, with a close box ----------------------------------------

// Stays in front of the frame, if there is one.
class OwnView final : public WindowView {
public:
  OwnView(Window& window, Screen& screen)
      : WindowView(window, screen, makeWidget(screen.frame()), new Form(window, screen.reporter)) {
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

WindowView* makeView(Window& window, Screen& screen) {
  switch (window.windowKind()) {
  case WindowKind::Frame:
    return new FrameView(window, screen);
  case WindowKind::Child:
    return makeChildView(window, screen);
  case WindowKind::Own:
    break;
  }
  return new OwnView(window, screen);
}

} // namespace forms::qt
