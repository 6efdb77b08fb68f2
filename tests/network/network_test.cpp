// What two players see of a network game, Ana (player 1) and Blas (player 2), each before a copy of
// the program that joins the same file. The orders of events are the search's (search_test.cpp).
//
// A copy looks at the file, or writes it, when a poll falls due: with the sixth second, once the
// caption has counted down from 5, or at once by `polls()`. A turn is one move. Who is not in turn
// takes over at each poll what stands in the file. What the players do:
//   ana.joins(path)     chooses player 1 and the file in the options, past the boxes named
//   ana.leaves()        closes the window of the game
//   run("move 23 18")   clicks the unit on square 23, then the mark on 18: 1 is at the top left
//   run("tick 5")       five seconds go by, with the timer tmrRed, which counts down to the polls
//   run("load BOARD 1") loads a saved game, player 1 in turn, that is nothing of the network's
// `bothPlay(BOARD)`: both have joined a file with this board, Ana is in turn, and Blas has polled
// once. Any of the boards can stand for such a game: AnaMoved is then only a board, with Ana in
// turn. `put(TEXT)` writes the shared file, `file()` is what it holds ("none": it is missing), and
// `gameFile(BOARD, END)` the text of one with this board, whose last lines are END, or Ana's turn.
// `caption()` is the title of the game's window; `status()` what is said of player 1 and of
// player 2. A copy's `share` is its way to the file: while it `hangs`, what is begun waits until it
// `answers`; while it `refuses`, nothing can be begun; `threads` begins it on a thread of its own.
//
// A copy's `screen` is the person before it: `expectBox(TEXT, ANSWER, MEANWHILE)` announces a box
// that will come; `joins` takes such boxes in braces. One that is not announced, and one that is
// and does not come, fail the case. `principal` is what the copy knows of the game, `play` its
// window of play. `pictures()` is the board as it is seen, `expectBoard` wants the same of the
// records behind it. `menu()` names the entries of the menu "Juego" to begin, load or save a game
// that are there to be chosen, `windows()` the windows that are open. `victory(PLAYER, HOW)` is the
// box of the player who wins. A file that is no game, or not a whole one, is refused
// with the text `Invalid`, its path, and `Incomplete`.
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
const std::string BlassTurn = "2\r\n";
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

// On the board `Last`.
void winsWhileTheShareHangs(Copy& ana) {
  ana.share.hangs = true;
  ana.screen.expectBox(victory("1", "CONQUISTADO la Bandera"));
  ana.run("move 6 1");
}

} // namespace

// `TurnoPublicado`: this copy waits for the other's turn, and its own stands in the file.
TEST_F(Network, ATurnGoesToTheOtherCopyAndBackThroughTheFile) {
  // Other line ends than the program writes show its first writing.
  std::string made = gameFile(Start);
  std::erase(made, '\r');
  put(made);
  // The sixth second brings Blas's first poll, the next one begins the count again.
  ana.joins(path);
  blas.joins(path);
  blas.run("tick 6");
  EXPECT_EQ(blas.caption(), Updating);
  EXPECT_EQ(file(), gameFile(Start)) << "who joins out of turn writes what it loaded";
  blas.run("tick 1");
  EXPECT_EQ(blas.caption(), "Jugador -2- Actualización en: -5- segundos");
  EXPECT_TRUE(blas.principal.TurnoPublicado);

  ana.run("move 23 18");
  EXPECT_EQ(file(), gameFile(Start)) << "the turn passes in memory alone"; // until her next poll
  ana.polls();
  EXPECT_EQ(file(), gameFile(AnaMoved, BlassTurn));
  blas.polls();
  blas.expectBoard(AnaMoved);
  EXPECT_EQ(blas.status(), "En Espera/En Turno");
  EXPECT_FALSE(blas.principal.TurnoPublicado);
  // His turn goes to Ana in the same way.
  blas.run("move 3 8");
  blas.polls();
  ana.polls();
  ana.expectBoard(BlasMoved);

  // Both begin the same game anew in the same programs, and nothing is left of the first one: a
  // copy that still knew its turns might take this one, which is the same, for an old text.
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
  // Selects a unit of Ana's, who is in turn, so that the square 18 can be gone to. The first arrow
  // marks the square that the mouse was on, 23, the second one 18, for the keyboard.
  blas.run("click picUnidad(23), Up, Up");
  EXPECT_TRUE(blas.play.picMovimientoPermitido(18));
  blas.polls(); // shows the board of the file anew, though nothing has changed there
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
  ana.run("move 6 1"); // takes the flag
  blas.screen.expectBox(hasWon("1"));
  blas.polls();
  EXPECT_EQ(ana.caption(), IHaveWon);
  EXPECT_EQ(blas.caption(), IHaveLost);
  for (Copy* copy : {&ana, &blas}) {
    EXPECT_EQ(copy->pictures(), AnaWon);
    EXPECT_EQ(copy->status(), "Victoria/Derrota");
    EXPECT_EQ(copy->menu(), ""); // nothing to load or save behind a game that has ended
    EXPECT_FALSE(copy->frame.tmrRed.Enabled);
    copy->run("menu Opciones"); // from where the next game is joined
    EXPECT_EQ(copy->windows(), "EnJuego Opciones");
  }
}

