// The frame window: its menu, files, boxes and options. A board is drawn from the top row, "/"
// between rows: B I C E G are flag, infantry, cavalry, elephants and general of player 1, b i c e g
// those of player 2, "." is an empty square; the number behind it says whose turn it is.
//
// `run(steps, box)` does the steps one by one; they lead to the box with this text, or to none:
//   menu X             chooses the entry mnuX of the menu
//   click X            clicks an element, by its name
//   close X            closes a window inside the frame
//   activate X         brings a window to the front
//   type BOX TEXT      types the text in place of what the box holds
//   choose LIST ITEM   from a drop-down list
//   load BOARD TURN    loads a saved game, which leads to play
//   layOut BOARD TURN  loads a template, which leads to the deployment
//   save Juego NAME    saves the game under this name
//   Tab                presses that key
//   click square 1     clicks the deployment's board, which lies behind the options
// A row of `walk` is "steps => what is seen then". `menu()` is what the menu shows of games and
// templates, `windows()` the open windows inside the frame: NuevoJuego is the deployment, EnJuego
// play, Opciones the options, which close as soon as another window comes to the front. `start()`
// starts the program and closes the information box that comes first.
//
// The options' file has four fields and a line end: "1" when more flags are allowed; "1" when units
// may stand in any row; seconds between two looks at a network game's file; moves a turn.
// `configure` writes it behind the program. In the options these are, in this order, the tick boxes
// chkPermitirBanderas (its label is lblBandera) and chkLimiteFilas (lblLimiteFilas) and the boxes
// txtTiempoRed and txtMovPorTurno. Of a network game there are comJugadorActualRed, which player
// this copy is, "1" or "2", and btnCargarJuegoRed, the button that joins one.
//
// `app` is the program, `frame` its window around the others, `principal` what it knows of game and
// options, `screen` the person before it. `screen.expectBox(TEXT, ANSWER, MEANWHILE)` announces a
// box that will come; the ANSWER is Ok unless it is named, MEANWHILE is what is looked at while the
// box is open.
#include "scripted/game.h"
#include "shell/form1.h"

