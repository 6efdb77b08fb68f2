#include "desktop/qt/frame_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMdiArea>
#include <QMenuBar>
#include <QScrollBar>

#include "desktop/qt/conversions.h"
#include "desktop/qt/focus_keeper.h"
#include "desktop/qt/picture_store.h"
#include "desktop/qt/reporter.h"

namespace forms::qt {

FrameWindow::FrameWindow(Window& window, Services services)
    : services_(services), window_(&window), area_(new QMdiArea(this)) {
  setObjectName(toQt(window.name()));
  area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  area_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  area_->setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
  if (window.BackColor)
    area_->setBackground(toQt(*window.BackColor));
  // Their menus wait in a loop of their own, in which a child window may close.
  for (QScrollBar* bar : {area_->horizontalScrollBar(), area_->verticalScrollBar()})
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
  setCentralWidget(area_);
  menuBar()->setContextMenuPolicy(Qt::PreventContextMenu);
  services.focus.watch(*area_);
}

void FrameWindow::sync() {
  setWindowTitle(toQt(window_->Caption));
  const QIcon icon = services_.pictures.icon(toQt(window_->Icon));
  setWindowIcon(icon);
  QApplication::setWindowIcon(icon); // of the boxes
}

void FrameWindow::appear() {
  resize(pixels(window_->Width), pixels(window_->Height));
  if (window_->Maximized)
    showMaximized();
  else
    show();
}

void FrameWindow::leave() {
  window_ = nullptr;
  hide();
  services_.reporter.bury(this);
}

bool FrameWindow::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate || event->type() == QEvent::WindowDeactivate)
    services_.focus.windowChanged();
  return QMainWindow::event(event);
}

void FrameWindow::closeEvent(QCloseEvent* event) {
  event->ignore(); // the forms layer closes it, or not
  if (window_)
    services_.reporter.report([this](Forms& forms) { forms.closeRequested(*window_); });
}

} // namespace forms::qt
