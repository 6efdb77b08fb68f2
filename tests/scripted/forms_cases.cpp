// What the forms layer makes of a person's and the program's actions, on whichever screen the test
// program brings.
//
// Most cases play in the windows of test_windows.h, Uno and Dos, each with two text boxes (txtA,
// txtB), a tick box (chk), a list (com), a button (btn), a picture (pic) and a label (lbl), in this
// tab order. At first Uno is in front, and its txtA has the focus. The variables `one` and `two`
// are these windows, `frame` is the program's own window around them (Marco), which has a menu
// entry (mnuHoja) and a timer (tmr), and `own` one like Uno, but with a place of its own on the
// screen and closed at first (Propia, "one of its own"). Each list holds "uno" and "dos".
//
// `log` notes each event that the windows hear as ELEMENT_EVENT or WINDOW_EVENT: btn_Click,
// frmUno_Deactivate; `log.take()` tells and forgets them, `log.on` is what a case does inside one.
// `player` is the person at the screen: does the steps of a script ("click btn", "close Dos",
// "Tab") and answers the boxes and modal windows that a case has announced with `expectBox`.
// `forms.clicked`, `forms.typed` and the like are what a screen reports; `forms.messageBox` opens a
// box.
#include "scripted/game.h"
#include "scripted/test_windows.h"

namespace scripted {

class FormsCases : public TestProgram {
protected:
  // A row is "steps => the events that they raise [where the focus is then]".
  void walk(const std::vector<std::string>& rows) {
    scripted::walk(rows, [this](const std::string& script) {
      player->run(script);
      return log.take() + " [" + forms.activeChild()->name() + "." + player->focused() + "]";
    });
  }
};

// Windows and elements. The mouse presses a picture before it clicks it (pic_Left, pic_Right).
TEST_F(FormsCases, RaiseTheirEventsInOrderAndLeaveTheFocusWhereItBelongs) {
  walk({"click btn => txtA_LostFocus btn_Click [frmUno.btn]",
        "click pic => btn_LostFocus pic_Left pic_Click [frmUno.pic]",
        "click chk => pic_LostFocus chk_Click [frmUno.chk]", "click lbl => lbl_Click [frmUno.chk]",
        "right pic => pic_Right [frmUno.chk]", "right txtB => chk_LostFocus [frmUno.txtB]",
        "menu Hoja => mnuHoja_Click [frmUno.txtB]",
        "choose com dos, choose com dos => txtB_LostFocus com_Click com_Click [frmUno.com]",
        "type txtA uno, type txtA => com_LostFocus txtA_Change txtA_Change [frmUno.txtA]",
        "click Dos.btn => txtA_LostFocus frmUno_Deactivate txtA_LostFocus btn_Click [frmDos.btn]",
        "click Uno.chk => btn_LostFocus frmDos_Deactivate txtA_LostFocus chk_Click [frmUno.chk]",
        "activate Dos => chk_LostFocus frmUno_Deactivate [frmDos.btn]",
        "close Dos => frmDos_QueryUnload frmDos_Unload [frmUno.chk]"});
}

TEST_F(FormsCases, TheTabKeyGoesRoundPastWhatCannotBeReached) {
  one.chk.Visible = false;
  one.com.Enabled = false;
  EXPECT_FALSE(one.chk.SetFocus());
  walk({"Tab, Tab, Space => txtA_LostFocus txtB_LostFocus btn_Click [frmUno.btn]",
        "Tab, Tab => btn_LostFocus pic_LostFocus [frmUno.txtA]",
        "Shift+Tab => txtA_LostFocus [frmUno.pic]"});
}

TEST_F(FormsCases, BoxesAndListsTakeFromTheProgramWhatTheyCanHold) {
  one.txtA.MaxLength = 3; // characters
  one.txtA.Text = std::string("ñandú");
  EXPECT_EQ(one.txtA.Text, "ñan");
  // The list takes one of its two items, as it is spelled or by its index, 0 or 1.
  EXPECT_TRUE(one.com.setText("uno"));
  EXPECT_FALSE(one.com.setText("UNO"));
  EXPECT_FALSE(one.com.select(-1));
  EXPECT_FALSE(one.com.select(2));
  EXPECT_EQ(log.take(), "txtA_Change com_Click");
}

// The button's handler opens a box, behind which the window closes, and opens the window again: it
// has nothing of what was ticked and typed before, and its list is filled once.
TEST_F(FormsCases, AWindowThatClosesBehindABoxOfItsOwnHandlerOpensAsItWasMade) {
  one.chk.Value = 1;
  log.on["btn_Click"] = [&] {
    player->expectBox("¡Alto!", Answer::Ok, [&] { one.close(); });
    forms.messageBox("¡Alto!");
    one.txtB.Text = std::string("nadie la ve");
    log.take();
    one.open();
  };
  log.on["frmUno_Load"] = [&] { one.open(); }; // opening already
  player->run("click btn");
  EXPECT_EQ(log.take(), "frmUno_Load txtA_LostFocus frmDos_Deactivate");
  EXPECT_EQ(one.chk.Value, 0);
  EXPECT_EQ(one.txtB.Text, "");
  EXPECT_EQ(one.com.items().size(), 2U);
}

// A screen may still report what was under way when a box opened.
TEST_F(FormsCases, NothingHappensBehindABox) {
  player->expectBox("Hola", Answer::Ok, [&] {
    forms.pressed(one.pic, MouseButton::Right);
    forms.clicked(one.btn);
    forms.invoked(one.pic); // as a screen reader presses it
    forms.typed(one.txtB, "x");
    forms.chosen(one.com, 0);
    forms.shortcutPressed(one.btn);
    forms.tabbed(one, true); // forward
    forms.closeRequested(frame);
    EXPECT_FALSE(forms.focusMoved(one.btn));
    EXPECT_FALSE(forms.activated(two));
    EXPECT_FALSE(forms.keyPressed(one, Key::Space));
  });
  forms.messageBox("Hola");
  EXPECT_EQ(log.take(), "");
}

// While Propia is shown modally, a click on Uno comes to nothing, and so does closing the frame.
TEST_F(FormsCases, AModalWindowHoldsTheOthersAndLetsTheTimerGoOn) {
  frame.tmr.Enabled = true;
  player->expectBox("frmPropia", Answer::Ok, [&] {
    forms.clicked(one.btn);
    forms.closeRequested(frame);
    // A second goes by.
    player->tick();
    player->run("click Propia.btn, close Propia");
  });
  own.showModal();
  EXPECT_EQ(log.take(), "frmPropia_Load tmr_Tick txtA_LostFocus btn_Click frmPropia_QueryUnload "
                        "frmPropia_Unload");
}

// `letClose` is what a window answers when it is asked (QueryUnload). `sessionMayEnd` asks as the
// system does before the person is logged out.
TEST_F(FormsCases, TheFrameAsksAllItsChildrenBeforeAnyCloses) {
  for (bool* letsClose : {&frame.letClose, &one.letClose}) {
    *letsClose = false;
    player->run("close Marco");
    EXPECT_FALSE(forms.sessionMayEnd());
    // Marco, Uno, Dos: all of them.
    EXPECT_EQ(forms.openWindows().size(), 3U);
    *letsClose = true;
  }
  EXPECT_TRUE(forms.sessionMayEnd());
  EXPECT_TRUE(one.isOpen()) << "another program may still hold the session up";
  log.take();
  // A second wish to close, while the question stands, changes nothing.
  log.on["frmMarco_QueryUnload"] = [&] {
    EXPECT_FALSE(frame.close());
    EXPECT_FALSE(forms.sessionMayEnd());
  };
  player->run("close Marco");
  EXPECT_EQ(log.take(), "frmMarco_QueryUnload frmDos_QueryUnload frmUno_QueryUnload "
                        "frmDos_Unload frmUno_Unload frmMarco_Unload");
}

} // namespace scripted

