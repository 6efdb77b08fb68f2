#include "desktop/qt/windows.h"

#include <memory>
#include <utility>

#include <QApplication>
#include <QEvent>
#include <QEventLoop>
#include <QMainWindow>
#include <QMdiArea>
#include <QMenuBar>
#include <QScrollBar>
#include <QShortcut>
#include <QTimer>

#include "desktop/qt/child_window.h"
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

// The decoration is of the same size at every scale.
QSize WindowView::sizeAround(QSize decoration, const Scale& scale) const {
  const QSize inner(pixels(window().ClientWidth), pixels(window().ClientHeight));
  const QSize outer(pixels(window().Width), pixels(window().Height));
  const QSize wanted = scale.length(inner.isEmpty() ? outer - decoration : inner);
  return wanted.expandedTo(neededSize(scale)) + decoration;
}

// What comes and goes at run time, such as the units of a board, never stretches the window.
QSize WindowView::neededSize(const Scale& scale) const {
  QRect needed;
  for (const Element* element : window().elements())
    if (element->Visible && element->index() < 0)
      needed |= desktop().viewOf<WidgetView>(*element).placeAt(scale);
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
    return makeChildView(window, desktop);
  case WindowKind::Own:
    break;
  }
  return new OwnView(window, desktop);
}

} // namespace forms::qt
