#include "desktop/qt/window_view.h"

#include <memory>

#include <QApplication>
#include <QEvent>
#include <QEventLoop>

#include "desktop/qt/conversions.h"

namespace forms::qt {

WindowView::WindowView(Window& window, Screen& screen, QWidget* widget, Form* form)
    : WidgetView(window, screen.reporter, widget), screen_(screen), form_(form) {}

void WindowView::syncWidget() {
  widget().setWindowTitle(toQt(window().Caption));
  if (const QIcon icon = screen_.pictures.icon(toQt(window().Icon));
      icon.cacheKey() != widget().windowIcon().cacheKey()) {
    widget().setWindowIcon(icon);
    if (window().windowKind() == WindowKind::Frame)
      QApplication::setWindowIcon(icon); // of the boxes
  }
  syncPlace();
}

void WindowView::detach() {
  if (form_)
    form_->detach();
  WidgetView::detach();
}

void WindowView::remove() {
  WidgetView::remove();
  if (waiting_)
    waiting_->quit();
}

void WindowView::waitUntilRemoved() {
  const auto loop = std::make_unique<QEventLoop>();
  waiting_ = loop.get();
  loop->exec();
}

// The decoration is of the same size at every scale.
QSize WindowView::sizeAround(QSize decoration, const Scale& scale) const {
  const QSize inner(Scale().pixels(window().ClientWidth), Scale().pixels(window().ClientHeight));
  const QSize outer(Scale().pixels(window().Width), Scale().pixels(window().Height));
  const QSize wanted = scale.length(inner.isEmpty() ? outer - decoration : inner);
  return wanted.expandedTo(neededSize(scale)) + decoration;
}

// What comes and goes at run time, such as the units of a board, never stretches the window.
QSize WindowView::neededSize(const Scale& scale) const {
  QRect needed;
  for (const Element* element : window().elements())
    if (element->Visible && element->index() < 0)
      needed |= viewOf<WidgetView>(screen_.views, *element).placeAt(scale);
  return {needed.right() + 1, needed.bottom() + 1};
}

void WindowView::moveToPlace() {
  widget().move(Scale().pixels(window().Left), Scale().pixels(window().Top));
}

bool WindowView::eventFilter(QObject* /*watched*/, QEvent* event) {
  if (event->type() != QEvent::Close)
    return false;
  event->ignore(); // the forms layer closes it, or not
  if (element())
    reporter().report([this](Forms& forms) { forms.closeRequested(window()); });
  return true;
}

} // namespace forms::qt
