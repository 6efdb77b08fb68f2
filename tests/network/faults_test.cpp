// The network game over a file that is away, torn, old or refuses a write.
#include "network/copies.h"

namespace falanges {

using Faults = Network;

TEST_F(Faults, AWaitingCopyRestsAndACopyInTurnPlaysOnWithoutTheFile) {
  for (const std::string& text : std::vector<std::string>{
           "none", "", shared("01").substr(0, 200), shared("12", ""), shared("12", "\r\n\r\n"),
           "2;1;380;1340;1;\r\n" + shared("11").substr(19), shared("12", "\r\n123\r\n"),
           shared("12", "\r\n11\r\n11\r\n"), shared("12", ";\r\n"),
           shared("12") + std::string(70000, ' '), std::string(shared("01").size(), '\0')}) {
    SCOPED_TRACE(text);
    begin();
    put(text);
    follow({"AB look => ?? 01. 01p!", "AB tick 1 => ?? 015 01p!", "AB tick 2 => ?? 013 01p!",
            "A move 23 18, A look, AB tick 1 => 12 12p5 12.", "AB tick 1 => 12 12p4 125"});
  }
}

TEST_F(Faults, ARefusedWriteIsTriedAgainAtEachTick) {
  begin();
  follow({"file away, A move 23 18, AB tick => ?? 12! 01p!", "AB tick 20 => ?? 12! 01p!",
          "file back, AB tick 1 => 12 12p. 12.", "AB tick 1 => 12 12p5 125"});
}

TEST_F(Faults, WhatAKilledWriterLeftBehindIsHealedAfterOneInterval) {
  for (const bool wrote : {true, false}) {
    begin();
    a.reset();
    run(wrote ? "" : "B join");
    put(shared("12", "\r"));
    follow({std::string("B tick, B tick 5 => ?? - 01") + (wrote ? "p!" : "!"),
            "B tick 1 => 01 - 01p.", "A join, A move 23 18, AB look => 12 12p. 12."});
  }
}

TEST_F(Faults, WhoJoinedWithAnOlderTextDoesNotPutItBack) {
  begin();
  run("B join, A move 23 18, A look");
  put(shared("12", ""));
  follow({"B tick => ?? 12p. 01!", "file 12, B tick 1 => 12 12p. 12.",
          "B move 3 8, B look, A look => 21 21. 21p."});
  // Still out of turn on the newer text: from here on it waits, and heals nothing of the other's.
  for (const std::string joined : {"", "B join, ", "B close EnJuego, B again, "}) {
    begin();
    follow({joined + "file 11, B look, file empty, B tick 40 => ?? 01= 11p!"});
  }
}

TEST_F(Faults, AGameThatIsJoinedLaterKnowsNothingOfTheEarlierOne) {
  begin();
  // No look at once, as if the file were still away.
  follow({"file none, B look, B close EnJuego, file 01, B again, B tick 1 => 01 01= 015",
          "B close EnJuego, file 12, B again, B move 3 8, B look => 21 01= 21p."});
}

TEST_F(Faults, AnOldTextThatComesBackOverAPublishedTurnIsPutRight) {
  begin();
  follow({"A move 23 18, A look, file 01, A tick => 12 12p. 01p.", "AB tick => 12 12p. 12.",
          "B move 3 8, B look => 21 12p. 21p.", "file 12, B look => 21 12p. 21p.",
          "A look => 21 21. 21p."});
}

TEST_F(Faults, AVictoryThatCannotBeSavedMayBeRepeated) {
  const std::string question = "No se puede guardar el archivo:\r\n" + path + "\r\n¿Reintentar?";
  for (const Answer last : {Answer::Yes, Answer::No}) {
    put(gameFile("b..../I..../...../....i/....B"));
    run("A join, file none");
    std::filesystem::create_directory(scripted::toPath(path)); // under the file's name
    a->screen.expectBox(victory("1", "CONQUISTADO la Bandera"));
    a->screen.expectBox(question, Answer::Yes, [&] {
      EXPECT_EQ(a->screen.lastBox.style, forms::BoxStyle::InformationYesNo);
      EXPECT_EQ(a->menus(), "HHHHH");
      EXPECT_FALSE(a->unit(1)->Enabled);
    });
    a->screen.expectBox(question, last, [&] { put("none"); });
    run("A move 6 1");
    EXPECT_EQ(file(), last == Answer::Yes ? gameFile("I..../...../...../....i/....B", "1\r\n11\r\n")
                                          : "none");
  }
}

TEST_F(Faults, WhoJoinedOutOfTurnWritesNothingIntoAFolderThatIsAwayAndNoUnknownBoard) {
  follow({"file 01, AB join, file away, B tick 40 => ?? 01= 01!",
          // Behind the second one the interval begins anew.
          "file back, file empty, B tick 5, file away, B tick 1, file back, B tick 6 => ?? 01= 01!",
          "B tick 1 => 01 01= 01p."});
  // A finished file does not tell a new copy the size of its board.
  put(shared("11", "\r\n11\r\n"));
  run("B join, file empty, B tick 40");
  EXPECT_EQ(file(), "");
}

TEST_F(Faults, ATurnThatLeadsNowhereMayBeAnsweredInKind) {
  const std::string board = "b.g../...../...../...../..G.B";
  put(gameFile(board));
  run("A join");
  a->principal.MovPorTurno = 2;
  run("A move 23 18, A move 18 23, A look");
  EXPECT_EQ(file(), gameFile(board, "2\r\n"));
  put(gameFile(board));
  run("A look");
  EXPECT_EQ(a->play.JugadorActual, 1);
}

} // namespace falanges
