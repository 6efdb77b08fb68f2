// Every window at the scale that the process runs at (QT_SCALE_FACTOR): nothing is cut, and every
// pixel of the boards means the right square.
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QMdiArea>
#include <QMenuBar>
#include <QMouseEvent>
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

class Windows : public testing::Test {
protected:
  void SetUp() override {
    player.expectBox(falanges::informationBox().text, forms::Answer::Ok, onBox);
    app.start();
  }
  void TearDown() override {
    player.expectBox("¿Está seguro de salir y cerrar todo?", forms::Answer::Yes, onBox);
    player.expectBox(falanges::informationBox().text, forms::Answer::Ok, onBox);
    EXPECT_TRUE(player.closeWindow(app.frame));
  }

  // Everything with a text has the room that it needs, inside what it stands on.
  static void expectTextsWhole(const QWidget& around) {
    for (const QWidget* shown : around.findChildren<QWidget*>()) {
      const auto* const label = qobject_cast<const QLabel*>(shown);
      const auto* const button = qobject_cast<const QAbstractButton*>(shown);
      const auto* const list = qobject_cast<const QComboBox*>(shown);
      const QString text = label    ? label->text()
                           : button ? button->text()
                           : list   ? list->currentText()
                                    : QString();
      if (!shown->isVisible() || text.isEmpty())
        continue;
      QSize needed = shown->fontMetrics().size(Qt::TextShowMnemonic, text);
      if (label && label->wordWrap())
        needed = {0, label->heightForWidth(label->width())};
      EXPECT_EQ(needed.boundedTo(shown->contentsRect().size()), needed) << text.toStdString();
      EXPECT_TRUE(shown->parentWidget()->rect().contains(shown->geometry())) << text.toStdString();
    }
  }
  static void expectDialogWhole() {
    // What has changed its text since the layout came to rest may still wait for its place.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    expectTextsWhole(*QApplication::activeModalWidget());
  }
  void expectNothingCut(const forms::Window& window) {
    QWidget& form = *player.widget(window).findChild<QWidget*>(window.name().c_str());
    expectTextsWhole(form);
    for (const QWidget* shown : form.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
      EXPECT_TRUE(!shown->isVisible() || shown->testAttribute(Qt::WA_TransparentForMouseEvents) ||
                  form.rect().contains(shown->geometry()))
          << shown->objectName().toStdString();
    const QPixmap seen = form.grab();
    EXPECT_EQ(seen.size(), form.size() * seen.devicePixelRatio()) << window.name();
  }

  // Opens every window, and closes it.
  void expectAllWhole() {
    player.menu(app.frame.mnuOpciones);
    expectNothingCut(app.opciones);
    player.menu(app.frame.mnuNuevoJuego);
    expectNothingCut(app.nuevoJuego);
    player.expectModal("frmMsgBox", [&] {
      expectNothingCut(app.msgBox);
      EXPECT_TRUE(player.closeWindow(app.msgBox));
    });
    player.shortcut(app.nuevoJuego.Command1);
    app.enJuego.open();
    expectNothingCut(app.enJuego);
    app.enJuego.close();
    EXPECT_TRUE(player.closeWindow(app.nuevoJuego));
  }

  // Walks along a row and a column of device pixels through every square, and over the edges.
  void expectEveryPixelOnItsSquare(const forms::Picture& board, int side) {
    QWidget& widget = player.widget(board);
    const double scale = widget.devicePixelRatioF();
    const auto hint = [&](double x, double y) {
      const QPointF place(x + 1, y + 1); // behind the frame
      QMouseEvent move(QEvent::MouseMove, place, widget.mapToGlobal(place), Qt::NoButton,
                       Qt::NoButton, Qt::NoModifier);
      QCoreApplication::sendEvent(&widget, &move);
      return widget.toolTip().toStdString();
    };
    const int pixels = static_cast<int>((widget.width() - 2) * scale);
    for (int device = 0; device < pixels; ++device) {
      const double place = device / scale;
      const int line = static_cast<int>(std::ceil(std::floor(place) * 15 / 1180));
      const int across = 2 + device % 3; // 2 to 4
      const double other = (across - 0.5) * 1180 / 15;
      const auto expected = [&](int row, int column) {
        const std::string number = line == 0 ? "" : std::to_string((row - 1) * side + column);
        return "Cuadro: " + number + " (" + std::to_string(row) + "," + std::to_string(column) +
               ")";
      };
      ASSERT_EQ(hint(place, other), expected(across, line)) << device;
      ASSERT_EQ(hint(other, place), expected(line, across)) << device;
    }
  }

  Meanwhile onBox; // while a box is open
  QtPlayer player;
  falanges::App app{player};
};

TEST_F(Windows, ShowAllOfEveryBoardAndMeanTheRightSquares) {
  expectAllWhole();
  player.menu(app.frame.mnuNuevoJuego);
  for (int side = 5; side <= 8; ++side) {
    player.choose(app.nuevoJuego.comTablero, side - 5);
    EXPECT_EQ(app.principal.NumColumnas, side);
    expectNothingCut(app.nuevoJuego);
    expectEveryPixelOnItsSquare(app.nuevoJuego.picTablero, side);
    for (const int n : {1, side * side}) {
      app.principal.Casillas(n).Jugador = n == 1 ? 2 : 1;
      app.principal.Casillas(n).TUnidad = falanges::GEN;
    }
    app.enJuego.open();
    expectNothingCut(app.enJuego);
    app.enJuego.close();
  }
}

TEST_F(Windows, LeaveEverySquareInReachOfASmallFrame) {
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

// As a system may be set to large type, before the start or later.
class WindowsInLargeType : public Windows {
protected:
  WindowsInLargeType() {
    enlarge(1.5);
    onBox = expectDialogWhole;
  }
  static void enlarge(double factor) {
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * factor);
    QApplication::setFont(font);
  }
  // A menu bar or a menu.
  template <class Menu> static void expectEntriesWhole(Menu& menu) {
    for (QAction* entry : menu.actions())
      EXPECT_TRUE(!entry->isVisible() ||
                  menu.actionGeometry(entry).width() >=
                      menu.fontMetrics().size(Qt::TextShowMnemonic, entry->text()).width())
          << entry->text().toStdString();
  }
};

TEST_F(WindowsInLargeType, CutNoText) {
  for (const double larger : {4.0 / 3, 1.0}) {
    expectAllWhole();
    auto& bar = *player.widget(app.frame).findChild<QMenuBar*>();
    expectEntriesWhole(bar);
    QMenu& menu = *bar.actions().constFirst()->menu();
    menu.popup({});
    expectEntriesWhole(menu);
    menu.close();
    player.expectFile("Cargar Juego", std::nullopt, [] {
      expectDialogWhole();
      const auto& header = *QApplication::activeModalWidget()->findChild<QHeaderView*>();
      for (int column = 0; column < header.count(); ++column)
        EXPECT_GE(header.sectionSize(column), header.sectionSizeHint(column)) << column;
    });
    player.menu(app.frame.mnuCargarJuego);
    enlarge(larger);
  }
}

} // namespace
