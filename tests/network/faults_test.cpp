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
    follow({"look AB => ?? 01. 01p!", "tick AB 1 => ?? 015 01p!", "tick AB 2 => ?? 013 01p!",
            "move A 23 18, look A, tick AB 1 => 12 12p5 12.", "tick AB 1 => 12 12p4 125"});
  }
}

TEST_F(Faults, ARefusedWriteIsTriedAgainAtEachTick) {
  begin();
  away(true);
  follow({"move A 23 18, tick AB => ?? 12! 01p!", "tick AB 20 => ?? 12! 01p!"});
  away(false);
  follow({"tick AB 1 => 12 12p. 12.", "tick AB 1 => 12 12p5 125"});
}

TEST_F(Faults, WhatAKilledWriterLeftBehindIsHealedAfterOneInterval) {
  for (const bool wrote : {true, false}) {
    begin();
    a.reset();
    run(wrote ? "" : "join B");
    put(shared(1, "2\r"));
    follow({std::string("tick B, tick B 5 => ?? - 01") + (wrote ? "p!" : "!"),
            "tick B 1 => 01 - 01p.", "join A, move A 23 18, look AB => 12 12p. 12."});
  }
}

TEST_F(Faults, WhoJoinedWithAnOlderTextDoesNotPutItBack) {
  begin();
  run("join B, move A 23 18, look A");
  put(shared(1, "2"));
  follow({"tick B => ?? 12p. 01!"});
  put(shared(1, "2\r\n"));
  follow({"tick B 1 => 12 12p. 12."});
  // Still out of turn on the newer text: from here on it waits, and heals nothing of the other's.
  for (const std::string joined : {"", "join B"}) {
    begin();
    run(joined);
    put(shared(1));
    run("look B");
    put("");
    follow({"tick B 40 => ?? 01= 11p!"});
  }
}

TEST_F(Faults, WhoJoinedOutOfTurnWritesNoMissingFileAndNoUnknownBoard) {
  run("join AB");
  put(std::nullopt);
  follow({"tick B 40 => ?? 01= 01!"});
  put("");
  run("tick B 5");
  put(std::nullopt); // the interval begins anew
  run("tick B 1");
  put("");
  follow({"tick B 6 => ?? 01= 01!", "tick B 1 => 01 01= 01p."});
  // A finished file does not tell a new copy the size of its board.
  put(shared(1, "1\r\n11\r\n"));
  run("join B");
  put("");
  run("tick B 40");
  EXPECT_EQ(file(), "");
}

TEST_F(Faults, ATurnThatLeadsNowhereMayBeAnsweredInKind) {
  put(gameFile("b.g../...../...../...../..G.B"));
  run("join A");
  a->principal.MovPorTurno = 2;
  run("move A 23 18, move A 18 23, look A");
  EXPECT_EQ(file(), gameFile("b.g../...../...../...../..G.B", "2\r\n"));
  put(gameFile("b.g../...../...../...../..G.B"));
  run("look A");
  EXPECT_EQ(a->app.enJuego.JugadorActual, 1);
}

} // namespace falanges
