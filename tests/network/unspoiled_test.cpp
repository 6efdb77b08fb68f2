// What no idle click, no hanging share and no rare order of events may do to a network game.
#include <atomic>

#include "network/copies.h"

namespace falanges {

using Unspoiled = Network;

TEST_F(Unspoiled, MovesOfWhoIsNotInTurnWinNothingAndAreNeverWritten) {
  const std::string start = "b..../I..../...../....i/....B";
  put(gameFile(start));
  run("AB join, B look, B move 6 1"); // takes the flag on its own screen, without a box
  EXPECT_EQ(b->pictures() + b->menus(), "I..../...../...../....i/....BHHHHH running");
  run("B move 20 25, AB look");
  EXPECT_EQ(file(), gameFile(start));
  EXPECT_EQ(b->pictures(), start) << "the next look drops them";

  // Between the turn and its publication too, also when they seem to bring the turn back.
  begin();
  follow({"A move 23 18, A move 3 8, AB look => 12 21p. 12."});
}

TEST_F(Unspoiled, AShareThatHangsHoldsNoWindow) {
  begin();
  follow({"A move 23 18, A look, B hold, B look => 12 12p. 01p!", "B tick 50 => 12 12p. 01p!"});
  run("B click picUnidad(23)");
  EXPECT_TRUE(b->play.picMovimientoPermitido(18)) << "its window goes on";
  follow({"B go, B tick 1 => 12 12p. 12.",
          // A write that hangs: what it wrote counts from the moment when its end is known.
          "B move 3 8, B hold, B look, B go, B hold, B tick 4 => 12 12p. 21!",
          "B go, A look => 21 21. 21!", "B tick 1 => 21 21. 21p."});
}

TEST_F(Unspoiled, AGameMayBeLeftAndJoinedAgainWhileItsFileHangs) {
  begin();
  run("B hold, B look, B close EnJuego");
  EXPECT_EQ(b->state(), "SSHSH");
  follow({"B again, B look => 01 01= 01!", // the old look hangs still
          "file 12, B go, B tick 1 => 12 01= 12."});
}

TEST_F(Unspoiled, TheLastPositionThatWasSeenSavesAGameWhoseFileIsTorn) {
  for (const std::string torn : {"", "none"})
    for (const bool goesOn : {false, true}) {
      begin();
      run("A move 23 18, A look, B look, A close EnJuego, A menu Opciones");
      put(torn);
      a->screen.expectFile("Cargar Juego", path);
      a->screen.expectBox(
          "El archivo está incompleto. ¿Continuar desde la última posición conocida?",
          goesOn ? Answer::Yes : Answer::No);
      if (!goesOn)
        a->screen.expectBox(torn.empty() ? Invalid + path + Incomplete
                                         : "No se puede abrir el archivo:\r\n" + path);
      run("A click btnCargarJuegoRed");
      EXPECT_EQ(file(), goesOn ? shared("12") : torn);
      EXPECT_EQ(a->principal.JuegoEnRed, goesOn);
      EXPECT_EQ(a->app.opciones.isOpen(), !goesOn);
    }
}

TEST_F(Unspoiled, NobodyWaitsForAMoveThatNobodyMayMake) {
  // Both have joined out of turn, and the file is deleted before either has written.
  follow({"file 02, A join, file 01, B join, file none, AB look => ?? 02! 01!",
          "A tick 5 => ?? 02! 01!", "A tick 1 => 02 02p. 01!", "B tick 1 => 02 02p. 02."});
  // A closing line that names no player.
  run("file 07");
  a = std::make_unique<Copy>('A', path);
  a->run("menu Opciones");
  a->joinBy(path, Invalid + path + Incomplete);
  EXPECT_FALSE(a->principal.JuegoEnRed);
}

TEST_F(Unspoiled, WhatChangesBetweenTwoLooksIsLookedAtAgain) {
  // A marker that stands behind another position a moment later is none.
  begin();
  put(shared("11", "\r\n11\r\n"));
  follow({"B hold, B look, B go, file 12, B tick 1 => 12 01= 01p!", "B tick 1 => 12 01= 12.",
          // The first write of a copy that joined out of turn goes over no news.
          "file 01, B join, B hold, B look, B go, file 12, B tick 1 => 12 01= 01!",
          "B tick 1 => 12 01= 12."});
}

// The runner of the program itself.
TEST(ThreadRunnerTest, RunsAnOperationBesideWhoWaitsForIt) {
  std::promise<void> share;
  std::atomic<int> result = 0;
  ThreadRunner runner;
  EXPECT_TRUE(runner.finished({}));
  runner.start([&] { share.get_future().wait(), result = 7; });
  EXPECT_FALSE(runner.finished(std::chrono::milliseconds(1)));
  share.set_value();
  EXPECT_TRUE(runner.finished(std::chrono::minutes(1)));
  EXPECT_EQ(result, 7);
}

} // namespace falanges
