// What comes from the system past the elements: the pointer, where Qt finds out which element gets
// it, the clock, the focus that Qt moves by itself, a screen reader's wishes.
//
// `run` does steps one by one: "menu X" chooses the entry mnuX, "click X" and "right X" use the
// left and the right button of the mouse on an element, "type BOX TEXT" fills in, Tab or Ctrl+F7 is
// a key. Behind each step, and behind each row of `walk`, "steps => what is seen then", the screen
// comes to rest and is looked at: whether it shows what the program's elements say, and where the
// keyboard's focus is. What goes round `run` is followed by `settle()`, which does the same.
//
// The windows inside the frame, which `windows()` names while they are open (the options close when
// another one comes to the front): NuevoJuego, the
// `deployment`, with the infantry and the flag to choose (picINF, picBAN), the board (picTablero,
// 5x5 at first; squares count from 1 at the top left) and the button btnIniciar; Opciones, the
// `options`, with two tick boxes (chkPermitirBanderas, chkLimiteFilas; the label lblBandera belongs
// to the first), seconds (txtTiempoRed), moves (txtMovPorTurno) and the player, 1 or 2, in a list
// (comJugadorActualRed); EnJuego, play. MsgBox has a place of its own on the screen and holds a
// text, Text1.
//
// `app` is the program, `frame` its window around the others with the clock tmrRed, `screen` the
// person before it: `screen.focused()` is the element that the keyboard goes to,
// `screen.expectBox(TEXT, ANSWER, MEANWHILE)` announces a box, and what is done while it is open.
// `widgetOf(X)` is what shows X.
#include <QAccessible>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QWindow>

#include "desktop/qt/on_screen.h"

using namespace scripted;

namespace falanges {

class DesktopTest : public Game {
protected:
  DesktopTest() { start(); }
  QWindow* window() { return widgetOf(frame).windowHandle(); }
  QPoint middle(const Element& element) {
    const QWidget& shown = widgetOf(element);
    return shown.mapTo(shown.window(), shown.rect().center());
  }
  // Lets the screen come to rest, and looks at it.
  void settle() {
    QCoreApplication::processEvents();
    agrees(app.forms);
  }

