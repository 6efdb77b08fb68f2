// The windows on screens of several densities, in a frame too small for them, and in large type.
#include <QApplication>
#include <QFontInfo>
#include <QLabel>
#include <QMdiArea>
#include <QScreen>
#include <QTest>
#include <QWheelEvent>
#include <QtMath>

#include "desktop/qt/qt_player.h"
#include "shell/app.h"
#include "shell/information_box.h"

using namespace scripted;

namespace {

// Of the environment, while it lives. Qt reads them when the application is made.
struct Variable {
  Variable(const char* which, const char* value) : name(which) { qputenv(name, value); }
  ~Variable() { qputenv(name, before); }

  const char* name;
  QByteArray before = qgetenv(name);
};

class Windows : public testing::TestWithParam<const char*> {
protected:
  void SetUp() override {
    ASSERT_EQ(QString::number(qApp->devicePixelRatio()), GetParam());
    player.expectBox(falanges::informationBox().text, forms::Answer::Ok, onBox);
    app.start();
  }
  // In place of the largest board: plain squares, the row in the red and the column in the green.
  void paintBoard() {
    QImage board(630, 630, QImage::Format_RGB32);
    const auto square = [](int pixel) { return qMax(1, qCeil(pixel * 15 / 1180.0)); };
    for (int i = 0; i < 630 * 630; ++i)
      board.setPixel(i % 630, i / 630, qRgb(square(i / 630) * 30, square(i % 630) * 30, 0));
    const QString path = QString("%1/img/8x8%2.jpg").arg(player.programFolder().c_str());
    for (const auto& [density, at] : {std::pair(1, ""), {2, "@2x"}, {3, "@3x"}})
      ASSERT_TRUE(board.scaled(board.size() * density).save(path.arg(at), "PNG"));
  }
  // Along a row and a column the hint names the square that is seen.
  void expectSquaresWhereSeen() {
    QWidget& board = player.widget(app.nuevoJuego.picTablero);
    const QPoint corner = board.mapTo(board.window(), QPoint()) / 2 * 2; // a whole device pixel
    const QRect part = board.visibleRegion().boundingRect();
    const QImage seen = board.window()->grab(QRect(corner, board.size())).toImage();
    const int middle = seen.width() * 5 / 16, first = seen.width() / 100 + 1; // none lies outside
    for (int i = first; i < seen.width() - first; ++i)
      for (const QPoint pixel : {QPoint(i, middle), QPoint(middle, i)}) {
        const int row = qRed(seen.pixel(pixel)) + 9, column = qGreen(seen.pixel(pixel)) + 9;
        const QPointF place =
            board.mapFrom(board.window(), corner + QPointF(pixel) / board.devicePixelRatioF());
        // Two squares may meet in one pixel, and a small screen shows a part.
        if (row % 30 > 18 || column % 30 > 18 || !part.contains(place.toPoint()))
          continue;
        QMouseEvent move(QEvent::MouseMove, place, board.mapToGlobal(place), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&board, &move);
        EXPECT_TRUE(board.toolTip().endsWith(QString("(%1,%2)").arg(row / 30).arg(column / 30)))
            << board.toolTip().toStdString() << " at " << i << " of " << seen.width();
      }
  }
  // By so many notches; how wide the board is then.
  int turnWheel(int notches, const char* over = "picTablero",
                Qt::KeyboardModifiers held = Qt::ControlModifier) {
    QWidget& widget = player.widget(player.get(over));
    QWheelEvent wheel({9, 9}, widget.mapToGlobal(QPoint(9, 9)), {}, {0, notches * 120}, {}, held,
                      {}, false);
    QSpontaneKeyEvent::setSpontaneous(&wheel); // or it goes no further than to the widget
    qApp->notify(&widget, &wheel);
    return player.widget(app.nuevoJuego.picTablero).width();
  }
  // The largest board, in a frame of this size.
  const QWidget& openBoard(int width, int height) {
    player.run("menu mnuNuevoJuego, choose comTablero 8x8");
    player.widget(app.frame).resize(width, height);
    QCoreApplication::processEvents();
    return *player.widget(app.frame).findChild<QMdiArea*>()->viewport();
  }
  // With the control key, in the frame.
  void press(Qt::Key key) { QTest::keyClick(&player.widget(app.frame), key, Qt::ControlModifier); }

