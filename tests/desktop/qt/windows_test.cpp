// The windows on screens of several densities, in a frame too small for them, and in large type.
//
// Sizes of widgets are in pixels, those of elements in twips: a pixel is 15 twips at 100 %, and a
// square of the board has 1180. The windows with a board have a size in percent: Ctrl++ and Ctrl+-,
// or a notch of the wheel with Ctrl, choose the next one (... 90, 95, 100, 110, 125, 150, 175 ...),
// Ctrl+0 the one that fits up to 100, Ctrl+9 the largest that fits. `run` does its steps one by
// one: "menu ENTRY", "choose LIST ITEM", "close WINDOW", or a key. `app` is the program, `frame`
// its window around the others; nuevoJuego is the deployment's window, enJuego that of play,
// opciones the options. `widgetOf(X)` is what shows X, `screen` the person before it:
// `screen.expectFile(TITLE, std::nullopt, MEANWHILE)` looks at the file dialog that will come, then
// cancels it.
#include <QApplication>
#include <QFontInfo>
#include <QLabel>
#include <QMdiArea>
#include <QScreen>
#include <QTest>
#include <QWheelEvent>
#include <QtMath>

#include "desktop/qt/on_screen.h"

using namespace scripted;
using namespace falanges;

namespace {

// Of the environment, while it lives. Qt reads them when the application is made.
struct Variable {
  Variable(const char* which, const char* value) : name(which) { qputenv(name, value); }
  ~Variable() { qputenv(name, before); }

