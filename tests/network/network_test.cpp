// What two players see of a network game. The orders of events are the search's.
#include "network/copies.h"

namespace falanges {

namespace {

std::string counting(const std::string& player, const std::string& seconds) {
  return "Jugador -" + player + "- Actualización en: -" + seconds + "- segundos";
}

std::string hasWon(const std::string& player) {
  return "JUGADOR -" + player +
         "- HA VENCIDO\r\n\r\nCierre la ventana del Tablero para iniciar otro juego";
}

} // namespace

TEST_F(Network, ATurnGoesToTheOtherCopyAndBackThroughTheFile) {
  // Other line ends than the program writes show its first writing.
  std::string made = gameFile(Start);
  std::erase(made, '\r');
  put(made);
  ana.joins(path);
  blas.joins(path);
  EXPECT_EQ(blas.caption(), "En Juego");
  for (const char* seconds : {"5", "4", "3", "2", "1"}) {
    blas.run("tick 1");
    EXPECT_EQ(blas.caption(), counting("2", seconds));
  }
  blas.run("tick 1");
  EXPECT_EQ(blas.caption(), "Actualizando...");
  EXPECT_EQ(file(), gameFile(Start)) << "who joins out of turn writes what it loaded";
  EXPECT_TRUE(blas.principal.TurnoPublicado);

  ana.run("move 23 18");
  EXPECT_EQ(file(), gameFile(Start)) << "the turn passes in memory alone";
  ana.polls();
  EXPECT_EQ(file(), gameFile(AnaMoved, "2\r\n"));
  EXPECT_EQ(blas.pictures(), Start);
  blas.polls();
  blas.expectBoard(AnaMoved);
  EXPECT_EQ(blas.status(), "En Espera/En Turno");
  EXPECT_FALSE(blas.principal.TurnoPublicado);

  ana.leaves(); // and comes back
  ana.joins(path);
  blas.run("move 3 8");
  blas.polls();
  EXPECT_EQ(file(), gameFile(BlasMoved));
  ana.polls();
  ana.expectBoard(BlasMoved);
  EXPECT_EQ(ana.status(), "En Turno/En Espera");
}

TEST_F(Network, ARefreshKeepsTheWindowsPlaceAndDropsWhatWasSelected) {
  bothPlay(Start);
  blas.play.Top = 1500;
  blas.play.Left = -315;
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
  const std::string taken = "I..../...../...../....i/....B";
  ana.screen.expectBox(victory("1", "CONQUISTADO la Bandera"), Answer::Ok, [&] {
    EXPECT_EQ(file(), gameFile(taken, "1\r\n11\r\n")) << "Blas need not wait for the box to close";
  });
  ana.run("move 6 1");
  blas.screen.expectBox(hasWon("1"));
  blas.polls();
  EXPECT_EQ(ana.pictures(), taken);
  EXPECT_EQ(blas.pictures(), taken);
  EXPECT_EQ(ana.caption(), "Victoria - Juego finalizado");
  EXPECT_EQ(blas.caption(), "Derrota - Juego finalizado");
  for (Copy* copy : {&ana, &blas}) {
    EXPECT_EQ(copy->status(), "Victoria/Derrota");
    EXPECT_EQ(copy->menu(), "");
    EXPECT_FALSE(copy->frame.tmrRed.Enabled);
  }
}

TEST_F(Network, ACopyInTurnSeesAResultTooWhateverItsDigit) {
  for (const auto& [closing, status, JugadorActual] :
       std::vector<std::tuple<std::string, std::string, int>>{
           {"1\r\n11", "Victoria/Derrota", 11},
           {"1\r\n12", "Derrota/Victoria", 12},
           {"12", "Derrota/Victoria", 12},
           {"2\r\n1x", "En Turno/En Espera", 1}}) {
    put(gameFile(Start));
    ana.joins(path);
    put(gameFile(Start, closing + "\r\n"));
    ana.screen.expectBox(hasWon(closing.substr(closing.size() - 1)));
    ana.polls();
    EXPECT_EQ(ana.status(), status);
    EXPECT_EQ(ana.play.JugadorActual, JugadorActual);
    ana.leaves();
  }
}

TEST_F(Network, AJoinFromALocalGameLeadsToTheFilesGameAndARefusalLeavesThatOne) {
  put(gameFile(Start, "7\r\n")); // nobody's turn
  ana.run("load b.i../...../...../...../..I.B 1, move 23 18, menu Opciones");
  const std::string before = ana.shown() + ana.principal.ArchivoRed;
  ana.choose("click btnCargarJuegoRed", std::nullopt);
  ana.choose("click btnCargarJuegoRed", path, Invalid + path + Incomplete);
  const std::string none = folder.file("ninguno");
  ana.choose("click btnCargarJuegoRed", none, "No se puede abrir el archivo:\r\n" + none);
  EXPECT_EQ(ana.shown() + ana.principal.ArchivoRed, before);
  put(gameFile(BlasMoved));
  ana.joins(path);
  ana.expectBoard(BlasMoved);
  EXPECT_EQ(ana.windows(), "EnJuego");
  EXPECT_TRUE(ana.frame.tmrRed.Enabled);
}

TEST_F(Network, AFileThatIsAwayOrTornIsToldInTheCaptionAndTheGameGoesOn) {
  for (const std::string& text : std::vector<std::string>{
           "", "2;1;380;1340;1;\r\n" + gameFile(Start).substr(19), gameFile(Start, "2\r"),
           gameFile(Start, "2\r\n\r\n"), gameFile(Start, "2\r\n11\r\n11\r\n"),
           gameFile(Start, "2;\r\n"), gameFile(Start) + std::string(70000, ' '),
           std::string(700, '\0')}) {
    SCOPED_TRACE(text);
    bothPlay(Start);
    put(text);
    blas.polls();
    EXPECT_EQ(blas.caption(), NoAccess);
    EXPECT_EQ(blas.pictures(), Start);
    blas.run("tick 5");
    EXPECT_EQ(file(), text) << "its writer may be at work";
    blas.run("tick 1");
    EXPECT_EQ(file(), gameFile(Start)) << "it has none";
    EXPECT_EQ(blas.caption(), "Actualizando...");
    ana.leaves();
    blas.leaves();
  }
  bothPlay(Start);
  std::filesystem::remove(scripted::toPath(path));
  std::filesystem::create_directory(scripted::toPath(path)); // under the file's name
  ana.run("move 23 18");
  ana.polls();
  ana.run("tick 20");
  EXPECT_EQ(ana.caption(), NoAccess);
  std::filesystem::remove(scripted::toPath(path));
  ana.run("tick 1");
  EXPECT_EQ(file(), gameFile(AnaMoved, "2\r\n"));
}

TEST_F(Network, MovesOfWhoIsNotInTurnWinNothingAndGoWithTheNextPoll) {
  bothPlay(Start);
  blas.run("move 23 18, move 3 8");
  EXPECT_EQ(blas.pictures(), BlasMoved);
  blas.polls();
  EXPECT_EQ(blas.pictures(), Start);
  // Behind a winning move no unit may be left that could pass the turn back.
  ana.leaves();
  blas.leaves();
  const std::string oneUnit = "b..../...../...../...i./..I.B";
  bothPlay(oneUnit);
  blas.run("move 23 19");
  EXPECT_EQ(blas.pictures(), "b..../...../...../...I./....B") << "without a box";
  blas.polls();
  EXPECT_EQ(blas.pictures(), oneUnit);
  EXPECT_EQ(file(), gameFile(oneUnit));
}

// --- A share that hangs ------------------------------------------------------------------------

TEST_F(Network, AWaitingWindowGoesOnWhileTheShareHangs) {
  bothPlay(Start);
  blas.share.hangs = true;
  blas.polls();
  EXPECT_EQ(blas.caption(), "Actualizando...");
  blas.run("tick 1");
  EXPECT_EQ(blas.caption(), "Actualizando...") << "a slow share is none that is away";
  blas.run("tick 1");
  EXPECT_EQ(blas.caption(), NoAccess);
  blas.run("click picUnidad(23)");
  EXPECT_TRUE(blas.play.picMovimientoPermitido(18));
  blas.share.answers();
  blas.run("tick 1");
  EXPECT_EQ(blas.caption(), "Actualizando...");
}

TEST_F(Network, AWinnerSeesTheBoxAtOnceAndTheResultIsTriedUntilItIsWritten) {
  bothPlay(Last);
  ana.share.hangs = true;
  ana.screen.expectBox(victory("1", "CONQUISTADO la Bandera"));
  ana.run("move 6 1");
  EXPECT_EQ(ana.caption(), NoAccess);
  EXPECT_EQ(ana.status(), "Victoria/Derrota");
  const std::string question = "No se puede guardar el archivo:\r\n" + path + "\r\n¿Reintentar?";
  ana.screen.expectBox(question, Answer::Yes);
  ana.leaves();
  EXPECT_TRUE(ana.play.isOpen());
  ana.share.answers();
  ana.run("tick 1");
  EXPECT_EQ(file(), gameFile("I..../...../...../....i/....B", "1\r\n11\r\n"));
  EXPECT_EQ(ana.caption(), "Victoria - Juego finalizado");
  EXPECT_FALSE(ana.frame.tmrRed.Enabled);
  ana.leaves(); // without a question
}

TEST_F(Network, AJoinOnAShareThatHangsAsksWhetherToWait) {
  put(gameFile(Start));
  ana.run("load " + BlasMoved + " 1");
  const std::string before = ana.shown() + ana.principal.ArchivoRed;
  const std::string question = "El archivo no responde:\r\n" + path + "\r\n¿Seguir esperando?";
  ana.share.hangs = true;
  ana.run("menu Opciones");
  ana.screen.expectFile("Cargar Juego", path);
  ana.screen.expectBox(question, Answer::Yes);
  ana.screen.expectBox(question, Answer::No);
  ana.run("click btnCargarJuegoRed, close Opciones");
  EXPECT_EQ(ana.shown() + ana.principal.ArchivoRed, before) << "nothing has changed";
  ana.run("menu Opciones");
  ana.screen.expectFile("Cargar Juego", path);
  ana.screen.expectBox(question, Answer::Yes, [&] { ana.share.answers(); });
  ana.run("click btnCargarJuegoRed");
  EXPECT_EQ(ana.pictures(), Start);
  EXPECT_TRUE(ana.frame.tmrRed.Enabled);
}

TEST_F(Network, ALookOfAnEarlierGameThatHangsDoesNotHoldUpAGameOnAnotherShare) {
  bothPlay(Start);
  blas.share.hangs = true;
  blas.polls();
  blas.leaves();
  blas.share.hangs = false;
  const std::string other = folder.file("otra");
  std::ofstream(other, std::ios::binary) << gameFile(AnaMoved, "2\r\n");
  blas.joins(other);
  blas.run("move 3 8");
  blas.polls();
  EXPECT_EQ(bytesOf(other), gameFile(BlasMoved));
}

TEST_F(Network, WhoJoinsAgainWaitsForItsOwnWriteThatHangs) {
  put(gameFile(Last, "2\r\n"));
  blas.joins(path);
  blas.share.hangs = true;
  blas.screen.expectBox(victory("2", "CONQUISTADO la Bandera"));
  blas.run("move 20 25");
  blas.screen.expectBox("No se puede guardar el archivo:\r\n" + path + "\r\n¿Reintentar?",
                        Answer::No);
  blas.leaves();
  blas.load(gameFile(Start, ""));
  EXPECT_EQ(blas.status(), "En Turno/En Espera") << "the won game has no say in the next one";
  blas.run("menu Opciones");
  const std::string spelledAnew = folder.file("./partida común.txt");
  blas.screen.expectFile("Cargar Juego", spelledAnew);
  blas.screen.expectBox("El archivo no responde:\r\n" + spelledAnew + "\r\n¿Seguir esperando?",
                        Answer::Yes, [&] { blas.share.answers(); });
  blas.run("click btnCargarJuegoRed");
  blas.expectBoard("b..../I..../...../...../....i");
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
  ana.run("menu Opciones");
  ana.screen.expectFile("Cargar Juego", path);
  ana.screen.expectBox(question, Answer::No);
  ana.screen.expectBox(Invalid + path + Incomplete);
  ana.run("click btnCargarJuegoRed");
  EXPECT_EQ(file(), torn);
  ana.screen.expectFile("Cargar Juego", path);
  ana.screen.expectBox(question, Answer::Yes);
  ana.run("click btnCargarJuegoRed");
  EXPECT_EQ(file(), gameFile(AnaMoved, "2\r\n"));
  // What became whole while the question stood is news.
  ana.leaves();
  put(torn);
  ana.run("menu Opciones");
  ana.screen.expectFile("Cargar Juego", path);
  const std::string won = gameFile(BlasMoved, "2\r\n12\r\n");
  ana.screen.expectBox(question, Answer::Yes, [&] { put(won); });
  ana.run("click btnCargarJuegoRed");
  ana.screen.expectBox(hasWon("2"));
  ana.polls();
  EXPECT_EQ(file(), won);
}

// --- The worker --------------------------------------------------------------------------------

TEST_F(Network, WhatCannotEvenBeginIsALookOrAWriteInVain) {
  bothPlay(Start);
  ana.run("move 23 18");
  ana.share.refuses = true;
  ana.polls();
  EXPECT_EQ(ana.caption(), NoAccess);
  ana.share.refuses = false;
  ana.run("tick 1");
  EXPECT_EQ(file(), gameFile(AnaMoved, "2\r\n"));
}

// The worker as the program has it.
TEST_F(Network, OnThreadsOfTheirOwn) {
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
  playUntil([&] { return carla.caption() == "Derrota - Juego finalizado"; });
  EXPECT_EQ(file(), gameFile("bI.../...../...../...../....i", "2\r\n12\r\n"));
}

} // namespace falanges
