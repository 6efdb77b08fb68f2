// The windows on screens of several densities, in a frame too small for them, and in large type.
#include <QApplication>
#include <QComboBox>
#include <QFontInfo>
#include <QLabel>
#include <QMdiArea>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QWindow>
#include <cmath>
#include <gtest/gtest.h>

#include "desktop/qt/qt_player.h"
#include "shell/app.h"
#include "shell/information_box.h"

using namespace scripted;

namespace {

// Qt reads it when the application is made.
struct Scale {
  explicit Scale(const char* scale) { qputenv("QT_SCALE_FACTOR", scale); }
  ~Scale() { qunsetenv("QT_SCALE_FACTOR"); }
  Scale(const Scale&) = delete;
  Scale& operator=(const Scale&) = delete;
};

class Windows : public testing::TestWithParam<const char*> {
protected:
  void SetUp() override {
    ASSERT_EQ(QString::number(qApp->devicePixelRatio()), GetParam());
    player.expectBox(falanges::informationBox().text, forms::Answer::Ok, onBox);
    app.start();
  }
  // Each pixel of the screen near the lines between the squares, along a row and along a column.
  void expectPixelsOnTheirSquares(const forms::Picture& board, int side) {
    QWidget& widget = player.widget(board);
    const double scale = widget.devicePixelRatioF();
    const auto expectHint = [&](double x, double y, int row, int column) {
      const QPointF place(x + 1, y + 1); // behind the frame
      QMouseEvent move(QEvent::MouseMove, place, widget.mapToGlobal(place), Qt::NoButton,
                       Qt::NoButton, Qt::NoModifier);
      QCoreApplication::sendEvent(&widget, &move);
      const QString number = row * column == 0 ? "" : QString::number((row - 1) * side + column);
      EXPECT_EQ(widget.toolTip(), QString("Cuadro: %1 (%2,%3)").arg(number).arg(row).arg(column));
    };
    for (int line = 0; line < side; ++line)
      for (int device = -2; device <= 2; ++device) {
        const double place = (std::floor(line * 1180 / 15.0 * scale) + device) / scale;
        const int square = static_cast<int>(std::ceil(std::floor(place) * 15 / 1180));
        if (place < 0)
          continue;
        expectHint(place, 200, 3, square);
        expectHint(200, place, square, 3);
      }
  }

  Meanwhile onBox; // while a box is open
  Scale set{GetParam()};
  QtPlayer player;
  falanges::App app{player};
};

TEST_P(Windows, MeanTheRightSquareUnderEachPixel) {
  player.menu(app.frame.mnuNuevoJuego);
  for (int side = 5; side <= 8; ++side) {
    player.choose(app.nuevoJuego.comTablero, side - 5);
    expectPixelsOnTheirSquares(app.nuevoJuego.picTablero, side);
  }
}

TEST_P(Windows, LeaveEverySquareInReachOfASmallFrame) {
  app.principal.OpcLimiteFilas = "1"; // units on any row
  player.menu(app.frame.mnuNuevoJuego);
  player.choose(app.nuevoJuego.comTablero, 3);
  player.click(app.nuevoJuego.picINF);
  QWidget& frame = player.widget(app.frame);
  frame.showNormal();
  frame.resize(400, 300);
  QCoreApplication::processEvents();
  const auto& area = *frame.findChild<QMdiArea*>();
  QWidget& board = player.widget(app.nuevoJuego.picTablero);
  for (int n = 64; n > 32; --n) {
    const QPoint middle = QPoint((n - 1) % 8, (n - 1) / 8) * 1180 / 15 + QPoint(40, 40);
    const QPoint off = board.mapTo(area.viewport(), middle) - area.viewport()->rect().center();
    area.horizontalScrollBar()->setValue(area.horizontalScrollBar()->value() + off.x());
    area.verticalScrollBar()->setValue(area.verticalScrollBar()->value() + off.y());
    ASSERT_TRUE(area.viewport()->rect().contains(board.mapTo(area.viewport(), middle))) << n;
    QTest::mouseClick(frame.windowHandle(), Qt::LeftButton, {}, board.mapTo(&frame, middle));
    EXPECT_TRUE(app.nuevoJuego.picUnidad(n) && app.nuevoJuego.picUnidad(65 - n)) << n;
  }
}

INSTANTIATE_TEST_SUITE_P(AtScale, Windows, testing::Values("1", "1.5", "2"));

// Everything with a text has the room that it needs, inside what it stands on.
void expectTextsWhole() {
  // What has changed its text since the layout came to rest may still wait for its place.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
  for (const QWidget* shown : QApplication::allWidgets()) {
    const auto* const label = qobject_cast<const QLabel*>(shown);
    const QString text =
        shown->property("text").toString() + shown->property("currentText").toString();
    if (!shown->isVisible() || shown->isWindow() || text.isEmpty())
      continue;
    QSize needed = shown->fontMetrics().size(Qt::TextShowMnemonic, text);
    if (label && label->wordWrap())
      needed = {0, label->heightForWidth(label->width())};
    EXPECT_EQ(needed.boundedTo(shown->contentsRect().size()), needed) << text.toStdString();
    EXPECT_TRUE(shown->parentWidget()->rect().contains(shown->geometry())) << text.toStdString();
  }
}

// Where no system's font has the measures that the windows are drawn for. Read at the first
// application.
struct WideLetters {
  WideLetters() {
    qputenv("FONTCONFIG_FILE", QT_TESTCASE_SOURCEDIR "/desktop/qt/golden/one-font.conf");
  }
};

class WindowsInOneFont : WideLetters, public Windows {};

INSTANTIATE_TEST_SUITE_P(AtScale, WindowsInOneFont, testing::Values("1"));

TEST_P(WindowsInOneFont, CutNoText) {
  player.menu(app.frame.mnuOpciones);
  expectTextsWhole();
  const QFontInfo drawn(player.widget(app.opciones.lblBandera).font());
  EXPECT_TRUE(drawn.family() == "Liberation Sans" || drawn.family() == "Arial");
  app.opciones.lblBandera.Caption = "Lo que en otra lengua, u otras letras, es largo";
  app.opciones.btnCargarJuegoRed.Caption = "Lo que en otra lengua, u otras letras, es largo";
  expectTextsWhole();
  player.menu(app.frame.mnuNuevoJuego);
  app.enJuego.open();
  app.enJuego.lblJ1_Estado.Caption = "En otra lengua, más o menos largo";
  expectTextsWhole();
}

// As a system may be set to large type, before the start or later.
class WindowsInLargeType : public Windows {
protected:
  WindowsInLargeType() {
    enlarge(1.5);
    onBox = expectTextsWhole;
  }
  static void enlarge(double factor) {
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * factor);
    QApplication::setFont(font);
  }
};

INSTANTIATE_TEST_SUITE_P(AtScale, WindowsInLargeType, testing::Values("1"));

TEST_P(WindowsInLargeType, CutNoText) {
  for (const double larger : {4.0 / 3, 1.0}) {
    player.menu(app.frame.mnuOpciones);
    expectTextsWhole();
    player.menu(app.frame.mnuNuevoJuego);
    expectTextsWhole();
    app.enJuego.open();
    expectTextsWhole();
    app.enJuego.close();
    app.nuevoJuego.close();
    player.expectFile("Cargar Juego", std::nullopt, expectTextsWhole);
    player.menu(app.frame.mnuCargarJuego);
    enlarge(larger);
  }
}

} // namespace
