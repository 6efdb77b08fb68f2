#include "desktop/qt/own_window.h"

#include <QCloseEvent>

#include "desktop/qt/conversions.h"
#include "desktop/qt/focus_keeper.h"
#include "desktop/qt/form.h"
#include "desktop/qt/picture_store.h"
#include "desktop/qt/reporter.h"

namespace forms::qt {

OwnWindow::OwnWindow(Window& window, Services services, QWidget* frame)
    : QWidget(frame, (frame ? Qt::Dialog : Qt::Window) | Qt::CustomizeWindowHint |
                         Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                         Qt::WindowCloseButtonHint),
      services_(services), window_(&window), form_(new Form(window, services)) {
  setObjectName(toQt(window.name()));
  form_->setParent(this);
}

void OwnWindow::sync() {
  setWindowTitle(toQt(window_->Caption));
  if (const QIcon icon = services_.pictures.icon(toQt(window_->Icon));
      icon.cacheKey() != windowIcon().cacheKey())
    setWindowIcon(icon);
  const QSize inner(pixels(window_->ClientWidth), pixels(window_->ClientHeight));
  const QSize outer(pixels(window_->Width), pixels(window_->Height));
  const QSize size = (inner.isEmpty() ? outer : inner).expandedTo(form_->neededSize());
  setFixedSize(size);
  form_->setGeometry(rect());
}

void OwnWindow::appear() {
  if (window_->isModal())
    setWindowModality(Qt::ApplicationModal);
  if (!window_->PlacedByDesktop)
    move(pixels(window_->Left), pixels(window_->Top));
  show();
}

void OwnWindow::leave() {
  const Reporter::Quiet quiet(services_.reporter);
  window_ = nullptr;
  form_->forget();
  hide();
  services_.reporter.bury(this);
}

bool OwnWindow::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate || event->type() == QEvent::WindowDeactivate)
    services_.focus.windowChanged();
  return QWidget::event(event);
}

void OwnWindow::closeEvent(QCloseEvent* event) {
  event->ignore(); // the forms layer closes it, or not
  if (window_)
    services_.reporter.report([this](Forms& forms) { forms.closeRequested(*window_); });
}

} // namespace forms::qt