TEST_F(Network, AJoinLeavesTheLocalGameAsItIsUntilItLeadsToTheFiles) {
  // A game that is nobody's turn is not whole, and refused.
  const std::string none = folder.file("ninguno"), nobodysTurn = "7\r\n";
  put(gameFile(Start, nobodysTurn));
  ana.run("load " + AnaMoved + " 1, menu Opciones");
  // What her windows show, and the path of the game that was opened last: the local one.
  const std::string before = ana.shown() + ana.principal.ArchivoRed;
  // A file dialog that is cancelled, a file that is refused, and one that there is not.
  ana.choose("click btnCargarJuegoRed", std::nullopt);
  ana.joins(path, {{Invalid + path + Incomplete}});
  ana.joins(none, {{"No se puede abrir el archivo:\r\n" + none}});
  // A share that hangs: after half a second Ana is asked whether to wait on. She waits for another
  // half second, but not for a third.
  put(gameFile(BlasMoved));
  ana.share.hangs = true;
  ana.joins(path, {{doesNotAnswer(path), Answer::Yes}, {doesNotAnswer(path), Answer::No}});
  EXPECT_EQ(ana.shown() + ana.principal.ArchivoRed, before);
  // Now it answers while she is asked.
  ana.joins(path, {{doesNotAnswer(path), Answer::Yes, [&] { ana.share.answers(); }}});
  ana.expectBoard(BlasMoved);
  EXPECT_EQ(ana.windows(), "EnJuego");
  EXPECT_TRUE(ana.frame.tmrRed.Enabled);
}

// No thread can be made for a look at the file, then the file is torn, and at last it is missing.
TEST_F(Network, AFileThatCannotBeHadIsToldInTheCaptionAndPutRightAfterAnInterval) {
  bothPlay(Start);
  blas.share.refuses = true;
  blas.run("tick 20"); // a poll falls due meanwhile, and is tried again in each second
  EXPECT_EQ(blas.caption(), NoAccess);
  blas.share.refuses = false;
  blas.run("tick 1");
  EXPECT_EQ(blas.caption(), Updating);
  // Its first column was the player whose flag stands on square 1.
  const std::string withoutFirstColumn = gameFile(Start).substr(std::string("2;").size());
  for (const std::string& text : {std::string(), withoutFirstColumn, std::string("none")}) {
    SCOPED_TRACE(text);
    put(text);
    if (text == "none")
      std::filesystem::remove(scripted::toPath(path));
    blas.polls();
    EXPECT_EQ(blas.caption(), NoAccess);
    EXPECT_EQ(blas.pictures(), Start);
    // Blas looks again in each second. His sixth look in vain still leaves the file alone, the
    // seventh is an interval behind the first: he writes the board that he knows.
    blas.run("tick 5");
    EXPECT_EQ(file(), text) << "its writer may be at work";
    blas.run("tick 1");
    EXPECT_EQ(file(), gameFile(Start)) << "nobody is at work on it any more";
    EXPECT_EQ(blas.caption(), Updating);
  }
}

// Out of turn Blas moves a unit of Ana's, which wins nothing, but passes the turn to him on his own
// screen. The next poll takes the move back, unless he can move there, and so pass the turn back
// himself: on the first board he can, and it stays. On the second one Ana's infantry, which he
// moves from 23, takes the last unit of his but the flag: he cannot, and the poll takes it back.
TEST_F(Network, AMoveOutOfTurnStaysOnlyWhileItsPlayerCanPassTheTurnBack) {
  bothPlay(Start);
  blas.run("move 23 18");
  blas.polls();
  EXPECT_EQ(blas.pictures(), AnaMoved);
  blas.leaves();
  const std::string hisLast = "b..../...../...../...i./..I.B";
  put(gameFile(hisLast));
  blas.joins(path);
  blas.polls();
  // No box of a victory comes: Blas's copy is not in turn.
  blas.run("move 23 19");
  EXPECT_EQ(blas.pictures(), "b..../...../...../...I./....B") << "without a box";
  blas.polls();
  EXPECT_EQ(blas.pictures(), hisLast);
  EXPECT_EQ(file(), gameFile(hisLast));
}

// --- A share that hangs ------------------------------------------------------------------------

