#include "desktop/qt/look.h"

#include <algorithm>
#include <array>
#include <cmath>

#include <QApplication>
#include <QFontDatabase>
#include <QHash>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QToolTip>
#include <QTranslator>
#include <QWidget>

#include "desktop/qt/conversions.h"

namespace forms::qt {

namespace {

struct RoleColor {
  QPalette::ColorRole role;
  QRgb normal;
  QRgb disabled;
};

// Every role is given: what is left out would come from the system's theme, perhaps a dark one.
constexpr std::array RoleColors{
    RoleColor{QPalette::Window, 0xfff0f0f0, 0xfff0f0f0},
    RoleColor{QPalette::WindowText, 0xff000000, 0xff787878},
    RoleColor{QPalette::Base, 0xffffffff, 0xfff0f0f0},
    RoleColor{QPalette::AlternateBase, 0xfff7f7f7, 0xfff0f0f0},
    RoleColor{QPalette::ToolTipBase, 0xffffffdc, 0xffffffdc},
    RoleColor{QPalette::ToolTipText, 0xff000000, 0xff000000},
    RoleColor{QPalette::PlaceholderText, 0xff6e6e6e, 0xff787878},
    RoleColor{QPalette::Text, 0xff000000, 0xff787878},
    RoleColor{QPalette::Button, 0xfff0f0f0, 0xfff0f0f0},
    RoleColor{QPalette::ButtonText, 0xff000000, 0xff787878},
    RoleColor{QPalette::BrightText, 0xffffffff, 0xffffffff},
    RoleColor{QPalette::Light, 0xffffffff, 0xffffffff},
    RoleColor{QPalette::Midlight, 0xffe3e3e3, 0xffe3e3e3},
    RoleColor{QPalette::Mid, 0xffb8b8b8, 0xffb8b8b8},
    RoleColor{QPalette::Dark, 0xff9f9f9f, 0xff9f9f9f},
    RoleColor{QPalette::Shadow, 0xff696969, 0xff696969},
    RoleColor{QPalette::Highlight, 0xff2f6fb7, 0xff9fb8d3},
    RoleColor{QPalette::HighlightedText, 0xffffffff, 0xffffffff},
    RoleColor{QPalette::Link, 0xff0b57c4, 0xff787878},
    RoleColor{QPalette::LinkVisited, 0xff6a2fa0, 0xff787878},
};

QPalette lightPalette() {
  QPalette palette;
  for (const RoleColor& color : RoleColors) {
    palette.setColor(QPalette::Active, color.role, QColor::fromRgb(color.normal));
    palette.setColor(QPalette::Inactive, color.role, QColor::fromRgb(color.normal));
    palette.setColor(QPalette::Disabled, color.role, QColor::fromRgb(color.disabled));
  }
#if QT_VERSION >= QT_VERSION_CHECK(6, 6, 0)
  for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
    palette.setBrush(group, QPalette::Accent, palette.brush(group, QPalette::Highlight));
#endif
  return palette;
}

// Of the same measures, too: for systems that have neither. Empty when its files are missing.
QString carriedFamily() {
  const QString folder = QCoreApplication::applicationDirPath() + QStringLiteral("/fonts/");
  const int regular =
      QFontDatabase::addApplicationFont(folder + QStringLiteral("LiberationSans-Regular.ttf"));
  QFontDatabase::addApplicationFont(folder + QStringLiteral("LiberationSans-Bold.ttf"));
  return QFontDatabase::applicationFontFamilies(regular).value(0);
}

// The families that stand in for those wanted, as the application has found them.
QHash<QString, QString>& families() {
  static QHash<QString, QString> found;
  return found;
}

QString availableFamily(const QString& wanted) {
  QString& family = families()[wanted];
  if (!family.isEmpty())
    return family;
  const bool serif = wanted.startsWith(QLatin1String("Times"));
  // The two are of the same measures. Not "MS Sans Serif" itself: where it exists it is a bitmap
  // font, which cannot follow the scale of the screen.
  for (const QString& candidate :
       {serif ? QStringLiteral("Liberation Serif") : QStringLiteral("Liberation Sans"),
        serif ? QStringLiteral("Times New Roman") : QStringLiteral("Arial")})
    if (QFontDatabase::hasFamily(candidate))
      return family = candidate;
  if (const QString carried = serif ? QString() : carriedFamily(); !carried.isEmpty())
    return family = carried;
  return family = wanted;
}

// Those of the file dialog and the boxes are Qt's own, drawn for light colours: a dark theme's
// would be white on white. Qt takes the system's theme when the program names none.
void leaveSystemIcons() {
  QIcon::setThemeSearchPaths({QStringLiteral(":/icons")});
  QIcon::setThemeName(QStringLiteral("falanges"));
}

} // namespace

void applyLook() {
  families().clear();
  QApplication::setStyle(QStringLiteral("Fusion"));
  const QPalette palette = lightPalette();
  QApplication::setPalette(palette);
  QToolTip::setPalette(palette);
  leaveSystemIcons();
}

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

QFont fontFor(const Font& font, const Scale& scale) {
  constexpr double PixelsPerPoint = 96.0 / 72.0;
  QFont made(availableFamily(toQt(font.family)));
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

void applyColors(QWidget& widget, const Element& element, QPalette::ColorRole background,
                 QPalette::ColorRole foreground) {
  QPalette palette = widget.palette();
  if (element.BackColor)
    palette.setColor(background, toQt(*element.BackColor));
  if (element.ForeColor)
    palette.setColor(foreground, toQt(*element.ForeColor));
  widget.setPalette(palette);
}

} // namespace forms::qt