  const char* name;
  QByteArray before = qgetenv(name);
};

// The program on a screen with so many device pixels to a pixel: 1, 1.5 or 2.
class Windows : Variable, public Game, public testing::WithParamInterface<const char*> {
protected:
  Windows() : Variable{"QT_SCALE_FACTOR", GetParam()} {}
  void SetUp() override {
    ASSERT_EQ(QString::number(qApp->devicePixelRatio()), GetParam());
    start();
  }
  // The deployment with the largest board, in a frame of so many pixels each way.
  void openBoard(int side) {
    run("menu mnuNuevoJuego, choose comTablero 8x8");
    resizeFrame(side, side);
  }
  void resizeFrame(int width, int height) {
    shownFrame().resize(width, height);
    QCoreApplication::processEvents();
  }
  QWidget& shownFrame() { return widgetOf(frame); }
  // What shows the child windows.
  QWidget& area() { return *shownFrame().findChild<QMdiArea*>()->viewport(); }
  QWidget& board() { return widgetOf(app.nuevoJuego.picTablero); }
  // Of its own size.
  int percentOfBoard() {
    return qRound(board().width() * 1500.0 / app.nuevoJuego.picTablero.Width);
  }
  void turnWheel(int notches, QWidget& over, Qt::KeyboardModifiers held = Qt::ControlModifier) {
    QWheelEvent wheel({9, 9}, over.mapToGlobal(QPoint(9, 9)), {}, {0, notches * 120}, {}, held, {},
                      false);
    QSpontaneKeyEvent::setSpontaneous(&wheel); // or it goes no further than to the widget
    qApp->notify(&over, &wheel);
  }
};

INSTANTIATE_TEST_SUITE_P(AtScale, Windows, testing::Values("1", "1.5", "2"));

TEST_P(Windows, ShowEachSquareWhereItIsInEverySize) {
  // In place of the largest board, 8x8 squares or 630 pixels: plain squares, whose colour tells
  // where they are, 30 levels of red for each row and 30 of green for each column.
  QImage squares(630, 630, QImage::Format_RGB32);
  const auto number = [](int pixel) { return qMax(1, qCeil(pixel * 15 / 1180.0)); };
  for (int y = 0; y < 630; ++y)
    for (int x = 0; x < 630; ++x)
      squares.setPixel(x, y, qRgb(number(y) * 30, number(x) * 30, 0));
  const QString path = QString("%1/img/8x8%2.jpg").arg(screen.programFolder().c_str());
  for (const auto& [density, at] : {std::pair(1, ""), {2, "@2x"}, {3, "@3x"}})
    ASSERT_TRUE(squares.scaled(squares.size() * density).save(path.arg(at), "PNG"));
  openBoard(1300);
  // From a large size down to the smallest.
  run("Ctrl++, Ctrl++, Ctrl++");
  for (int size = 0; size < 18; ++size) {
    const QImage seen = shownFrame().grab().toImage();
    const QRegion part = board().visibleRegion();
    // From the lower left corner to the upper right one the hint names the square that is seen.
    const int outside = board().width() / 100 + 1; // at the edges there are pixels of no square
    for (int x = outside; x < board().width() - outside; ++x) {
      const QPoint place(x, board().height() - 1 - x),
          onFrame = board().mapTo(&shownFrame(), place);
      const QRgb color = seen.pixel((QPointF(onFrame) * seen.devicePixelRatio()).toPoint());
      const int row = qRed(color) + 9, column = qGreen(color) + 9;
      // Two squares may meet in one pixel, whose colour is then none of theirs (9 levels off are
      // let pass), and a small screen shows a part.
      if (row % 30 > 18 || column % 30 > 18 || !part.contains(place))
        continue;
      pointAt(board(), place);
      const QString square = QString("(%1,%2)").arg(row / 30).arg(column / 30);
      EXPECT_TRUE(board().toolTip().endsWith(square))
          << board().toolTip().toStdString() << " at " << x << " of " << board().width();
    }
    run("Ctrl+-");
  }
}

// A board as large as its frame allows, and no larger than it is meant to be; or as it was chosen.
TEST_P(Windows, FitABoardIntoItsFrameOrShowItAsItWasChosen) {
  if (qApp->platformName() != "offscreen" && shownFrame().screen()->geometry().height() < 1000)
    GTEST_SKIP() << "the screen is too small";
  openBoard(700);
  QWidget& window = widgetOf(app.nuevoJuego);
  window.move(100, 100); // it comes back into the frame
  for (const auto& [width, height] : {std::pair(720, 760), {800, 660}, {400, 400}, {900, 900}}) {
    resizeFrame(width, height);
    run("Up"); // and everything is where the elements say
    EXPECT_TRUE(area().rect().contains(window.geometry())) << width << " x " << height;
    // It fits at this size, and would not at one 5 % larger, unless it is the whole one.
    const QSize larger = window.size() * (percentOfBoard() + 5) / percentOfBoard();
    EXPECT_TRUE(percentOfBoard() == 100 || !area().rect().contains(QRect({}, larger)));
  }
  // From here on the person chooses: two notches down from 100 %, then six up.
  turnWheel(-2, board());
  EXPECT_EQ(percentOfBoard(), 90);
  turnWheel(6, board());
  EXPECT_EQ(percentOfBoard(), 175);
  resizeFrame(700, 600);
  // Without Ctrl the wheel scrolls, also when it comes over the list of boards.
  turnWheel(1, widgetOf(app.nuevoJuego.comTablero), {});
  EXPECT_EQ(app.nuevoJuego.comTablero.Text(), "8x8") << "the wheel was on its way past";
  run("Ctrl+-");
  EXPECT_EQ(percentOfBoard(), 150);
  // The deployment that opens anew has its smallest board, 5x5, which fits the frame at 125 %.
  run("Ctrl++, close frmNuevoJuego, menu mnuNuevoJuego");
  EXPECT_EQ(percentOfBoard(), 175) << "as it was chosen";
  run("Up, Right, Ctrl+0"); // the arrows scroll
  EXPECT_EQ(percentOfBoard(), 100);
  EXPECT_EQ(widgetOf(app.nuevoJuego).pos(), QPoint());
  run("Ctrl+9");
  EXPECT_EQ(percentOfBoard(), 125) << "as large as it fits";
}

// In a frame of 300 pixels, which shows a part of the board: the arrows go to the edges of it,
// eight squares each way, then the keyboard goes on to the list of boards.
TEST_P(Windows, ScrollToWhatTheKeyboardIsOn) {
  openBoard(300);
  const auto inSight = [&](const QWidget& shown, QPoint place) {
    return area().rect().contains(shown.mapTo(&area(), place));
  };
  for (const char* way : {"Up", "Right", "Down", "Left"})
    for (int i = 0; i < 8; ++i) {
      run(way);
      const int square = app.nuevoJuego.picTablero.cursorSquare() - 1;
      const QPoint middle(square % 8 * 2 + 1, square / 8 * 2 + 1); // in half squares
      EXPECT_TRUE(inSight(board(), middle * board().width() / 16)) << square;
    }
  run("Right, Tab");
  EXPECT_TRUE(inSight(widgetOf(app.nuevoJuego.comTablero), {}));
}

// Those of the manual that no other case presses: Alt+- opens the child's own menu, whose first
// entry is "Mover", Ctrl+F4 closes the child, Alt+O opens the options.
TEST_P(Windows, KnowTheKeysOfTheManual) {
  run("menu mnuNuevoJuego, Alt+-");
  QWidget* const menu = QApplication::activePopupWidget();
  ASSERT_TRUE(menu);
  EXPECT_EQ(menu->actions().constFirst()->text(), "&Mover");
  menu->close();
  run("Ctrl+F4");
  EXPECT_FALSE(app.nuevoJuego.isOpen());
  run("Alt+O");
  EXPECT_TRUE(app.opciones.isOpen());
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

// As a system may be set to large type, before the start or later, and one whose only font has
// wider letters than the fonts that the windows are drawn for: Liberation Sans, or Arial on
// Windows. The program brings its own and draws with that.
struct WideLetters {
  Variable fonts{"FONTCONFIG_FILE", QT_TESTCASE_SOURCEDIR "/desktop/qt/golden/one-font.conf"};
};
class WindowsInWideLetters : WideLetters, public Game {
protected:
  void SetUp() override {
    enlarge(1.5);
    screen.expectBox(informationBox().text, Answer::Ok, [] {
      expectTextsWhole();
      const auto& text = *QApplication::activeModalWidget()->findChild<QLabel*>("qt_msgbox_label");
      EXPECT_EQ(text.heightForWidth(text.width()), text.heightForWidth(10000))
          << "a line is broken";
    });
    app.start();
  }
  static void enlarge(double factor) {
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * factor);
    QApplication::setFont(font);
  }
};

TEST_F(WindowsInWideLetters, CutNoText) {
  // A step that looks whether any text is cut.
  screen.verbs["look"] = [](auto&, auto&) { expectTextsWhole(); };
  const std::string text = "Lo que aquí es bastante más largo que el lugar que hay";
  // Letters one and a half times as large, then twice: the type is made larger behind each round.
  for (const double larger : {4.0 / 3, 1.0}) {
    run("menu mnuOpciones, look");
    // In the program's font, not in the system's.
    const QFontInfo drawn(widgetOf(app.opciones.lblBandera).font());
    EXPECT_TRUE(drawn.family() == "Liberation Sans" || drawn.family() == "Arial");
    app.opciones.lblBandera.Caption = app.opciones.btnCargarJuegoRed.Caption = text;
    run("look, menu mnuNuevoJuego, look");
    app.enJuego.open();
    app.enJuego.lblJ1_Estado.Caption = text; // who is in turn
    for (int step = 0; step < 11; ++step)    // down to 50 %
      run("look, Ctrl+-");
    app.enJuego.close();
    app.nuevoJuego.close();
    screen.expectFile("Cargar Juego", std::nullopt, expectTextsWhole);
    run("menu mnuCargarJuego");
    enlarge(larger);
  }
}

} // namespace