TEST_F(Network, AWaitingWindowTellsOfAShareThatHangsFromTheSecondSecondOn) {
  bothPlay(Start);
  for (const char* time : {"once", "and again"}) {
    SCOPED_TRACE(time);
    blas.share.hangs = true;
    blas.polls(); // begins a look at the file that does not come back
    blas.run("tick 1");
    EXPECT_EQ(blas.caption(), Updating) << "a slow share is none that is away";
    blas.run("tick 1");
    EXPECT_EQ(blas.caption(), NoAccess);
    blas.share.answers();
    blas.run("tick 1");
    EXPECT_EQ(blas.caption(), Updating);
  }
}

// Ana may not leave without a question while the result is not in the file; Yes: it is tried again,
// and she stays.
TEST_F(Network, AWinnerSeesTheBoxAtOnceAndTheResultIsTriedUntilItIsWritten) {
  bothPlay(Last);
  winsWhileTheShareHangs(ana);
  EXPECT_EQ(ana.caption(), NoAccess);
  EXPECT_EQ(ana.status(), "Victoria/Derrota");
  ana.screen.expectBox(cannotBeSaved(path), Answer::Yes);
  ana.leaves();
  EXPECT_TRUE(ana.play.isOpen());
  ana.share.answers(); // what the share held up goes on, and her copy hears of it with the tick
  ana.run("tick 1");
  EXPECT_EQ(file(), gameFile(AnaWon, AnasVictory));
  EXPECT_EQ(ana.caption(), IHaveWon);
  ana.leaves(); // without a question
}

// Ana answers No and loses the result; what was still on its way when she left is not written over
// another game under the same name. That one has no last line, so that it is refused in the end: of
// a won game Ana is not asked whether she goes on from the last known position.
TEST_F(Network, AWinThatIsGivenUpIsNotWrittenOverAnotherGame) {
  bothPlay(Last);
  winsWhileTheShareHangs(ana);
  // The look at the file that came before comes back; with the tick her copy hears of it and begins
  // to write, and that hangs in its turn.
  ana.share.answers();
  ana.share.hangs = true;
  ana.run("tick 1");
  ana.screen.expectBox(cannotBeSaved(path), Answer::No);
  ana.leaves();
  const std::string other = gameFile(Start, "");
  put(other);
  ana.share.answers(); // now the writing goes on, and finds that the file is another
  EXPECT_EQ(file(), other);
  ana.joins(path, {{Invalid + path + Incomplete}});
}

// A look of Blas's at the first file hangs when he leaves. It does not keep him from another file;
// on the first one, under whatever spelling, he is asked whether to wait for it.
TEST_F(Network, WhatHangsOfAnEarlierGameHoldsUpTheNextOneOnItsOwnFileAlone) {
  bothPlay(Start);
  blas.share.hangs = true;
  blas.polls(); // begins the look
  blas.leaves();
  // What is begun from now on does not hang; the look that hangs already still waits.
  blas.share.hangs = false;
  blas.joins(blas.write("otra", gameFile(AnaMoved, BlassTurn)));
  blas.expectBoard(AnaMoved);
  blas.leaves();
  // The first file, whose path is `path`, by another spelling of it.
  const std::string spelledAnew = folder.file("./partida común.txt");
  blas.joins(spelledAnew,
             {{doesNotAnswer(spelledAnew), Answer::Yes, [&] { blas.share.answers(); }}});
  blas.expectBoard(Start);
}

TEST_F(Network, TheLastPositionThatWasSeenSavesAGameWhoseFileIsTorn) {
  const std::string question =
      "El archivo está incompleto. ¿Continuar desde la última posición conocida?";
  // Any board but the usual one, with Ana in turn: that is what her copy has seen last.
  bothPlay(AnaMoved);
  ana.leaves();
  put(""); // the file is torn: nothing is left of its text
  ana.joins(path, {{question, Answer::No}, {Invalid + path + Incomplete}});
  EXPECT_EQ(file(), "");
  ana.joins(path, {{question, Answer::Yes}});
  ana.expectBoard(AnaMoved);
  EXPECT_EQ(file(), gameFile(AnaMoved));
}

// Ana moves her infantry past the flag, then Blas takes hers with his. On threads an operation
// takes its time, so that seconds go by until the other player's move has come.
TEST_F(Network, TwoCopiesPlayToTheEndOnThreadsOfTheirOwn) {
  const auto aSecondGoesBy = [this] {
    ana.run("tick 1");
    blas.run("tick 1");
  };
  bothPlay(Last);
  // From here on: the first polls were done at once.
  ana.share.threads = blas.share.threads = true;
  ana.run("move 6 2");
  while (blas.status() != "En Espera/En Turno")
    aSecondGoesBy();
  blas.screen.expectBox(victory("2", "CONQUISTADO la Bandera"));
  ana.screen.expectBox(hasWon("2"));
  blas.run("move 20 25");
  while (ana.caption() != IHaveLost)
    aSecondGoesBy();
  EXPECT_EQ(ana.status(), "Derrota/Victoria");
  EXPECT_EQ(file(), gameFile("bI.../...../...../...../....i", BlassVictory));
}

} // namespace falanges
