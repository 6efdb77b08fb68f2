#include "desktop/qt/qt_desktop.h"

#include <QDateTime>
#include <QDir>
#include <QSessionManager>

#include "desktop/qt/accessibility.h"
#include "desktop/qt/conversions.h"
#include "desktop/qt/elements.h"
#include "desktop/qt/file_dialog.h"
#include "desktop/qt/look.h"
#include "desktop/qt/message_box.h"
#include "desktop/qt/windows.h"

namespace forms::qt {

// --- From start to end ---------------------------------------------------------------------------

Application::Application(int& argc, char** argv, Reporter& reporter)
    : QApplication(argc, argv), reporter_(reporter) {
  connect(this, &QGuiApplication::commitDataRequest, this, [&reporter](QSessionManager& session) {
    session.setRestartHint(QSessionManager::RestartNever); // it would come back without its game
    if (!session.allowsInteraction())
      return;
    if (reporter.report([](Forms& forms) { return forms.sessionMayEnd(); }))
      session.release();
    else
      session.cancel();
  });
}

// The session ends, and the person has agreed to that. Qt would ask each window to close once more.
bool Application::event(QEvent* event) {
  if (event->type() != QEvent::Quit)
    return QApplication::event(event);
  reporter_.forms().sessionEnded();
  exit();
  return true;
}

QtDesktop::QtDesktop(int& argc, char** argv) : application_(argc, argv, reporter_) {
  // Boxes of the system would have its texts, and a menu at the screen's edge is none of the
  // frame's.
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
  QApplication::setQuitOnLastWindowClosed(false);
  applyLook();
  speakSpanish();
  installAccessibility();
}

QtDesktop::~QtDesktop() {
  for (ElementView* view : std::as_const(views_))
    view->detach();
  for (ElementView* view : std::as_const(views_))
    if (auto* const window = dynamic_cast<WindowView*>(view))
      window->remove();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

int QtDesktop::run() {
  // The first window may have closed before it was all there.
  return reporter_.forms().openWindows().empty() ? 0 : QApplication::exec();
}

// --- Windows and elements ------------------------------------------------------------------------

void QtDesktop::windowOpened(Window& window) {
  WindowView* const view = makeView(window, *this);
  views_.insert(&window, view);
  if (window.windowKind() == WindowKind::Frame)
    frame_ = &view->widget();
  for (Element* element : window.elements())
    changed(*element);
  view->sync();
  view->appear();
}

void QtDesktop::windowClosed(Window& window) {
  auto& view = viewOf<WindowView>(window);
  if (frame_ == &view.widget())
    frame_ = nullptr;
  // The widgets of the elements go with their window.
  views_.removeIf([&](auto entry) {
    const bool goes = &entry.key()->window() == &window;
    if (goes)
      entry.value()->detach();
    return goes;
  });
  view.remove();
  if (reporter_.forms().openWindows().empty())
    QCoreApplication::exit();
}

void QtDesktop::waitModal(Window& window) {
  viewOf<WindowView>(window).waitUntilRemoved();
}

void QtDesktop::changed(Element& element) {
  if (!views_.contains(&element)) {
    auto& window = viewOf<WindowView>(element.window());
    if (!window.hasPlaceFor(element))
      return;
    views_.insert(&element, makeView(element, window, *this));
  }
  viewOf<ElementView>(element).sync();
}

void QtDesktop::removed(Element& element) {
  viewOf<ElementView>(element).remove();
  views_.remove(&element);
}

void QtDesktop::focusAsked(Element& element) {
  if (element.kind() == Kind::Window)
    focus_.activate(element.window());
  else if (viewOf<WindowView>(element.window()).hasPlaceFor(element))
    focus_.give(element);
}

// --- Boxes ---------------------------------------------------------------------------------------

namespace {

// The folder itself or the nearest one above it that exists.
std::string existingFolder(const std::string& wanted) {
  QDir folder(QDir::fromNativeSeparators(toQt(wanted)));
  while (!folder.exists()) {
    const QString above = QFileInfo(folder.absolutePath()).path();
    if (above == folder.absolutePath())
      break;
    folder.setPath(above);
  }
  return fromQt(QDir::toNativeSeparators(folder.absolutePath()));
}

} // namespace

QWidget* QtDesktop::front() const {
  if (QWidget* const active = QApplication::activeModalWidget())
    return active;
  return frame_ && frame_->isVisible() ? frame_ : nullptr;
}

Answer QtDesktop::messageBox(const MessageBox& box) {
  return showMessageBox(box, pictures_.icon(toQt(box.icon)), front());
}

std::optional<std::string> QtDesktop::fileDialog(const FileDialog& dialog) {
  FileDialog shown = dialog;
  shown.folder = existingFolder(dialog.folder);
  return showFileDialog(shown, front());
}

// --- The system ----------------------------------------------------------------------------------

std::optional<PictureSize> QtDesktop::pictureSize(const std::string& path) {
  return pictures_.size(toQt(path));
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