  frmOpciones& options = app.opciones;
  frmNuevoJuego& deployment = app.nuevoJuego;
};

const std::string OutOfRange = "DEBE colocar un valor entre 5 y 300 segundos de actualización";

// From each to each: pressed on the one, let go on the other.
TEST_F(DesktopTest, ClicksWhereItIsPressedAndLetGo) {
  run("menu NuevoJuego");
  int clicks = 0;
  deployment.picINF.Click = deployment.btnIniciar.Click = [&] { ++clicks; };
  const QPoint places[] = {middle(deployment.picINF), middle(deployment.btnIniciar)};
  for (const QPoint& from : places)
    for (const QPoint& to : places) {
      clicks = 0;
      QTest::mousePress(window(), Qt::LeftButton, {}, from);
      QTest::mouseMove(window(), to);
      QTest::mouseRelease(window(), Qt::LeftButton, {}, to);
      settle();
      EXPECT_EQ(clicks, from == to ? 1 : 0);
    }
}

// A box stands open while the clock ticks ten times and each tick closes and opens the window
// behind it: the number of Qt's widgets must not grow.
TEST_F(DesktopTest, HearsTheClockBehindABoxAndKeepsNoneOfTheWindowsThatClosedMeanwhile) {
  std::vector<qsizetype> widgets; // how many there are after each tick
  frame.tmrRed.Tick = [&] {
    deployment.close();
    deployment.open();
    widgets.push_back(QApplication::allWidgets().size());
  };
  deployment.btnIniciar.Click = [&] { app.forms.messageBox("¿<i>Hola</i>?"); };
  screen.expectBox("¿<i>Hola</i>?", Answer::Ok, [&] {
    frame.tmrRed.Interval = 1; // milliseconds
    frame.tmrRed.Enabled = true;
    EXPECT_TRUE(QTest::qWaitFor([&] { return widgets.size() >= 10; }));
    frame.tmrRed.Enabled = false;
  });
  run("menu NuevoJuego, click btnIniciar");
  EXPECT_EQ(widgets[2], widgets[9]);
}

// In the window behind or in the one in front: it goes back to where the program has it, which
// `settle()` looks at.
TEST_F(DesktopTest, PutsTheFocusBackThatQtMoves) {
  run("menu NuevoJuego");
  app.msgBox.open();
  for (const Element* astray :
       {static_cast<Element*>(&deployment.btnIniciar), static_cast<Element*>(&app.msgBox)}) {
    widgetOf(*astray).setFocus();
    widgetOf(*astray).activateWindow();
    QCoreApplication::processEvents();
    settle();
  }
  app.msgBox.close();
}

// A step "WISH ELEMENT" is what a screen reader asks of it, "SetText BOX TEXT" to fill it in, which
// brings the keyboard there too. The program does it when it comes to rest, behind the call. What
// is seen: where the keyboard goes, the two tick boxes, the seconds, the player.
TEST_F(DesktopTest, DoesAScreenReadersWishes) {
  run("menu NuevoJuego, menu Opciones");
  const auto seen = [&] {
    return screen.focused() + " " + std::to_string(options.chkPermitirBanderas.Value) + " " +
           std::to_string(options.chkLimiteFilas.Value) + " " + options.txtTiempoRed.Text.get() +
           "s " + options.comJugadorActualRed.Text();
  };
  for (const char* wish : {"SetFocus", "Press", "Toggle", "Increase", "Decrease", "SetText"})
    screen.verbs[wish] = [&, wish](auto& on, auto& value) {
      auto* const heard = QAccessible::queryAccessibleInterface(&widgetOf(screen.get(on)));
      const std::string before = seen();
      if (value.empty())
        heard->actionInterface()->doAction(wish);
      else
        heard->setText(QAccessible::Value, value.c_str());
      EXPECT_EQ(seen(), before) << "inside the screen reader's call, which a box would hold up";
    };
  screen.expectBox(OutOfRange);
  walk({"SetFocus txtMovPorTurno => txtMovPorTurno 0 0 10s 1",
        "Press lblBandera => txtMovPorTurno 1 0 10s 1",
        "Toggle chkLimiteFilas => chkLimiteFilas 1 1 10s 1",
        "SetFocus comJugadorActualRed => comJugadorActualRed 1 1 10s 1",
        "Increase comJugadorActualRed => comJugadorActualRed 1 1 10s 2",
        "Increase comJugadorActualRed => comJugadorActualRed 1 1 10s 2", // behind the last
        "Decrease comJugadorActualRed => comJugadorActualRed 1 1 10s 1",
        // A box refuses 4 seconds when the keyboard is to leave, and it stays.
        "SetText txtTiempoRed 4, SetFocus chkLimiteFilas => txtTiempoRed 1 1 4s 1",
        "SetText txtTiempoRed 5 => txtTiempoRed 1 1 5s 1"},
       seen);
  auto* const list = QAccessible::queryAccessibleInterface(&widgetOf(options.comJugadorActualRed));
  for (const bool open : {true, false}) {
    list->actionInterface()->doAction("ShowMenu");
    EXPECT_EQ(list->state().expanded, open);
  }
  EXPECT_TRUE(list->state().expandable);
  // In the window behind; the options close.
  run("Press picINF");
  settle();
  EXPECT_EQ(deployment.picINF.Appearance, 1) << "chosen";
}

// Ctrl+F7 begins it, an arrow moves the child by 10 pixels, Enter or Escape ends it.
TEST_F(DesktopTest, MovesAChildByItsKeys) {
  run("menu NuevoJuego");
  const QWidget& shown = widgetOf(deployment);
  const QPoint start = shown.pos();
  run("Ctrl+F7, Right, Down, Right, Enter");
  EXPECT_EQ(shown.pos(), start + QPoint(20, 10)); // pixels
  run("Ctrl+F7, Left, Ctrl+W, Up, Escape");       // Ctrl+W would close it
  EXPECT_EQ(shown.pos(), start + QPoint(20, 10)) << "taken back";
  // A click ends it too, and what has been moved stays.
  run("Ctrl+F7, Left, Up, right picINF");
  EXPECT_EQ(shown.pos(), start + QPoint(10, 0));
  EXPECT_EQ(deployment.picTablero.cursorSquare(), 0) << "no key is for the board";
  run("Up");
  EXPECT_EQ(deployment.picTablero.cursorSquare(), 21) << "the click has ended it";
}

// On the board of 5x5, from the lowest square on the left.
TEST_F(DesktopTest, AKeyHeldDownMovesOnAndPressesOnce) {
  run("menu NuevoJuego, 1, Left"); // the infantry is chosen
  for (const auto& [key, square] : {std::pair(Qt::Key_Right, 22), {Qt::Key_Return, 22}}) {
    // What the system sends while the key is held. Enter would put the infantry on square 22.
    QKeyEvent repeated(QEvent::KeyPress, key, Qt::NoModifier, "", true);
    QCoreApplication::sendEvent(QApplication::focusWidget(), &repeated);
    EXPECT_EQ(deployment.picTablero.cursorSquare(), square);
  }
  EXPECT_EQ(pictures(), blank(5));
}

// The system has asked already, and nobody is asked once more.
TEST(Session, EndsWithoutABox) {
  const auto player = makePlayer();
  App app(*player);
  player->expectBox(informationBox().text);
  app.start();
  QEvent end(QEvent::Quit);
  QCoreApplication::sendEvent(qApp, &end);
  app.forms.messageBox("Hola"); // comes no more: nobody expects it, and it would fail the test
}

// By a click beside its elements, and by the open menu, which lists the windows with a number each:
// play was opened first.
TEST_F(DesktopTest, BringsAWindowToTheFront) {
  app.enJuego.open();
  deployment.open();
  QWidget& back = widgetOf(app.enJuego);
  widgetOf(deployment).move(back.width() - 50, 0); // dragged aside
  const QPoint leftEdge(2, back.height() * 5 / 6); // pixels
  QTest::mouseClick(window(), Qt::LeftButton, {}, back.mapTo(&widgetOf(frame), leftEdge));
  settle();
  EXPECT_EQ(app.forms.activeChild(), &app.enJuego);
  QMenu& menu = *widgetOf(frame).findChild<QMenuBar*>()->actions().constFirst()->menu();
  menu.popup({});
  for (QAction* action : menu.actions())
    if (action->text() == "&2 Nuevo Juego")
      action->trigger();
  menu.close();
  settle();
  EXPECT_EQ(app.forms.activeChild(), &deployment);
}

} // namespace falanges
