#include "desktop/qt/qt_desktop.h"

#include <utility>

#include <QDateTime>
#include <QDir>

#include "desktop/qt/conversions.h"
#include "desktop/qt/file_dialog.h"
#include "desktop/qt/message_box.h"
#include "desktop/qt/window_view.h"

namespace forms::qt {

// --- From start to end ---------------------------------------------------------------------------

QtDesktop::QtDesktop(int& argc, char** argv) : application_(argc, argv) {
  application_.sessionMayEnd = [this] {
    return screen_.reporter.report([](Forms& forms) { return forms.sessionMayEnd(); });
  };
  application_.sessionEnded = [this] { screen_.reporter.forms().sessionEnded(); };
}

QtDesktop::~QtDesktop() {
  for (ElementView* view : std::as_const(screen_.views))
    view->detach();
  for (ElementView* view : std::as_const(screen_.views))
    if (auto* const window = dynamic_cast<WindowView*>(view))
      window->remove();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

int QtDesktop::run() {
  // The first window may have closed before it was all there.
  return screen_.reporter.forms().openWindows().empty() ? 0 : QApplication::exec();
}

// --- Windows and elements ------------------------------------------------------------------------

void QtDesktop::windowOpened(Window& window) {
  WindowView* const view = makeView(window, screen_);
  screen_.views.insert(&window, view);
  for (Element* element : window.elements())
    changed(*element);
  view->sync();
  view->appear();
}

void QtDesktop::windowClosed(Window& window) {
  auto& view = viewOf<WindowView>(screen_.views, window);
  // The widgets of the elements go with their window.
  screen_.views.removeIf([&](auto entry) {
    const bool goes = &entry.key()->window() == &window;
    if (goes)
      entry.value()->detach();
    return goes;
  });
  view.remove();
  if (screen_.reporter.forms().openWindows().empty())
    QCoreApplication::exit();
}

void QtDesktop::waitModal(Window& window) {
  viewOf<WindowView>(screen_.views, window).waitUntilRemoved();
}

void QtDesktop::changed(Element& element) {
  if (!screen_.views.contains(&element)) {
    auto& window = viewOf<WindowView>(screen_.views, element.window());
    if (!window.hasPlaceFor(element))
      return;
    screen_.views.insert(&element, makeView(element, window, screen_));
  }
  viewOf<ElementView>(screen_.views, element).sync();
}

void QtDesktop::removed(Element& element) {
  auto& view = viewOf<WidgetView>(screen_.views, element);
  view.detach();
  view.remove();
  screen_.views.remove(&element);
}

void QtDesktop::focusAsked(Element& element) {
  if (element.kind() == Kind::Window)
    screen_.focus.activate(element.window());
  else if (viewOf<WindowView>(screen_.views, element.window()).hasPlaceFor(element))
    screen_.focus.give(element);
}

// --- Boxes ---------------------------------------------------------------------------------------

QWidget* QtDesktop::front() const {
  if (QWidget* const active = QApplication::activeModalWidget())
    return active;
  QWidget* const frame = screen_.frame();
  return frame && frame->isVisible() ? frame : nullptr;
}

Answer QtDesktop::messageBox(const MessageBox& box) {
  if (QWidget* const frame = screen_.frame())
    QApplication::alert(frame); // does nothing while the program is in front
  return showMessageBox(box, screen_.pictures.icon(toQt(box.icon)), front());
}

std::optional<std::string> QtDesktop::fileDialog(const FileDialog& dialog) {
  return showFileDialog(dialog, front());
}

// --- The system ----------------------------------------------------------------------------------

std::optional<PictureSize> QtDesktop::pictureSize(const std::string& path) {
  return screen_.pictures.size(toQt(path));
}

DateTime QtDesktop::now() {
  const QDateTime now = QDateTime::currentDateTime();
  const QDate date = now.date();
  const QTime time = now.time();
  return {date.year(), date.month(), date.day(), time.hour(), time.minute(), time.second()};
}

std::string QtDesktop::programFolder() {
  QString folder = QDir::toNativeSeparators(QCoreApplication::applicationDirPath());
  if (folder.endsWith(QDir::separator())) // a root folder
    folder.chop(1);
  return fromQt(folder);
}

} // namespace forms::qt