namespace falanges {

using TheKeyboard = Game;

// In the deployment, with the infantry chosen by the key 1: a unit comes by Enter and goes by
// Delete, as by the two mouse buttons. The arrows mark a square; the first one marks the lowest on
// the left, 21 of 5x5. A row is "steps => what is said then"; "click square 22" clicks the board
// there, "right picUnidad(22)" the unit on it with the right button.
TEST_F(TheKeyboard, DoesOnTheBoardWhatThePointerDoes) {
  start();
  run("menu NuevoJuego, 1");
  const forms::GridPicture& board = app.nuevoJuego.picTablero;
  // What a screen reader says of the board or, where the cursor is marked, of that square.
  const auto said = [&] { return (board.cursorSquare() ? "marked: " : "") + board.spokenName(); };
  walk({"Enter => Tablero 5x5", // no square is pointed at yet
        "Right, Left, Down => marked: Cuadro 21, fila 5, columna 1, vacío",
        "Up, Enter => marked: Infantería, Jugador 1, cuadro 16, fila 4, columna 1",
        "Right => marked: Cuadro 17, fila 4, columna 2, vacío",
        "Left, Delete => marked: Cuadro 16, fila 4, columna 1, vacío",
        "Down, Right, Right, Right, Right, Right => marked: Cuadro 25, fila 5, columna 5, vacío",
        "Space => marked: Infantería, Jugador 1, cuadro 25, fila 5, columna 5",
        // The mouse takes the mark away, and the keyboard goes on from where it pointed last.
        "click square 22, right picUnidad(22) => Tablero 5x5", "Enter => Tablero 5x5",
        "Right => marked: Cuadro 22, fila 5, columna 2, vacío",
        "Up => marked: Cuadro 17, fila 4, columna 2, vacío",
        "choose comTablero 6x6 => Tablero 6x6"},
       said);
}

} // namespace falanges
