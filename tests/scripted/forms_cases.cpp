// What the forms layer makes of a person's and the program's actions, in the program's own windows
// and on whichever screen the test program brings.
//
// `run(steps)` does the steps one by one: "menu X" chooses the entry mnuX, "click X" and "right X"
// use the left and the right button of the mouse on an element, "type BOX TEXT" and "choose LIST
// ITEM" fill in, "close X" closes a window, "tick 1" makes each timer that runs tick once, whatever
// its interval; Tab, Left or 1 is a key. A row of `walk` is "steps => what is seen then".
//
// The windows inside the frame, frmPrincipal, which `windows()` names while they are open:
// NuevoJuego, the `deployment`, with the units to choose (picINF infantry, picCAB cavalry, picELE
// elephants), the list of boards comTablero, from 5x5 to 8x8, the button btnIniciar, and Command1,
// which has a key and is never seen; Opciones, the `options`, in the order of the Tab key: the tick
// boxes chkPermitirBanderas and chkLimiteFilas (lblBandera is the label of the first), the button
// btnCargarJuegoRed, seconds (txtTiempoRed), the player in a list (comJugadorActualRed, "1" or "2")
// and moves (txtMovPorTurno). MsgBox is a window of its own that shows a text.
//
// `app` is the program, `frame` its window around the others with the timer tmrRed; `shown()` is
// all that the open windows show. `screen` is the person before it: `screen.focused()` is the
// element that the keyboard goes to, `screen.expectBox(TEXT, ANSWER, MEANWHILE)` announces a box or
// a modal window that will come, with what is done while it is open. A box that is not announced,
// and one that is and does not come, fail the case. `layer.clicked`, `layer.typed` and the like are
// what a screen reports.
#include "scripted/game.h"

namespace falanges {

// The program, past its information box. At a case's end it is closed, past the question whether to
// leave.
class FormsCases : public Game {
protected:
  FormsCases() { start(); }

