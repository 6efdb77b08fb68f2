// What no idle click, no hanging share and no rare order of events may do to a network game.
#include <atomic>

#include "network/copies.h"

namespace falanges {

using Unspoiled = Network;

const std::string Question =
    "El archivo está incompleto. ¿Continuar desde la última posición conocida?";

TEST_F(Unspoiled, MovesOfWhoIsNotInTurnWinNothingAndAreNeverWritten) {
  const std::string start = "b..../I..../...../....i/....B";
  put(gameFile(start));
  run("AB join, B look");
  run("B move 6 1"); // takes the flag on its own screen, without a box
  EXPECT_EQ(b->pictures() + b->menus(), "I..../...../...../....i/....BHHHHH running");
  run("B move 20 25, AB look");
  EXPECT_EQ(file(), gameFile(start));
  EXPECT_EQ(b->pictures(), start) << "the next look drops them";

  // Between the turn and its publication too, also when they seem to bring the turn back.
  begin();
  run("A move 23 18, A move 3 8, A look");
  EXPECT_EQ(file(), shared(1, "2\r\n"));
  run("B look");
  EXPECT_EQ(b->all(), "12.");
  EXPECT_TRUE(a->principal.TurnoPublicado);
}

TEST_F(Unspoiled, AShareThatHangsHoldsNoWindow) {
  begin();
  run("A move 23 18, A look");
  b->runner.hold = true;
  follow({"B look => 12 12p. 01p!", "B tick 50 => 12 12p. 01p!"});
  b->run("click picUnidad(23)");
  EXPECT_TRUE(b->play.picMovimientoPermitido(18)) << "its window goes on";
  b->runner.letGo();
  follow({"B tick 1 => 12 12p. 12."});

  // A write that hangs: what it wrote counts from the moment when its end is known.
  run("B move 3 8");
  b->runner.beforeTheOneAfter = [&] { b->runner.hold = true; };
  follow({"B look => 12 12p. 21!", "B tick 3 => 12 12p. 21!"});
  b->runner.letGo();
  follow({"A look => 21 21. 21!", "B tick 1 => 21 21. 21p."});
}

TEST_F(Unspoiled, AGameMayBeLeftAndJoinedAgainWhileItsFileHangs) {
  begin();
  b->runner.hold = true;
  run("B look");
  EXPECT_TRUE(b->screen.closeWindow(b->play));
  EXPECT_EQ(b->state(), "SSHSH");
  b->join();
  follow({"B look => 01 01= 01!"}); // the old look hangs still
  put(shared(1, "2\r\n"));
  b->runner.letGo();
  follow({"B tick 1 => 12 01= 12."});
}

TEST_F(Unspoiled, TheLastPositionThatWasSeenSavesAGameWhoseFileIsTorn) {
  for (const std::optional<std::string>& torn : {std::optional<std::string>(""), {}}) {
    for (const Answer answer : {Answer::No, Answer::Yes}) {
      begin();
      run("A move 23 18, A look, B look");
      EXPECT_TRUE(a->screen.closeWindow(a->play));
      put(torn);
      a->screen.expectFile("Cargar Juego", path, {});
      a->screen.expectBox(Question, answer);
      if (answer == Answer::No)
        a->screen.expectBox(torn ? "El archivo no contiene un juego guardado válido:\r\n" + path +
                                       "\r\nEl archivo está incompleto"
                                 : "No se puede abrir el archivo:\r\n" + path);
      a->run("menu Opciones, click btnCargarJuegoRed");
      EXPECT_EQ(file(), answer == Answer::Yes ? shared(1, "2\r\n") : torn.value_or("none"));
      EXPECT_EQ(a->principal.JuegoEnRed, answer == Answer::Yes);
      EXPECT_EQ(a->app.opciones.isOpen(), answer == Answer::No);
    }
  }
}

TEST_F(Unspoiled, NobodyWaitsForAMoveThatNobodyMayMake) {
  // Both have joined out of turn, and the file is deleted before either has written.
  put(shared(0, "2\r\n"));
  run("A join");
  put(shared(0));
  run("B join");
  put(std::nullopt);
  follow({"AB look => ?? 02! 01!", "A tick 5 => ?? 02! 01!", "A tick 1 => 02 02p. 01!",
          "B tick 1 => 02 02p. 02."});
  // A closing line that names no player.
  put(shared(0, "7\r\n"));
  a = std::make_unique<Copy>('A', path);
  a->screen.expectFile("Cargar Juego", path);
  a->screen.expectBox("El archivo no contiene un juego guardado válido:\r\n" + path +
                      "\r\nEl archivo está incompleto");
  a->run("menu Opciones, click btnCargarJuegoRed");
  EXPECT_FALSE(a->principal.JuegoEnRed);
}

TEST_F(Unspoiled, WhatChangesBetweenTwoLooksIsLookedAtAgain) {
  // A marker that stands behind another position a moment later is none.
  begin();
  put(shared(1, "1\r\n11\r\n"));
  b->runner.beforeTheOneAfter = [&] { put(shared(1, "2\r\n")); };
  follow({"B look => 12 01= 01p!", "B tick 1 => 12 01= 12."});
  // The first write of a copy that joined out of turn goes over no news.
  put(shared(0));
  run("B join");
  b->runner.beforeTheOneAfter = [&] { put(shared(1, "2\r\n")); };
  follow({"B look => 12 01= 01!", "B tick 1 => 12 01= 12."});
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