  Meanwhile onBox; // while a box is open
  Variable scale{"QT_SCALE_FACTOR", GetParam()};
  QtPlayer player;
  falanges::App app{player};
};

TEST_P(Windows, ShowEachSquareWhereItIsInEverySize) {
  paintBoard();
  openBoard(2300, 2300);
  for (int step = 0; step < 7; ++step)
    press(Qt::Key_Plus);
  for (int step = 0; step < 18; ++step) {
    expectSquaresWhereSeen();
    press(Qt::Key_Minus);
  }
}

// A board as large as its frame allows, and no larger than it is meant to be; or as it was chosen.
TEST_P(Windows, FitABoardIntoItsFrame) {
  QWidget& frame = player.widget(app.frame);
  if (qApp->platformName() != "offscreen" && frame.screen()->geometry().height() < 1000)
    GTEST_SKIP() << "the screen is too small";
  const QWidget& area = openBoard(700, 700);
  QWidget& window = player.widget(app.nuevoJuego);
  window.move(100, 100); // it comes back into the frame
  for (const auto& [width, height] : {std::pair(720, 760), {800, 660}, {400, 400}, {900, 900}}) {
    frame.resize(width, height);
    player.run("Up"); // and everything is where the elements say
    EXPECT_TRUE(area.rect().contains(window.geometry())) << width << " x " << height;
    const QSize larger = window.size() + QSize(722, 688) / 20;
    EXPECT_TRUE(window.width() == 722 || !area.rect().contains(QRect({}, larger)));
  }
  EXPECT_EQ(turnWheel(-2), 569); // 90 %
  EXPECT_EQ(turnWheel(6), 1106); // 175 %
  frame.resize(700, 600);
  EXPECT_EQ(turnWheel(-1), 948);
  EXPECT_EQ(turnWheel(1, "comTablero", {}), 948) << "on the way past a list";
  press(Qt::Key_Minus);
  EXPECT_LT(turnWheel(0), 948);
  press(Qt::Key_Plus);
  EXPECT_EQ(turnWheel(0), 948);
  player.run("close frmNuevoJuego, menu mnuNuevoJuego");
  EXPECT_EQ(turnWheel(0), 594); // of the smallest board
  player.run("Up, Right");      // scrolls
  press(Qt::Key_0);
  EXPECT_EQ(turnWheel(0), 396);
  EXPECT_EQ(player.widget(app.nuevoJuego).pos(), QPoint());
  press(Qt::Key_9);
  EXPECT_EQ(turnWheel(0), 495); // 125 %
  app.enJuego.open();
  EXPECT_EQ(player.widget(app.enJuego.picTablero).width(), 495) << "chosen for both";
}

TEST_P(Windows, ScrollToWhatTheKeyboardIsOn) {
  const QWidget& area = openBoard(300, 250);
  const QWidget& board = player.widget(app.nuevoJuego.picTablero);
  const auto seen = [&](const QWidget& shown, QPoint place) {
    return area.rect().contains(shown.mapTo(&area, place));
  };
  for (const char* way : {"Up", "Right", "Down", "Left"})
    for (int i = 0; i < 8; ++i) {
      player.run(way);
      const int n = app.nuevoJuego.picTablero.cursorSquare();
      const QPoint middle((n - 1) % 8 * 2 + 1, (n - 1) / 8 * 2 + 1);
      EXPECT_TRUE(n > 0 && seen(board, middle * board.width() / 16)) << n;
    }
  player.run("Right, Tab");
  EXPECT_TRUE(seen(player.widget(app.nuevoJuego.comTablero), {}));
}

INSTANTIATE_TEST_SUITE_P(AtScale, Windows, testing::Values("1", "1.5", "2"));

class Keys : public Windows {
protected:
  void pressed(const char* keys) {
    const QKeyCombination pressed = QKeySequence(keys)[0];
    QTest::keyClick(&player.widget(app.frame), pressed.key(), pressed.keyboardModifiers());
    QCoreApplication::processEvents();
  }
};

INSTANTIATE_TEST_SUITE_P(AtScale, Keys, testing::Values("1"));

// Those of the manual that no script presses; all are for a window or its menu.
TEST_P(Keys, DoWhatTheManualSays) {
  for (const char* keys : {"Ctrl+F4", "Ctrl+W"}) {
    player.run("menu mnuNuevoJuego");
    pressed(keys);
    EXPECT_FALSE(app.nuevoJuego.isOpen()) << keys;
  }
  pressed("Alt+O");
  EXPECT_TRUE(app.opciones.isOpen());
  for (const char* keys : {"Alt+-", "F10", "Alt+J"}) {
    pressed(keys);
    QWidget* const menu = QApplication::activePopupWidget();
    ASSERT_TRUE(menu) << keys;
    const QKeySequence last = menu->actions().constLast()->shortcut();
    EXPECT_EQ(last.toString(QKeySequence::NativeText), keys == QString("Alt+-") ? "Ctrl+F4" : "");
    menu->close();
  }
}

// Everything with a text has the room that it needs, inside what it stands on.
void expectTextsWhole() {
  // What has changed its text since the layout came to rest may still wait for its place.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
  for (const QWidget* shown : QApplication::allWidgets()) {
    const QString text =
        shown->property("text").toString() + shown->property("currentText").toString();
    if (!shown->isVisible() || shown->isWindow() || text.isEmpty())
      continue;
    if (shown->objectName() == "lookInCombo") // leaves out the middle of a long path
      continue;
    const QRect room = shown->contentsRect();
    const int how = shown->property("wordWrap").toBool() ? Qt::TextWordWrap : Qt::TextShowMnemonic;
    const QRect needed = shown->fontMetrics().boundingRect(room, how, text);
    EXPECT_EQ(room | needed, room) << text.toStdString();
    EXPECT_TRUE(shown->parentWidget()->rect().contains(shown->geometry())) << text.toStdString();
  }
}

// As a system may be set to large type, before the start or later, and one on which no font has the
// measures that the windows are drawn for.
class WindowsInWideLetters : Variable, public Windows {
protected:
  WindowsInWideLetters()
      : Variable{"FONTCONFIG_FILE", QT_TESTCASE_SOURCEDIR "/desktop/qt/golden/one-font.conf"} {
    enlarge(1.5);
    onBox = [] {
      expectTextsWhole();
      const auto& text = *QApplication::activeModalWidget()->findChild<QLabel*>("qt_msgbox_label");
      EXPECT_EQ(text.heightForWidth(text.width()), text.heightForWidth(10000))
          << "a line is broken";
    };
  }
  static void enlarge(double factor) {
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * factor);
    QApplication::setFont(font);
  }
};

INSTANTIATE_TEST_SUITE_P(AtScale, WindowsInWideLetters, testing::Values("1"));

TEST_P(WindowsInWideLetters, CutNoText) {
  player.verbs["look"] = [](auto&, auto&) { expectTextsWhole(); };
  for (const double larger : {4.0 / 3, 1.0}) {
    player.run("menu mnuOpciones, look");
    const QFontInfo drawn(player.widget(app.opciones.lblBandera).font());
    EXPECT_TRUE(drawn.family() == "Liberation Sans" || drawn.family() == "Arial");
    const std::string text = "Lo que aquí es bastante más largo que el lugar que hay";
    app.opciones.lblBandera.Caption = app.opciones.btnCargarJuegoRed.Caption = text;
    player.run("look, menu mnuNuevoJuego, look");
    app.enJuego.open();
    app.enJuego.lblJ1_Estado.Caption = text;
    for (int step = 0; step < 11; ++step) { // down to 50 %
      expectTextsWhole();
      press(Qt::Key_Minus);
    }
    app.enJuego.close();
    app.nuevoJuego.close();
    player.expectFile("Cargar Juego", std::nullopt, expectTextsWhole);
    player.run("menu mnuCargarJuego");
    enlarge(larger);
  }
}

} // namespace
