// Every window at the scale that the process runs at (QT_SCALE_FACTOR): nothing is cut, and every
// pixel of the boards means the right square.
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
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
    player.expectBox(falanges::informationBox().text);
    app.start();
  }
  void TearDown() override {
    player.expectBox("¿Está seguro de salir y cerrar todo?", forms::Answer::Yes);
    player.expectBox(falanges::informationBox().text);
    EXPECT_TRUE(player.closeWindow("frmPrincipal"));
  }

  // Each element stands inside its window and has the room that its text or picture needs.
  void expectNothingCut(const char* window) {
    QWidget& form = *player.widget(window).findChild<QWidget*>(window);
    for (QWidget* shown : form.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
      if (!shown->isVisible() || shown->testAttribute(Qt::WA_TransparentForMouseEvents))
        continue;
      const std::string name = std::string(window) + "." + shown->objectName().toStdString();
      EXPECT_TRUE(form.rect().contains(shown->geometry())) << name;
      QString text;
      if (auto* label = qobject_cast<QLabel*>(shown))
        text = label->text();
      if (auto* button = qobject_cast<QPushButton*>(shown))
        text = button->text();
      const QSize needed = text.isEmpty() ? QSize() : shown->fontMetrics().size(0, text);
      EXPECT_LE(needed.width(), shown->width()) << name;
      EXPECT_LE(needed.height(), shown->height()) << name;
    }
    const QPixmap seen = form.grab();
    EXPECT_EQ(seen.size(), form.size() * seen.devicePixelRatio()) << window;
  }

  // Walks along a row and a column of device pixels through every square, and over the edges.
  void expectEveryPixelOnItsSquare(const char* window, int side) {
    const std::string board = std::string(window) + ".picTablero";
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

  QtPlayer player;
  falanges::App app{player};
};

TEST_F(Windows, ShowAllOfEveryBoardAndMeanTheRightSquares) {
  player.menu("mnuNuevoJuego");
  for (int side = 5; side <= 8; ++side) {
    const std::string text = std::to_string(side);
    player.choose("comTablero", text + "x" + text);
    EXPECT_EQ(app.principal.NumColumnas, side);
    expectNothingCut("frmNuevoJuego");
    expectEveryPixelOnItsSquare("frmNuevoJuego", side);
    for (const int n : {1, side * side}) {
      app.principal.Casillas(n).Jugador = n == 1 ? 2 : 1;
      app.principal.Casillas(n).TUnidad = falanges::GEN;
    }
    app.enJuego.open();
    expectNothingCut("frmEnJuego");
    app.enJuego.close();
  }
}

TEST_F(Windows, ShowAllOfTheSmallOnes) {
  player.menu("mnuOpciones");
  expectNothingCut("frmOpciones");
  EXPECT_EQ(player.widget("frmOpciones").findChild<QWidget*>("frmOpciones")->size(),
            QSize(4275 / 15, 3390 / 15));
  EXPECT_TRUE(player.closeWindow("frmOpciones"));
  player.menu("mnuNuevoJuego");
  player.expectModal("frmMsgBox", [&] {
    expectNothingCut("frmMsgBox");
    EXPECT_TRUE(player.closeWindow("frmMsgBox"));
  });
  player.shortcut("Command1");
}

} // namespace