namespace falanges {

class Shell : public Game {
protected:
  // The options that the program goes by, as the file has them.
  std::string inForce() const {
    return principal.OpcPermitirBanderas + ";" + principal.OpcLimiteFilas + ";" +
           std::to_string(principal.SegundosActualizacion) + ";" +
           std::to_string(principal.MovPorTurno) + ";";
  }
  std::string inFile() { return bytesOf(file("VornathFalangesZTEE.cfg")); }
};

// It is the first that is seen. While it is open the options have been read and the folder of the
// templates made; the frame opens after. 1;0;25;4 are not the options of a program without a file.
TEST_F(Shell, TheInformationBoxStandsAloneBeforeTheRest) {
  configure("1;0;25;4;\r\n");
  screen.expectBox(informationBox().text, Answer::Ok, [&] {
    EXPECT_FALSE(frame.isOpen());
    EXPECT_TRUE(std::filesystem::is_directory(scripted::toPath(file("plantillas"))));
    EXPECT_EQ(inForce(), "1;0;25;4;");
  });
  app.start();
}

TEST_F(Shell, ASessionThatEndsBehindTheInformationBoxOpensNothing) {
  // The program's symbol, ico/tiempo.ico, cannot be loaded. As a rule a box tells of that behind
  // the information box; here any further box fails, as one that nobody expects.
  screen.missingPictures = "tiempo";
  screen.expectBox(informationBox().text, Answer::Ok, [&] {
    EXPECT_TRUE(app.forms.sessionMayEnd()); // the system asks before the person is logged out
    app.forms.sessionEnded();               // and then it happens
  });
  app.start();
  EXPECT_FALSE(frame.isOpen());
}

TEST(Start, AProgramThatDoesNotKnowItsFolderSaysSoAndOpensNothing) {
  // The person before a program whose folder is not known.
  struct : scripted::Player {
    std::string programFolder() override { return ""; }
  } lost;
  App app(lost);
  lost.expectBox("Falanges no puede empezar en esta carpeta.\r\n\r\nSu nombre, o el de una "
                 "carpeta por encima de ella, no está escrito en UTF-8, o es la raíz del disco. "
                 "Cambie ese nombre o copie el programa a otra carpeta.");
  app.start();
  EXPECT_FALSE(app.frame.isOpen());
}

// A game leads to play, a template to the deployment, and what was open before closes. A row is
// "steps => the windows: what the menu holds then".
TEST_F(Shell, AFileLeadsFromWindowToWindowAndTheMenuHoldsWhatCanBeDoneThere) {
  start();
  // Where neither a deployment nor a game is open.
  const std::string none = ": Nuevo Juego, Cargar Juego, Cargar Plantilla";
  const std::string deployment = "NuevoJuego: Cargar Juego, Cargar Plantilla, Guardar Plantilla";
  // The second row takes the options' place, the third closes play and a deployment, the fourth
  // takes the options' place again, the last one the deployment's.
  walk({"menu Opciones => Opciones" + none,
        "load g..../...../...../...../G.... 2 => EnJuego: Guardar Juego",
        "close EnJuego, menu NuevoJuego, close NuevoJuego => " + none,
        "menu Opciones, layOut g..../...../...../...../G.... 1 => " + deployment,
        "load g..../...../...../...../G.... 2 => EnJuego: Guardar Juego"},
       [&] { return windows() + ": " + menu(); });
}

// Templates are kept in the folder plantillas, saved games in jguardados. `lastFile` is what the
// file dialog was opened with. The clock stands at 9 March 2005, 8:05:07.
TEST_F(Shell, AFileIsAskedForInItsFolderUnderANameWithDateAndTime) {
  start();
  run("layOut g..../...../...../...../....G 1");
  EXPECT_EQ(screen.lastFile.folder, file("plantillas"));
  run("load g..../...../...../...../....G 1, save Juego uno");
  EXPECT_EQ(screen.lastFile.folder, file("jguardados"));
  EXPECT_EQ(screen.lastFile.fileName, "JuegoGuardado-09-03-2005-08-05-07");
}

// A click on the tick box or on the label beside it changes the option. The file has single-byte
// characters: ñ is \xF1 there, and for € there is none, so it is written as "?".
TEST_F(Shell, EachChangeOfAnOptionReachesTheFileAndCountsAtOnce) {
  start();
  // Behind the program, which reads it anew when the options open. The second option is empty, and
  // the second line is not kept.
  configure("1;;30;3;\r\nlost;");
  walk({"menu Opciones, click chkPermitirBanderas => 0;;30;3;\r\n",
        "click lblLimiteFilas => 0;1;30;3;\r\n",
        "click lblBandera, click chkLimiteFilas => 1;0;30;3;\r\n",
        "type txtTiempoRed 8x7 => 1;0;8x7;3;\r\n",
        "type txtMovPorTurno 5ñ€ => 1;0;8x7;5\xF1?;\r\n"},
       [&] { return inFile(); });
  // What counts of the texts 8x7 and 5ñ€.
  EXPECT_EQ(inForce(), "1;0;8;5;") << "the numbers that the boxes begin with";
  app.forms.typed(app.opciones.txtTiempoRed, "12\r\n3"); // pasted
  EXPECT_EQ(inFile(), "1;0;12;5\xF1?;\r\n") << "one line of it";
}

// Which player this copy is in a network game stands in no file, but lasts as long as the program.
// The first choice of the list is "1".
TEST_F(Shell, TheNetworksPlayerIsKeptWhileTheOptionsAreClosed) {
  start();
  run("menu Opciones, choose comJugadorActualRed 2, close Opciones, menu Opciones");
  EXPECT_EQ(app.opciones.comJugadorActualRed.Text(), "2");
}

// Whatever would take the keyboard from the box with the wrong number leaves it there, and the
// options open. A box looks at its number when the keyboard leaves it; the closing looks at both,
// first at the seconds. `run` fails if a second message follows the one that it names.
TEST_F(Shell, ANumberOutOfRangeHoldsTheDialogWithOneBox) {
  configure("0;0;0;0;\r\n"); // no seconds, no moves: both are out of range
  start();
  // The keyboard is with the moves: the closing must take it to the seconds, and say nothing of the
  // moves on the way.
  run("menu NuevoJuego, menu Opciones, click txtMovPorTurno");
  // No game is joined by the button either: a file dialog that nobody expects would fail the case.
  for (const std::string leaving :
       {"close Opciones", "click square 1", "activate NuevoJuego", "click btnCargarJuegoRed",
        "type txtTiempoRed 4, Tab", "type txtTiempoRed 301, Tab"}) {
    run(leaving, "DEBE colocar un valor entre 5 y 300 segundos de actualización");
    EXPECT_EQ(screen.focused(), "txtTiempoRed") << leaving;
  }
  // The largest and the smallest number of seconds: no message. The moves are wrong still.
  run("type txtTiempoRed 300, Tab, type txtTiempoRed 5, Tab");
  for (const std::string leaving : {"close Opciones", "type txtMovPorTurno 6, Tab"}) {
    run(leaving, "DEBE colocar un valor entre 1 y 5 Movimientos por Turno");
    EXPECT_EQ(screen.focused(), "txtMovPorTurno") << leaving;
  }
  // Now both are in range, so that the options close when the deployment comes to the front.
  run("type txtMovPorTurno 5, Tab, type txtMovPorTurno 1, Tab, activate NuevoJuego");
  EXPECT_EQ(windows(), "NuevoJuego");
}

// The developer's tool, another program with the one window Form1: it tells the place of the
// pointer over Picture1, the largest of its pictures, in twips from the picture's corner. "over
// Picture1 1500;30" points 1500 twips to the right of it and 30 below.
TEST(Coordinates, FollowThePointerOverTheLargestPicture) {
  const auto player = scripted::makePlayer();
  forms::Forms forms(*player);
  Form1 form(forms);
  forms.startUp(form);
  player->run("over Picture1 1500;30");
  EXPECT_EQ(form.Picture1.ToolTipText.get(), "X: 1500 - Y: 30");
}

} // namespace falanges
