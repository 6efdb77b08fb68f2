// What two players see of a network game, Ana (player 1) and Blas (player 2), each before a copy of
// the program that joins the same file. The orders of events are the search's (search_test.cpp).
//
// A copy looks at the file, or writes it, when a poll falls due: every 5 seconds here, or at once
// by `polls()`. A turn is one move. What the players do:
//   ana.joins(path)     chooses player 1 and the file in the options, past the boxes named
//   ana.leaves()        closes the window of the game
//   run("move 23 18")   clicks the unit on square 23, then the mark on 18: 1 is at the top left
//   run("tick 5")       five seconds go by, with the timer tmrRed, which counts down to the polls
//   run("load BOARD 1") loads a saved game, player 1 in turn, that is nothing of the network's
// `bothPlay(BOARD)`: both have joined a file with this board, Ana is in turn, and Blas has polled
// once. `put(TEXT)` writes the shared file, `file()` is what it holds ("none": it is missing), and
// `gameFile(BOARD, END)` the text of one with this board, whose last lines are END, or Ana's turn.
// `caption()` is the title of the game's window; `status()` what is said of player 1 and of
// player 2. A copy's `share` is its way to the file: while it `hangs`, what is begun waits until it
// `answers`; while it `refuses`, nothing can be begun.
//
// A copy's `screen` is the person before it: `expectBox(TEXT, ANSWER, MEANWHILE)` announces a box
// that will come; `joins` takes such boxes in braces. `principal` is what the copy knows of the
// game, `play` its window of play. `pictures()` is the board as it is seen, `expectBoard` wants the
// same of the records behind it. `menu()` names the entries of the menu "Juego" that are there to
// be chosen, `windows()` the windows that are open. A file that is no game, or not a whole one, is
// refused with the text `Invalid`, its path, and `Incomplete`.
#include "network/copies.h"

