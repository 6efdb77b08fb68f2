#include "desktop/qt/application.h"

#include <QEvent>
#include <QLibraryInfo>
#include <QLocale>
#include <QSessionManager>
#include <QTranslator>

#include "desktop/qt/accessibility.h"
#include "desktop/qt/style.h"

namespace forms::qt {

namespace {

// Keys are named as they stand on the keyboard; Qt's translation has "Control".
class Spanish final : public QTranslator {
public:
  using QTranslator::QTranslator;

  QString translate(const char* context, const char* text, const char* note,
                    int number) const override {
    const bool isKey = QLatin1String(context) == QLatin1String("QShortcut") &&
                       QLatin1String(text) == QLatin1String("Ctrl");
    return isKey ? QStringLiteral("Ctrl") : QTranslator::translate(context, text, note, number);
  }
};

// Makes Spanish the language of Qt's own texts. Without Qt's translation file its few texts stay
// English.
void speakSpanish() {
  const QLocale spanish(QLocale::Spanish, QLocale::Spain);
  QLocale::setDefault(spanish);
  auto* const translator = new Spanish(qApp);
  const QString name = QStringLiteral("qtbase_es");
  if (translator->load(name,
                       QCoreApplication::applicationDirPath() + QStringLiteral("/translations")) ||
      translator->load(name, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(translator);
}

} // namespace

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
  // Boxes of the system would have its texts, and a menu at the screen's edge is none of the
  // frame's.
  setAttribute(Qt::AA_DontUseNativeDialogs);
  setAttribute(Qt::AA_DontUseNativeMenuBar);
  setQuitOnLastWindowClosed(false);
  applyStyle();
  speakSpanish();
  installAccessibility();
  connect(this, &QGuiApplication::commitDataRequest, this, [this](QSessionManager& session) {
    session.setRestartHint(QSessionManager::RestartNever); // it would come back without its game
    if (!session.allowsInteraction())
      return;
    if (sessionMayEnd())
      session.release();
    else
      session.cancel();
  });
}

// The session ends, and the person has agreed to that. Qt would ask each window to close once more.
bool Application::event(QEvent* event) {
  if (event->type() != QEvent::Quit)
    return QApplication::event(event);
  sessionEnded();
  exit();
  return true;
}

} // namespace forms::qt
