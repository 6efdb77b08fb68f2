// The network game over a file that is away, torn, old or refuses a write, over a share that hangs,
// and under the rare orders of events: no turn is lost, and no idle move is ever written.
#include "network/copies.h"

namespace falanges {

using Faults = Network;

TEST_F(Faults, AWaitingCopyRestsAndACopyInTurnPlaysOnWithoutTheFile) {
  for (const std::string& text : std::vector<std::string>{
           "none", "", "2;1;380;1340;1;\r\n" + shared("11").substr(19), shared("12", "\r\n\r\n"),
           shared("12", "\r\n11\r\n11\r\n"), shared("12", ";\r\n"),
           shared("12") + std::string(70000, ' '), std::string(shared("01").size(), '\0')}) {
    SCOPED_TRACE(text);
    run("begin");
    put(text);
    follow({"AB look => ?? 01. 01p!", "AB tick 1 => ?? 015 01p!", "AB tick 2 => ?? 013 01p!",
            "A move 23 18, A look, AB tick 1 => 12 12p5 12.", "AB tick 1 => 12 12p4 125"});
  }
}

TEST_F(Faults, WhatIsLostOrOldIsPutRight) {
  follow({// A refused write is tried again at each tick.
          "begin, folder away, A move 23 18, AB tick => ?? 12! 01p!", "AB tick 20 => ?? 12! 01p!",
          "folder back, AB tick 1 => 12 12p. 12.", "AB tick 1 => 12 12p5 125",
          // What a killed writer left behind is healed after one interval, also by who has written
          // nothing yet.
          "begin, A killed, file torn, B tick, B tick 5 => ?? - 01p!", "B tick 1 => 01 - 01p.",
          "begin, A killed, B join, file torn, B tick, B tick 5 => ?? - 01!",
          "B tick 1 => 01 - 01p.", "A join, A move 23 18, AB look => 12 12p. 12.",
          // An old text comes back over a published turn.
          "begin, A move 23 18, A look, file 01, A tick => 12 12p. 01p.", "AB tick => 12 12p. 12.",
          "B move 3 8, B look => 21 12p. 21p.", "file 12, B look => 21 12p. 21p.",
          "A look => 21 21. 21p."});
  // A turn that leads nowhere may be answered in kind.
  run("begin");
  a->principal.MovPorTurno = 2;
  follow({"A move 23 18, A move 18 23, A look, file 01, A look => 01 01. 01p."});
}

TEST_F(Faults, WhoJoinedWithAnOlderTextDoesNotPutItBack) {
  follow({"begin, B join, A move 23 18, A look, file torn, B tick => ?? 12p. 01!",
          "file 12, B tick 1 => 12 12p. 12.", "B move 3 8, B look, A look => 21 21. 21p.",
          // Still out of turn on the newer text: from here on it waits, and heals nothing of the
          // other's.
          "begin, file 11, B look, file torn, B tick 40 => ?? 01= 11p!",
          "begin, B join, file 11, B look, file torn, B tick 40 => ?? 01= 11p!",
          "begin, B close EnJuego, B again, file 11, B look, file torn, B tick 40 => ?? 01= 11p!",
          // Of the game before it knows nothing: no look at once, as if the file were still away.
          "begin, file none, B look, B close EnJuego, file 01, B again, B tick 1 => 01 01= 015",
          "B close EnJuego, file 12, B again, B move 3 8, B look => 21 01= 21p.",
          // Nothing is written into a folder that is away; behind it the interval begins anew.
          "file 01, AB join, folder away, B tick 40 => ?? 01= 01!",
          "folder back, file torn, B tick 5, folder away, B tick 1, folder back, B tick 6 "
          "=> ?? 01= 01!",
          "B tick 1 => 01 01= 01p.",
          // Both have joined out of turn, and the file is deleted before either has written.
          "file 02, A join, file 01, B join, file none, AB look => ?? 02! 01!",
          "A tick 5 => ?? 02! 01!", "A tick 1 => 02 02p. 01!", "B tick 1 => 02 02p. 02."});
  // A finished file does not tell a new copy the size of its board.
  run("file won, B join, file torn, B tick 40");
  EXPECT_EQ(file(), shared("12", "\r"));
}

TEST_F(Faults, AShareThatHangsHoldsNoWindow) {
  follow(
      {"begin, A move 23 18, A look, B hold, B look => 12 12p. 01p!", "B tick 50 => 12 12p. 01p!"});
  run("B click picUnidad(23)");
  EXPECT_TRUE(b->play.picMovimientoPermitido(18)) << "its window goes on";
  follow({"B go, B tick 1 => 12 12p. 12.",
          // A write that hangs: what it wrote counts from the moment when its end is known.
          "B move 3 8, B hold, B look, B go, B hold, B tick 4 => 12 12p. 21!",
          "B go, A look => 21 21. 21!", "B tick 1 => 21 21. 21p.",
          // The game may be left and joined again: the old look hangs still.
          "begin, B hold, B look, B close EnJuego, B again, B look => 01 01= 01!",
          "file 12, B go, B tick 1 => 12 01= 12.",
          // A marker that stands behind another position a moment later is none.
          "begin, file won, B hold, B look, B go, file 12, B tick 1 => 12 01= 01p!",
          "B tick 1 => 12 01= 12.",
          // The first write of a copy that joined out of turn goes over no news.
          "file 01, B join, B hold, B look, B go, file 12, B tick 1 => 12 01= 01!",
          "B tick 1 => 12 01= 12."});
}

TEST_F(Faults, MovesOfWhoIsNotInTurnWinNothingAndAreNeverWritten) {
  // In between it seems to be in turn.
  follow({"begin, B move 23 18, B look, B move 3 8, B look => 01 01= 01p.",
          "B join, B move 23 18, B move 3 8, B look => 01 01= 21p.", "B look => 01 01= 01p.",
          // Between the turn and its publication too, also when they seem to bring the turn back.
          "begin, A move 23 18, A move 3 8, AB look => 12 21p. 12."});
  const std::string start = "b..../I..../...../....i/....B";
  put(gameFile(start));
  run("AB join, B look, B move 6 1"); // takes the flag on its own screen, without a box
  EXPECT_EQ(b->pictures(), "I..../...../...../....i/....B");
  EXPECT_EQ(b->menu(), "");
  run("B move 20 25, AB look");
  EXPECT_EQ(file() + b->pictures(), gameFile(start) + start) << "the next look drops them";
}

TEST_F(Faults, AVictoryThatCannotBeSavedMayBeRepeated) {
  put(gameFile("b..../I..../...../....i/....B"));
  run("A join, file none");
  std::filesystem::create_directory(scripted::toPath(path)); // under the file's name
  a->screen.expectBox(victory("1", "CONQUISTADO la Bandera"));
  const std::string question = "No se puede guardar el archivo:\r\n" + path + "\r\n¿Reintentar?";
  a->screen.expectBox(question, Answer::Yes);
  a->screen.expectBox(question, Answer::Yes, [&] { put("none"); });
  run("A move 6 1");
  EXPECT_EQ(file(), gameFile("I..../...../...../....i/....B", "1\r\n11\r\n"));
}

TEST_F(Faults, TheLastPositionThatWasSeenSavesAGameWhoseFileIsTorn) {
  for (const bool goesOn : {false, true}) {
    run("begin, A move 23 18, A look, B look, A close EnJuego, A menu Opciones, file torn");
    const std::string torn = file();
    a->screen.expectFile("Cargar Juego", path);
    a->screen.expectBox("El archivo está incompleto. ¿Continuar desde la última posición conocida?",
                        goesOn ? Answer::Yes : Answer::No);
    goesOn ? void() : a->screen.expectBox(Invalid + path + Incomplete);
    run("A click btnCargarJuegoRed");
    EXPECT_EQ(file(), goesOn ? shared("12") : torn);
    EXPECT_EQ(a->principal.JuegoEnRed, goesOn);
  }
}

// The runner of the program itself.
TEST(ThreadRunnerTest, RunsAnOperationBesideWhoWaitsForIt) {
  std::promise<void> share;
  ThreadRunner runner;
  runner.start([&] { share.get_future().wait(); });
  EXPECT_FALSE(runner.finished(std::chrono::milliseconds(1)));
  share.set_value();
  EXPECT_TRUE(runner.finished(std::chrono::minutes(1)));
}

} // namespace falanges
