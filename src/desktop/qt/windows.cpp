#include "desktop/qt/windows.h"

#include <QAction>
#include <QCloseEvent>
#include <QMdiArea>
#include <QMenu>
#include <QMouseEvent>
#include <QScopedValueRollback>

#include "desktop/qt/conversions.h"
#include "desktop/qt/form.h"
#include "desktop/qt/look.h"
#include "desktop/qt/picture_store.h"
#include "desktop/qt/reporter.h"

namespace forms::qt {

ChildWindow::ChildWindow(Window& window, Services services, QMdiArea& area)
    : QMdiSubWindow(nullptr, Qt::SubWindow), services_(services), window_(&window), area_(area),
      form_(new Form(window, services)) {
  setObjectName(toQt(window.name()));
  setWidget(form_);
  // The title's: the system's might be too large for a window of this size.
  setFont(fontFor({}));
  makeSystemMenu();
  // A press on the title would move the focus past the forms layer.
  setFocusPolicy(Qt::NoFocus);
}

void ChildWindow::makeSystemMenu() {
  auto* const menu = new QMenu(this);
  QAction* const close =
      menu->addAction(QStringLiteral("&Cerrar"), this, [this] { this->close(); });
  close->setShortcuts({QKeySequence(QStringLiteral("Ctrl+F4")), QKeySequence(QKeySequence::Close)});
  addAction(close);
  setSystemMenu(menu);
}

void ChildWindow::sync() {
  const Reporter::Quiet quiet(services_.reporter);
  setWindowTitle(toQt(window_->Caption));
  if (const QIcon icon = services_.pictures.icon(toQt(window_->Icon));
      icon.cacheKey() != windowIcon().cacheKey())
    setWindowIcon(icon);
  if (!isVisible())
    return;
  fit();
  if (const QPoint place(pixels(window_->Left), pixels(window_->Top)); !tellingPlace_)
    move(place);
}

void ChildWindow::appear() {
  {
    const Reporter::Quiet quiet(services_.reporter);
    setParent(area_.viewport(), Qt::SubWindow | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                    Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint |
                                    Qt::MSWindowsFixedSizeDialogHint);
    fit();
    area_.addSubWindow(this, windowFlags());
    if (!window_->PlacedByDesktop)
      move(pixels(window_->Left), pixels(window_->Top));
    show();
  }
  tellPlace();
}

void ChildWindow::fit() {
  const QMargins frame = contentsMargins();
  const QSize decoration(frame.left() + frame.right(), frame.top() + frame.bottom());
  const QSize outer(pixels(window_->Width), pixels(window_->Height));
  const QSize inner(pixels(window_->ClientWidth), pixels(window_->ClientHeight));
  QSize size = inner.isEmpty() ? outer : inner + decoration;
  size = size.expandedTo(form_->neededSize() + decoration);
  if (size != minimumSize() || size != maximumSize())
    setFixedSize(size);
}

void ChildWindow::leave() {
  const Reporter::Quiet quiet(services_.reporter);
  window_ = nullptr;
  form_->forget();
  hide();
  area_.removeSubWindow(this);
  services_.reporter.bury(this);
}

void ChildWindow::closeEvent(QCloseEvent* event) {
  event->ignore(); // the forms layer closes it, or not
  if (window_)
    services_.reporter.report([this](Forms& forms) { forms.closeRequested(*window_); });
}

// Qt's own would wait in a loop of its own, in which the window may close.
void ChildWindow::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
}

void ChildWindow::mousePressEvent(QMouseEvent* event) {
  event->accept();
  const bool goesOn = window_ && services_.reporter.report(
                                     [this](Forms& forms) { return forms.activated(*window_); });
  if (goesOn && window_)
    QMdiSubWindow::mousePressEvent(event);
}

void ChildWindow::moveEvent(QMoveEvent* event) {
  QMdiSubWindow::moveEvent(event);
  if (window_ && isVisible() && !services_.reporter.isQuiet())
    tellPlace();
}

// A place between two pixels stays as the program gave it. While one of the two is told, the other
// is still the old one.
void ChildWindow::tellPlace() {
  const QScopedValueRollback telling(tellingPlace_, true);
  if (pixels(window_->Left) != x())
    window_->Left = twips(x());
  if (pixels(window_->Top) != y())
    window_->Top = twips(y());
}

} // namespace forms::qt