namespace falanges {

namespace {

// Boards, row by row from the top: b, i and g are player 2's flag, infantry and general; B, I and G
// are player 1's.
// In the game that most cases play Ana moves her general from 23 to 18, Blas his from 3 to 8.
const std::string Start = "b.g../...../...../...../..G.B";
const std::string AnaMoved = "b.g../...../...../..G../....B";
const std::string BlasMoved = "b..../..g../...../..G../....B";
// Ana's infantry takes the flag by the move from 6 to 1, Blas's by the one from 20 to 25.
const std::string Last = "b..../I..../...../....i/....B";
const std::string AnaWon = "I..../...../...../....i/....B";

// What closes a file: whose turn it is, and behind a won game a line of "1" and the number of the
// winner.
const std::string AnasTurn = "1\r\n", BlassTurn = "2\r\n";
const std::string AnasVictory = "1\r\n11\r\n", BlassVictory = "2\r\n12\r\n";

const std::string Updating = "Actualizando...";
const std::string NoAccess = "Sin acceso al archivo - Reintentando...";
const std::string IHaveWon = "Victoria - Juego finalizado";
const std::string IHaveLost = "Derrota - Juego finalizado";

std::string doesNotAnswer(const std::string& path) {
  return "El archivo no responde:\r\n" + path + "\r\n¿Seguir esperando?";
}

std::string cannotBeSaved(const std::string& path) {
  return "No se puede guardar el archivo:\r\n" + path + "\r\n¿Reintentar?";
}

std::string hasWon(const std::string& player) {
  return "JUGADOR -" + player +
         "- HA VENCIDO\r\n\r\nCierre la ventana del Tablero para iniciar otro juego";
}

} // namespace

// `TurnoPublicado`: this copy waits for the other's turn, and its own stands in the file.
TEST_F(Network, ATurnGoesToTheOtherCopyAndBackThroughTheFile) {
  // Other line ends than the program writes show its first writing.
  std::string made = gameFile(Start);
  std::erase(made, '\r');
  put(made);
  ana.joins(path);
  blas.joins(path);
  EXPECT_EQ(blas.caption(), "En Juego");
  blas.run("tick 1");
  EXPECT_EQ(blas.caption(), "Jugador -2- Actualización en: -5- segundos");
  blas.run("tick 4");
  EXPECT_EQ(blas.caption(), "Jugador -2- Actualización en: -1- segundos");
  blas.run("tick 1");
  EXPECT_EQ(blas.caption(), Updating);
  EXPECT_EQ(file(), gameFile(Start)) << "who joins out of turn writes what it loaded";
  EXPECT_TRUE(blas.principal.TurnoPublicado);

  ana.run("move 23 18");
  EXPECT_EQ(file(), gameFile(Start)) << "the turn passes in memory alone";
  ana.polls();
  EXPECT_EQ(file(), gameFile(AnaMoved, BlassTurn));
  EXPECT_EQ(blas.pictures(), Start);
  blas.polls();
  blas.expectBoard(AnaMoved);
  EXPECT_EQ(blas.status(), "En Espera/En Turno");
  EXPECT_FALSE(blas.principal.TurnoPublicado);

  ana.leaves(); // and comes back
  ana.joins(path);
  blas.run("move 3 8");
  blas.polls();
  EXPECT_EQ(file(), gameFile(BlasMoved, AnasTurn));
  ana.polls();
  ana.expectBoard(BlasMoved);
  EXPECT_EQ(ana.status(), "En Turno/En Espera");

  // Both begin the same game anew in the same programs, and nothing is left of the first one.
  ana.leaves();
  blas.leaves();
  bothPlay(Start);
  ana.run("move 23 18");
  ana.polls();
  blas.polls();
  blas.expectBoard(AnaMoved);
}

TEST_F(Network, ARefreshKeepsTheWindowsPlaceAndDropsWhatWasSelected) {
  bothPlay(Start);
  // Twips: 21 pixels out of the frame on the left, 100 down.
  blas.play.moveTo(-315, 1500);
  // Selects a unit; the arrows mark square 18 for the keyboard.
  blas.run("click picUnidad(23), Up, Up");
  EXPECT_TRUE(blas.play.picMovimientoPermitido(18));
  blas.polls();
  EXPECT_FALSE(blas.play.picMovimientoPermitido(18));
  EXPECT_EQ(blas.play.Top, 1500);
  EXPECT_EQ(blas.play.Left, -315);
  EXPECT_EQ(blas.play.picTablero.cursorSquare(), 18);
}

TEST_F(Network, AWinReachesTheOtherCopyAndEndsTheGameOnBoth) {
  bothPlay(Last);
  ana.screen.expectBox(victory("1", "CONQUISTADO la Bandera"), Answer::Ok, [&] {
    EXPECT_EQ(file(), gameFile(AnaWon, AnasVictory)) << "Blas need not wait for the box to close";
  });
  ana.run("move 6 1");
  blas.screen.expectBox(hasWon("1"));
  blas.polls();
  EXPECT_EQ(ana.caption(), IHaveWon);
  EXPECT_EQ(blas.caption(), IHaveLost);
  for (Copy* copy : {&ana, &blas}) {
    EXPECT_EQ(copy->pictures(), AnaWon);
    EXPECT_EQ(copy->status(), "Victoria/Derrota");
    EXPECT_EQ(copy->menu(), "");
    EXPECT_FALSE(copy->frame.tmrRed.Enabled);
  }
  put("");
  const std::string refusal = Invalid + path + Incomplete;
  for (Copy* copy : {&ana, &blas})
    copy->joins(path, {{refusal}}); // there is nothing to go on from
}

// The digit behind the "1" of the last line is the winner. Of another one it is only said that it
// has won: Ana stays in turn on the screen.
TEST_F(Network, ACopyInTurnSeesAResultTooWhateverItsDigit) {
  struct {
    std::string closing, digit, status;
    int JugadorActual;
  } const results[] = {{BlassVictory, "2", "Derrota/Victoria", 12},
                       {"2\r\n1x\r\n", "x", "En Turno/En Espera", 1}};
  for (const auto& [closing, digit, status, JugadorActual] : results) {
    put(gameFile(Start));
    ana.joins(path);
    put(gameFile(Start, closing));
    ana.screen.expectBox(hasWon(digit));
    ana.polls();
    EXPECT_EQ(ana.status(), status);
    EXPECT_EQ(ana.play.JugadorActual, JugadorActual);
    ana.leaves();
  }
}

TEST_F(Network, AJoinFromALocalGameLeadsToTheFilesGameAndARefusalLeavesThatOne) {
  // A game that is nobody's turn is not whole, and refused.
  const std::string nobodysTurn = "7\r\n";
  put(gameFile(Start, nobodysTurn));
  ana.run("load b.i../...../...../...../..I.B 1, move 23 18, menu Opciones");
  const std::string before = ana.shown() + ana.principal.ArchivoRed;
  // A file dialog that is cancelled, a file that is refused, and one that there is not.
  ana.choose("click btnCargarJuegoRed", std::nullopt);
  ana.joins(path, {{Invalid + path + Incomplete}});
  const std::string none = folder.file("ninguno");
  ana.joins(none, {{"No se puede abrir el archivo:\r\n" + none}});
  EXPECT_EQ(ana.shown() + ana.principal.ArchivoRed, before);
  put(gameFile(BlasMoved));
  ana.joins(path);
  ana.expectBoard(BlasMoved);
  EXPECT_EQ(ana.windows(), "EnJuego");
  EXPECT_TRUE(ana.frame.tmrRed.Enabled);
}

TEST_F(Network, ATornFileIsToldInTheCaptionAndPutRightAfterAnInterval) {
  bothPlay(Start);
  // The player whose flag stands on square 1.
  const std::string firstColumn = "2;";
  const std::string torn[] = {"",
                              gameFile(Start).substr(firstColumn.size()),
                              gameFile(Start, "2\r"),               // within the last line end
                              gameFile(Start, "2\r\n\r\n"),         // an empty line
                              gameFile(Start, "2\r\n11\r\n11\r\n"), // the result twice
                              gameFile(Start) + std::string(70000, ' ')}; // too large
  for (const std::string& text : torn) {
    SCOPED_TRACE(text);
    put(text);
    blas.polls();
    EXPECT_EQ(blas.caption(), NoAccess);
    EXPECT_EQ(blas.pictures(), Start);
    blas.run("tick 5");
    EXPECT_EQ(file(), text) << "its writer may be at work";
    blas.run("tick 1");
    EXPECT_EQ(file(), gameFile(Start)) << "it has none";
    EXPECT_EQ(blas.caption(), Updating);
  }
}

// 20 seconds are four intervals. Then the file is to be had again, but has been deleted meanwhile.
TEST_F(Network, AFileThatIsAwayIsToldInTheCaptionAndTheGameGoesOnWhenItIsBack) {
  bothPlay(Start);
  ana.share.refuses = blas.share.refuses = true;
  ana.run("move 23 18, tick 20");
  blas.run("tick 20");
  EXPECT_EQ(ana.caption(), NoAccess);
  EXPECT_EQ(blas.caption(), NoAccess);
  ana.share.refuses = blas.share.refuses = false;
  std::filesystem::remove(scripted::toPath(path));
  blas.run("tick 1");
  EXPECT_EQ(file(), "none") << "who waits gives its writer a full interval";
  ana.run("tick 1");
  EXPECT_EQ(file(), gameFile(AnaMoved, BlassTurn));
}

// Blas may move on his own screen, out of turn, first Ana's unit and then his: nothing of it is
// written, and a poll brings back what the file holds.
TEST_F(Network, MovesOfWhoIsNotInTurnWinNothingAndGoWithALaterPoll) {
  bothPlay(Start);
  blas.run("move 23 18");
  blas.polls();
  EXPECT_EQ(blas.pictures(), AnaMoved) << "it seems to be Blas's turn";
  blas.run("move 3 8");
  blas.polls();
  EXPECT_EQ(blas.pictures(), Start);
  // Behind the first of these moves no unit of Blas's is left, behind the second none that can
  // move: his turn, which it seems to be, could not pass.
  for (const auto& [board, move, moved] :
       {std::array{"b..../...../...../...i./..I.B", "move 23 19", "b..../...../...../...I./....B"},
        std::array{"ib.../bb.../...../...../I...B", "move 21 16",
                   "ib.../bb.../...../I..../....B"}}) {
    ana.leaves();
    blas.leaves();
    bothPlay(board);
    blas.run(move);
    EXPECT_EQ(blas.pictures(), moved) << "without a box";
    blas.polls();
    EXPECT_EQ(blas.pictures(), board);
    EXPECT_EQ(file(), gameFile(board));
  }
}

// --- A share that hangs ------------------------------------------------------------------------

TEST_F(Network, AWaitingWindowGoesOnWhileTheShareHangs) {
  bothPlay(Start);
  for (const char* time : {"once", "and again"}) {
    SCOPED_TRACE(time);
    blas.share.hangs = true;
    blas.polls();
    blas.run("tick 1");
    EXPECT_EQ(blas.caption(), Updating) << "a slow share is none that is away";
    blas.run("tick 1");
    EXPECT_EQ(blas.caption(), NoAccess);
    blas.run("click picUnidad(23)");
    EXPECT_TRUE(blas.play.picMovimientoPermitido(18));
    blas.share.answers();
    blas.run("tick 1");
    EXPECT_EQ(blas.caption(), Updating);
  }
}

// Ana may not leave without a question while the result is not in the file; Yes: it is tried again.
TEST_F(Network, AWinnerSeesTheBoxAtOnceAndTheResultIsTriedUntilItIsWritten) {
  bothPlay(Last);
  ana.share.hangs = true;
  ana.screen.expectBox(victory("1", "CONQUISTADO la Bandera"));
  ana.run("move 6 1");
  EXPECT_EQ(ana.caption(), NoAccess);
  EXPECT_EQ(ana.status(), "Victoria/Derrota");
  ana.screen.expectBox(cannotBeSaved(path), Answer::Yes);
  ana.leaves();
  EXPECT_TRUE(ana.play.isOpen());
  ana.share.answers();
  ana.run("tick 1");
  EXPECT_EQ(file(), gameFile(AnaWon, AnasVictory));
  EXPECT_EQ(ana.caption(), IHaveWon);
  EXPECT_FALSE(ana.frame.tmrRed.Enabled);
  ana.leaves(); // without a question
}

// Ana answers No and loses the result; what was still on its way when she left is not written over
// another game under the same name. That one has no last line, and so is refused in the end.
TEST_F(Network, AWinThatIsGivenUpSparesTheNextGameAndItsFile) {
  bothPlay(Last);
  ana.share.hangs = true;
  ana.screen.expectBox(victory("1", "CONQUISTADO la Bandera"));
  ana.run("move 6 1");
  // Her copy has looked at the file now, and begins to write.
  ana.share.answers();
  ana.share.hangs = true;
  ana.run("tick 1"); // the result is on its way
  ana.screen.expectBox(cannotBeSaved(path), Answer::No);
  ana.leaves();
  const std::string other = gameFile(Start, "");
  put(other);
  ana.load(gameFile(BlasMoved));
  EXPECT_EQ(ana.status(), "En Turno/En Espera");
  ana.share.answers();
  EXPECT_EQ(file(), other);
  ana.joins(path, {{Invalid + path + Incomplete}});
}

TEST_F(Network, AJoinOnAShareThatHangsAsksWhetherToWait) {
  put(gameFile(Start));
  ana.run("load " + BlasMoved + " 1");
  const std::string before = ana.shown() + ana.principal.ArchivoRed;
  const std::string question = doesNotAnswer(path);
  ana.share.hangs = true;
  ana.joins(path, {{question, Answer::Yes}, {question, Answer::No}});
  ana.run("close Opciones");
  EXPECT_EQ(ana.shown() + ana.principal.ArchivoRed, before) << "nothing has changed";
  ana.joins(path, {{question, Answer::Yes, [&] { ana.share.answers(); }}});
  EXPECT_EQ(ana.pictures(), Start);
  EXPECT_TRUE(ana.frame.tmrRed.Enabled);
}

// A look of Blas's at the first file hangs when he leaves. It does not keep him from another file;
// on the first one, under whatever spelling, he is asked whether to wait for it.
TEST_F(Network, WhatHangsOfAnEarlierGameHoldsUpTheNextOneOnItsOwnFileAlone) {
  bothPlay(Start);
  blas.share.hangs = true;
  blas.polls();
  blas.leaves();
  blas.share.hangs = false;
  const std::string other = folder.file("otra");
  std::ofstream(other, std::ios::binary) << gameFile(AnaMoved, BlassTurn);
  blas.joins(other);
  blas.run("move 3 8");
  blas.polls();
  EXPECT_EQ(bytesOf(other), gameFile(BlasMoved));
  blas.leaves();
  const std::string spelledAnew = folder.file("./partida común.txt");
  blas.joins(spelledAnew,
             {{doesNotAnswer(spelledAnew), Answer::Yes, [&] { blas.share.answers(); }}});
  blas.expectBoard(Start);
}

TEST_F(Network, TheLastPositionThatWasSeenSavesAGameWhoseFileIsTorn) {
  const std::string question =
      "El archivo está incompleto. ¿Continuar desde la última posición conocida?";
  bothPlay(Start);
  ana.run("move 23 18");
  ana.polls();
  ana.leaves();
  const std::string torn = gameFile(AnaMoved, "2\r");
  put(torn);
  ana.joins(path, {{question, Answer::No}, {Invalid + path + Incomplete}});
  EXPECT_EQ(file(), torn);
  ana.joins(path, {{question, Answer::Yes}});
  ana.expectBoard(AnaMoved);
  EXPECT_EQ(file(), gameFile(AnaMoved, BlassTurn));
}

// Two more copies whose operations on the file run on threads, as in the program, not at once and
// by hand. Player 1 moves, then player 2 takes the flag.
TEST_F(Network, TwoCopiesPlayToTheEndOnThreadsOfTheirOwn) {
  Copy carla{1, network::onOwnThread}, david{2, network::onOwnThread};
  const auto playUntil = [&](const std::function<bool()>& done) {
    while (!done()) {
      carla.run("tick 1");
      david.run("tick 1");
    }
  };
  put(gameFile(Last));
  carla.joins(path);
  david.joins(path);
  carla.run("move 6 2");
  playUntil([&] { return david.status() == "En Espera/En Turno"; });
  david.screen.expectBox(victory("2", "CONQUISTADO la Bandera"));
  carla.screen.expectBox(hasWon("2"));
  david.run("move 20 25");
  playUntil([&] { return carla.caption() == IHaveLost; });
  EXPECT_EQ(file(), gameFile("bI.../...../...../...../....i", BlassVictory));
}

} // namespace falanges
