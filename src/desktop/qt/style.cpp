#include "desktop/qt/style.h"

#include <array>

#include <QApplication>
#include <QIcon>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>
#include <QToolTip>
#include <qdrawutil.h>

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
    palette.setColor(color.role, QColor::fromRgb(color.normal));
    palette.setColor(QPalette::Disabled, color.role, QColor::fromRgb(color.disabled));
  }
#if QT_VERSION >= QT_VERSION_CHECK(6, 6, 0)
  for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
    palette.setBrush(group, QPalette::Accent, palette.brush(group, QPalette::Highlight));
#endif
  return palette;
}

class Style final : public QProxyStyle {
public:
  Style() : QProxyStyle(QStringLiteral("Fusion")) {}

  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override {
    constexpr int ChildFrame = 1; // the wider one of the style is a white rim inside
    return metric == PM_MdiSubWindowFrameWidth ? ChildFrame
                                               : QProxyStyle::pixelMetric(metric, option, widget);
  }

  // A button with a colour of its own has that colour as its ground; the style would make light and
  // shade of it.
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
    const QBrush& ground = option->palette.button();
    if (element != PE_PanelButtonCommand || ground == QApplication::palette().button())
      return QProxyStyle::drawPrimitive(element, option, painter, widget);
    const int edge = option->state.testFlag(State_MouseOver) ? 2 : 1; // pixels
    qDrawShadePanel(painter, option->rect, option->palette, option->state.testFlag(State_Sunken),
                    edge, &ground);
  }
};

// Those of the file dialog and the boxes are Qt's own, drawn for light colours: a dark theme's
// would be white on white. Qt takes the system's theme when the program names none.
void leaveSystemIcons() {
  QIcon::setThemeSearchPaths({QStringLiteral(":/icons")});
  QIcon::setThemeName(QStringLiteral("falanges"));
}

} // namespace

void applyStyle() {
  QApplication::setStyle(new Style);
  const QPalette palette = lightPalette();
  QApplication::setPalette(palette);
  QToolTip::setPalette(palette);
  leaveSystemIcons();
}

} // namespace forms::qt
