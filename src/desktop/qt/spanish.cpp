#include "desktop/qt/spanish.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace forms::qt {

void speakSpanish() {
  const QLocale spanish(QLocale::Spanish, QLocale::Spain);
  QLocale::setDefault(spanish);
  auto* const translator = new QTranslator(QCoreApplication::instance());
  const QString name = QStringLiteral("qtbase_es");
  if (translator->load(name,
                       QCoreApplication::applicationDirPath() + QStringLiteral("/translations")) ||
      translator->load(name, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(translator);
}

} // namespace forms::qt
