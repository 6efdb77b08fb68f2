// The network game over a file that is away, torn, old or refuses a write.
#include "network/copies.h"

namespace falanges {

using Faults = Network;

TEST_F(Faults, AWaitingCopyRestsAndACopyInTurnPlaysOnWithoutTheFile) {
  for (const std::optional<std::string>& text : {std::optional<std::string>(),
                                                 {""},
                                                 {shared(0).substr(0, 200)},
                                                 {shared(1, "2")},
                                                 {"2;1;380;1340;1;\r\n" + shared(1).substr(19)},
                                                 {shared(1, "2\r\n\r\n")},
                                                 {shared(1, "2\r\n123\r\n")},
                                                 {shared(1, "2\r\n11\r\n11\r\n")},
                                                 {shared(1, "2;\r\n")},
                                                 {shared(1, "2\r\n") + std::string(70000, ' ')},
                                                 {std::string(shared(0).size(), '\0')}}) {
    SCOPED_TRACE(text.value_or("none"));
    begin();
    put(text);
    follow({"AB look => ?? 01. 01p!", "AB tick 1 => ?? 015 01p!", "AB tick 2 => ?? 013 01p!",
            "A move 23 18, A look, AB tick 1 => 12 12p5 12.", "AB tick 1 => 12 12p4 125"});
  }
}

TEST_F(Faults, ARefusedWriteIsTriedAgainAtEachTick) {
  begin();
  away(true);
  follow({"A move 23 18, AB tick => ?? 12! 01p!", "AB tick 20 => ?? 12! 01p!"});
  away(false);
  follow({"AB tick 1 => 12 12p. 12.", "AB tick 1 => 12 12p5 125"});
}

TEST_F(Faults, WhatAKilledWriterLeftBehindIsHealedAfterOneInterval) {
  for (const bool wrote : {true, false}) {
    begin();
    a.reset();
    run(wrote ? "" : "B join");
    put(shared(1, "2\r"));
    follow({std::string("B tick, B tick 5 => ?? - 01") + (wrote ? "p!" : "!"),
            "B tick 1 => 01 - 01p.", "A join, A move 23 18, AB look => 12 12p. 12."});
  }
}

TEST_F(Faults, WhoJoinedWithAnOlderTextDoesNotPutItBack) {
  begin();
  run("B join, A move 23 18, A look");
  put(shared(1, "2"));
  follow({"B tick => ?? 12p. 01!"});
  put(shared(1, "2\r\n"));
  follow({"B tick 1 => 12 12p. 12.", "B move 3 8, B look, A look => 21 21. 21p."});
  // Still out of turn on the newer text: from here on it waits, and heals nothing of the other's.
  for (const std::string joined : {"", "B join", "B close EnJuego, B again"}) {
    begin();
    run(joined);
    put(shared(1));
    run("B look");
    put("");
    follow({"B tick 40 => ?? 01= 11p!"});
  }
}

TEST_F(Faults, AGameThatIsJoinedLaterKnowsNothingOfTheEarlierOne) {
  begin();
  put(std::nullopt);
  run("B look, B close EnJuego");
  put(shared(0));
  follow({"B again, B tick 1 => 01 01= 015"}); // no look at once, as if the file were still away
  run("B close EnJuego");
  put(shared(1, "2\r\n"));
  follow({"B again, B move 3 8, B look => 21 01= 21p."});
}

TEST_F(Faults, AnOldTextThatComesBackOverAPublishedTurnIsPutRight) {
  begin();
  run("A move 23 18, A look");
  put(shared(0));
  follow(
      {"A tick => 12 12p. 01p.", "AB tick => 12 12p. 12.", "B move 3 8, B look => 21 12p. 21p."});
  put(shared(1, "2\r\n"));
  follow({"B look => 21 12p. 21p.", "A look => 21 21. 21p."});
}

TEST_F(Faults, AVictoryThatCannotBeSavedMayBeRepeated) {
  const std::string question = "No se puede guardar el archivo:\r\n" + path + "\r\n¿Reintentar?";
  for (const Answer last : {Answer::Yes, Answer::No}) {
    put(gameFile("b..../I..../...../....i/....B"));
    run("A join");
    put(std::nullopt);
    std::filesystem::create_directory(scripted::toPath(path)); // under the file's name
    a->screen.expectBox(victory("1", "CONQUISTADO la Bandera"));
    a->screen.expectBox(question, Answer::Yes, [&] {
      EXPECT_EQ(a->screen.lastBox.style, forms::BoxStyle::InformationYesNo);
      EXPECT_EQ(a->menus(), "HHHHH");
      EXPECT_FALSE(a->unit(1)->Enabled);
    });
    a->screen.expectBox(question, last, [&] { put(std::nullopt); });
    run("A move 6 1");
    EXPECT_EQ(file(), last == Answer::Yes ? gameFile("I..../...../...../....i/....B", "1\r\n11\r\n")
                                          : "none");
  }
}

TEST_F(Faults, WhoJoinedOutOfTurnWritesNothingIntoAFolderThatIsAwayAndNoUnknownBoard) {
  run("AB join");
  away(true);
  follow({"B tick 40 => ?? 01= 01!"});
  away(false);
  put("");
  run("B tick 5");
  away(true); // the interval begins anew
  run("B tick 1");
  away(false);
  follow({"B tick 6 => ?? 01= 01!", "B tick 1 => 01 01= 01p."});
  // A finished file does not tell a new copy the size of its board.
  put(shared(1, "1\r\n11\r\n"));
  run("B join");
  put("");
  run("B tick 40");
  EXPECT_EQ(file(), "");
}

TEST_F(Faults, ATurnThatLeadsNowhereMayBeAnsweredInKind) {
  put(gameFile("b.g../...../...../...../..G.B"));
  run("A join");
  a->principal.MovPorTurno = 2;
  run("A move 23 18, A move 18 23, A look");
  EXPECT_EQ(file(), gameFile("b.g../...../...../...../..G.B", "2\r\n"));
  put(gameFile("b.g../...../...../...../..G.B"));
  run("A look");
  EXPECT_EQ(a->play.JugadorActual, 1);
}

} // namespace falanges