  forms::Forms& layer = app.forms;
  frmOpciones& options = app.opciones;
  frmNuevoJuego& deployment = app.nuevoJuego;
};

const std::string OutOfRange = "DEBE colocar un valor entre 5 y 300 segundos de actualización";

// What is seen is where the keyboard goes: in a window that opens to the first element. A click on
// the deployment closes the options.
TEST_F(FormsCases, TheFocusFollowsTheMouseAndTheTabKey) {
  run("menu NuevoJuego");
  walk({"menu Opciones => chkPermitirBanderas", "click chkLimiteFilas => chkLimiteFilas",
        "right txtTiempoRed => txtTiempoRed", "choose comJugadorActualRed 2 => comJugadorActualRed",
        // A label takes no focus.
        "click lblBandera => comJugadorActualRed", "Tab => txtMovPorTurno",
        // From the last round to the first.
        "Tab => chkPermitirBanderas", "Shift+Tab, Shift+Tab, Shift+Tab => txtTiempoRed",
        // To the deployment; and back to where the keyboard was there.
        "click picCAB => picCAB", "Tab => picELE", "menu Opciones, close Opciones => picELE"},
       [&] { return screen.focused(); });
  run("menu Opciones");
  // The two behind the first, which has the keyboard now.
  options.chkLimiteFilas.Enabled = false;
  options.btnCargarJuegoRed.Visible = false;
  run("Tab");
  EXPECT_EQ(screen.focused(), "txtTiempoRed") << "past what cannot be reached";
  EXPECT_FALSE(options.chkLimiteFilas.SetFocus()); // refused: it is disabled
}

// The seconds' box takes three. An ñ is one character, though it has two bytes.
TEST_F(FormsCases, ABoxTakesNoMoreCharactersThanItCanHold) {
  run("menu Opciones");
  options.txtTiempoRed.Text = std::string("10ñandú");
  EXPECT_EQ(options.txtTiempoRed.Text, "10ñ");
}

// The button's handler opens a box, behind which the window closes, and opens the window again.
TEST_F(FormsCases, AWindowThatClosesBehindABoxOfItsOwnHandlerOpensAsItWasMade) {
  run("menu NuevoJuego, choose comTablero 8x8, click picINF");
  deployment.btnIniciar.Click = [&] {
    screen.expectBox("¡Alto!", Answer::Ok, [&] { deployment.close(); });
    layer.messageBox("¡Alto!");
    deployment.picINF.ToolTipText = "nobody sees it";
    deployment.open();
  };
  run("click btnIniciar");
  EXPECT_EQ(deployment.picINF.Appearance, 0) << "no longer chosen"; // 1: raised, chosen
  EXPECT_EQ(deployment.picINF.ToolTipText, "");
  EXPECT_EQ(deployment.comTablero.Text(), "5x5");
  EXPECT_EQ(deployment.comTablero.items().size(), 4U); // 5x5 to 8x8, each once
}

// A screen may still report what was under way when a box opened. `everything` is what the windows
// show, the file of the options, where the keyboard is, and the player chosen in the list.
TEST_F(FormsCases, NothingHappensBehindABox) {
  run("menu NuevoJuego, menu Opciones");
  const auto everything = [&] {
    return shown() + bytesOf(file("VornathFalangesZTEE.cfg")) + screen.focused() +
           options.comJugadorActualRed.Text();
  };
  const std::string before = everything();
  screen.expectBox("Hola", Answer::Ok, [&] {
    layer.pressed(deployment.picINF, forms::MouseButton::Right);
    layer.clicked(options.chkLimiteFilas);
    layer.invoked(deployment.picINF); // as a screen reader presses it
    layer.typed(options.txtTiempoRed, "9");
    layer.chosen(options.comJugadorActualRed, 1);
    layer.shortcutPressed(deployment.Command1);
    layer.tabbed(options, true); // forward
    layer.closeRequested(frame);
    // Each of these says that it was refused. Space would press the tick box with the keyboard.
    EXPECT_FALSE(layer.focusMoved(options.txtTiempoRed));
    EXPECT_FALSE(layer.activated(deployment));
    EXPECT_FALSE(layer.sessionMayEnd());
    EXPECT_FALSE(layer.keyPressed(options, forms::Key::Space));
  });
  layer.messageBox("Hola");
  EXPECT_EQ(everything(), before);
}

// While it is open, a click in the options and a wish to close the frame are refused: the tick box
// stays as it was (Value 0), and nobody is asked whether to leave. That question would be a box
// that is not announced, and fail the case.
TEST_F(FormsCases, AModalWindowHoldsTheOthersAndLetsTheTimerGoOn) {
  run("menu Opciones");
  int ticks = 0;
  frame.tmrRed.Tick = [&] { ++ticks; };
  frame.tmrRed.Interval = 3600000; // an hour, in milliseconds: only the step makes it tick
  frame.tmrRed.Enabled = true;
  screen.expectBox("frmMsgBox", Answer::Ok, [&] {
    layer.clicked(options.chkLimiteFilas);
    layer.closeRequested(frame);
    run("tick 1, close MsgBox");
  });
  app.msgBox.showModal();
  frame.tmrRed.Enabled = false;
  EXPECT_EQ(ticks, 1);
  EXPECT_EQ(options.chkLimiteFilas.Value, 0);
}

// The options let nothing close while a number is out of range. `sessionMayEnd` asks as the system
// does before the person is logged out. Had anything closed, the steps that follow could not be
// done.
TEST_F(FormsCases, TheFrameAsksAllItsChildrenBeforeAnyCloses) {
  run("menu NuevoJuego, menu Opciones, type txtTiempoRed 4");
  const auto expectRefusal = [&] {
    screen.expectBox(LeaveQuestion, Answer::Yes);
    screen.expectBox(OutOfRange);
  };
  expectRefusal();
  run("close frmPrincipal");
  expectRefusal();
  EXPECT_FALSE(layer.sessionMayEnd());
  // The lowest number in range: now the options let it close.
  run("type txtTiempoRed 5");
  screen.expectBox(LeaveQuestion, Answer::Yes);
  EXPECT_TRUE(layer.sessionMayEnd());
  EXPECT_EQ(windows(), "NuevoJuego Opciones") << "another program may still hold the session up";
  // It stays open when the answer is No. A second wish to close, while the question stands, changes
  // nothing.
  screen.expectBox(LeaveQuestion, Answer::No, [&] {
    EXPECT_FALSE(frame.close());
    EXPECT_FALSE(layer.sessionMayEnd());
  });
  run("close frmPrincipal");
}

// In the deployment, with the infantry chosen by the key 1: a unit comes by Enter and goes by
// Delete, as by the two mouse buttons. The arrows mark a square; the first one marks the lowest on
// the left, 21 of 5x5. A row is "steps => what is said then"; "click square 22" clicks the board
// there, "right picUnidad(22)" the unit on it with the right button.
TEST_F(FormsCases, TheKeyboardDoesOnTheBoardWhatThePointerDoes) {
  run("menu NuevoJuego, 1");
  const forms::GridPicture& board = app.nuevoJuego.picTablero;
  // What a screen reader says of the board or, where the cursor is marked, of that square.
  const auto said = [&] { return (board.cursorSquare() ? "marked: " : "") + board.spokenName(); };
  // Enter points at nothing yet. Then Right marks 21; Left and Down would leave the board, and the
  // mark stays.
  walk({"Enter => Tablero 5x5", "Right, Left, Down => marked: Cuadro 21, fila 5, columna 1, vacío",
        "Up, Enter => marked: Infantería, Jugador 1, cuadro 16, fila 4, columna 1",
        "Right => marked: Cuadro 17, fila 4, columna 2, vacío",
        "Left, Delete => marked: Cuadro 16, fila 4, columna 1, vacío",
        // Back to 21, then to the right edge at 25; the fifth Right would leave the board.
        "Down, Right, Right, Right, Right, Right => marked: Cuadro 25, fila 5, columna 5, vacío",
        "Space => marked: Infantería, Jugador 1, cuadro 25, fila 5, columna 5",
        // The mouse takes the mark away, and the keyboard goes on from where it pointed last.
        // Enter does nothing while no mark is seen.
        "click square 22, right picUnidad(22) => Tablero 5x5", "Enter => Tablero 5x5",
        "Right => marked: Cuadro 22, fila 5, columna 2, vacío",
        "Up => marked: Cuadro 17, fila 4, columna 2, vacío",
        "choose comTablero 6x6 => Tablero 6x6"},
       said);
}

} // namespace falanges
