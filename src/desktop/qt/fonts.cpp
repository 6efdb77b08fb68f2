#include "desktop/qt/fonts.h"

#include <algorithm>
#include <cmath>

#include <QCoreApplication>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QWidget>

#include "desktop/qt/conversions.h"

namespace forms::qt {

namespace {

// For systems that have no family of the same measures. Empty when its files are missing.
QString carriedFamily() {
  const QString folder = QCoreApplication::applicationDirPath() + QStringLiteral("/fonts/");
  const int regular =
      QFontDatabase::addApplicationFont(folder + QStringLiteral("LiberationSans-Regular.ttf"));
  QFontDatabase::addApplicationFont(folder + QStringLiteral("LiberationSans-Bold.ttf"));
  return QFontDatabase::applicationFontFamilies(regular).value(0);
}

// The family itself or one of the same measures.
QString availableFamily(const QString& wanted) {
  const bool serif = wanted.startsWith(QLatin1String("Times"));
  // The two are of the same measures. Not "MS Sans Serif" itself: where it exists it is a bitmap
  // font, which cannot follow the scale of the screen.
  for (const QString& candidate :
       {serif ? QStringLiteral("Liberation Serif") : QStringLiteral("Liberation Sans"),
        serif ? QStringLiteral("Times New Roman") : QStringLiteral("Arial")})
    if (QFontDatabase::hasFamily(candidate))
      return candidate;
  if (QString carried = serif ? QString() : carriedFamily(); !carried.isEmpty())
    return carried;
  return wanted;
}

} // namespace

QFont Fonts::fontFor(const Font& font, const Scale& scale) {
  constexpr double PixelsPerPoint = 96.0 / 72.0;
  const QString wanted = toQt(font.family);
  QString& family = families_[wanted];
  if (family.isEmpty())
    family = availableFamily(wanted);
  QFont made(family);
  // Rather a little smaller than cut.
  const auto whole = static_cast<int>(std::lround(font.points * PixelsPerPoint));
  made.setPixelSize(whole * scale.percent() / 100);
  made.setBold(font.bold);
  return made;
}

void fitText(QWidget& widget, QFont font, const QString& text, const QSize& room, bool wrapped) {
  constexpr int Narrowest =
      60; // per cent: from there on smaller letters are the better ones to read
  const int flags = Qt::TextShowMnemonic | (wrapped ? Qt::TextWordWrap : 0);
  QSize needed;
  const auto fits = [&] {
    needed = QFontMetrics(font).boundingRect({{}, room}, flags, text).size();
    return needed.width() <= room.width() && (!wrapped || needed.height() <= room.height());
  };
  for (int width = QFont::Unstretched; !fits() && width > Narrowest; font.setStretch(width)) {
    width = std::min(width - 1, width * room.width() / std::max(1, needed.width()));
    width = std::max(width, Narrowest);
  }
  while (!fits() && font.pixelSize() > 1)
    font.setPixelSize(font.pixelSize() - 1);
  if (widget.font() != font)
    widget.setFont(font);
}

} // namespace forms::qt
