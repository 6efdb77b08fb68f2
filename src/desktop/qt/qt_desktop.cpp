#include "desktop/qt/qt_desktop.h"

#include <QApplication>
#include <QDateTime>
#include <QDir>

#include "desktop/qt/accessibility.h"
#include "desktop/qt/conversions.h"
#include "desktop/qt/dialogs.h"
#include "desktop/qt/look.h"
#include "desktop/qt/screen.h"
#include "forms/forms.h"

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace forms::qt {

namespace {

// To be called before there is an application.
void setAttributes() {
  // Dialogs of the system would ask questions of their own, and a menu at the screen's edge is
  // none of the frame's.
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
}

// A file dialog leaves a megabyte of freed memory behind, which the C library would keep for a next
// one that may never come.
void giveBackMemory() {
#ifdef __GLIBC__
  malloc_trim(0);
#endif
}

} // namespace

struct QtDesktop::Parts {
  Parts(int& argc, char** argv) : application(argc, argv) {
    QApplication::setQuitOnLastWindowClosed(false);
    applyLook();
    speakSpanish();
    installAccessibility();
  }

  QApplication application;
  Screen screen;
  Forms* forms = nullptr;
  bool ended = false;
};

QtDesktop::QtDesktop(int& argc, char** argv) {
  setAttributes();
  parts_ = std::make_unique<Parts>(argc, argv);
}

QtDesktop::~QtDesktop() = default;

void QtDesktop::connect(Forms& forms) {
  parts_->forms = &forms;
  parts_->screen.connect(forms);
}

int QtDesktop::run() {
  // The first window may have closed before it was all there.
  return parts_->ended ? 0 : QApplication::exec();
}

void QtDesktop::windowOpened(Window& window) {
  parts_->screen.open(window);
}

void QtDesktop::windowClosed(Window& window) {
  parts_->screen.close(window);
  if (!parts_->forms->openWindows().empty())
    return;
  parts_->ended = true;
  QCoreApplication::exit();
}

void QtDesktop::waitModal(Window& window) {
  parts_->screen.waitUntilClosed(window);
}

void QtDesktop::changed(Element& element) {
  parts_->screen.change(element);
}

void QtDesktop::removed(Element& element) {
  parts_->screen.remove(element);
}

void QtDesktop::focusAsked(Element& element) {
  parts_->screen.giveFocus(element);
}

Answer QtDesktop::messageBox(const MessageBox& box) {
  return showMessageBox(box, parts_->screen.front());
}

std::optional<std::string> QtDesktop::fileDialog(const FileDialog& dialog) {
  auto path = showFileDialog(dialog, parts_->screen.front());
  giveBackMemory();
  return path;
}

std::optional<PictureSize> QtDesktop::pictureSize(const std::string& path) {
  return parts_->screen.pictures().size(toQt(path));
}

DateTime QtDesktop::now() {
  const QDateTime now = QDateTime::currentDateTime();
  const QDate date = now.date();
  const QTime time = now.time();
  return {date.year(), date.month(), date.day(), time.hour(), time.minute(), time.second()};
}

std::string QtDesktop::programFolder() {
  return fromQt(QDir::toNativeSeparators(QCoreApplication::applicationDirPath()));
}

} // namespace forms::qt
