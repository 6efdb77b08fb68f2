// The network game over a file that is away, torn, old or refuses a write.
#include "network/copies.h"

#ifdef __linux__
#include <csignal>

#include <sys/resource.h>
#endif

namespace falanges {

using Faults = Network;

TEST_F(Faults, NoBeginningOfAFilePassesForAWholeOne) {
  const std::string large = gameFile("i......./" + blank(8).substr(9), "2\r\n");
  for (const std::string& text : {shared(1, "2\r\n"), large + "12\r\n"}) {
    begin();
    for (std::size_t cut = 0; cut < text.size(); ++cut) {
      if (cut == large.size())
        continue; // the final position, with its marker still to come
      const auto marked = [this] {
        return a->app.enJuego.picUnidad(1)->Appearance + b->app.enJuego.picUnidad(1)->Appearance;
      };
      for (Copy* copy : {a.get(), b.get()})
        copy->app.enJuego.picUnidad(1)->Appearance = 1; // shows that nothing is drawn anew
      put(text.substr(0, cut));
      run("look AB");
      ASSERT_EQ(a->position() + b->position(), shared(0) + shared(0)) << cut;
      ASSERT_EQ(a->caption() + b->caption(), "Actualizando..." + Lost) << cut;
      ASSERT_EQ(marked(), 2) << cut;
      put(shared(0));
      run("look B");
      ASSERT_EQ(marked(), 1) << cut;
    }
    follow({"move A 23 18, look AB, move B 3 8, look B, look A => 21 21. 21p."});
  }
}

TEST_F(Faults, AWaitingCopyRestsAndACopyInTurnPlaysOnWithoutTheFile) {
  for (const std::optional<std::string>& text : {std::optional<std::string>(),
                                                 {""},
                                                 {shared(0, "")},
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
  for (const std::string& torn :
       {std::string(), shared(0).substr(0, 200), shared(1, "2\r"), shared(1, "1\r\n1")}) {
    for (const bool wrote : {true, false}) {
      begin();
      run(wrote ? "kill A" : "kill A, join B");
      put(torn);
      follow({std::string("tick B, tick B 5 => ?? - 01") + (wrote ? "p!" : "!"),
              "tick B 1 => 01 - 01p.", "join A, move A 23 18, look AB => 12 12p. 12."});
    }
    // The copy out of turn dies in its writing: the other one goes on without it.
    begin();
    run("kill B");
    put(torn);
    follow({"move A 23 18, look A, join B => 12 12p. 12="});
  }
}

TEST_F(Faults, WhoJoinedWithAnOlderTextDoesNotPutItBack) {
  begin();
  follow({"join B, move A 23 18, look A, tick B => 12 12p. 12."});
  begin();
  run("join B, move A 23 18, look A");
  put(shared(1, "2"));
  follow({"tick B => ?? 12p. 01!"});
  put(shared(1, "2\r\n"));
  follow({"tick B 1 => 12 12p. 12."});
  // Still out of turn on the newer text: from here on it waits, and heals nothing of the other's.
  begin();
  run("join B");
  put(shared(1));
  follow({"look B => 11 01= 11p."});
  put(shared(2));
  follow({"look B => 21 01= 21p."});
  put("");
  follow({"tick B 40 => ?? 01= 21p!"});
}

TEST_F(Faults, WhoJoinedOutOfTurnWritesNoMissingFileAndNoUnknownBoard) {
  run("join AB");
  put(std::nullopt);
  follow({"tick B 40 => ?? 01= 01!"});
  EXPECT_EQ(file(), "none");
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

// Each of both may have written last, as far as it knows; or a slow writing comes late.
TEST_F(Faults, AnOlderTextInTheFileNeverTakesAPublishedTurnBack) {
  for (const auto& text : {std::optional<std::string>(), {shared(0)}}) {
    begin();
    run("move A 23 18, look A");
    put(text);
    follow({"tick B 12 => 01 12p. 01p.", "look A => 12 12p. 01p.", "look B => 12 12p. 12."});
  }
  // A turn that leads nowhere may be answered in kind.
  put(gameFile("b.g../...../...../...../..G.B"));
  run("join A");
  a->principal.MovPorTurno = 2;
  run("move A 23 18, move A 18 23, look A");
  EXPECT_EQ(file(), gameFile("b.g../...../...../...../..G.B", "2\r\n"));
  put(gameFile("b.g../...../...../...../..G.B"));
  run("look A");
  EXPECT_EQ(a->app.enJuego.JugadorActual, 1);
}

TEST_F(Faults, TheWinnerMayRepeatWhatCouldNotBeSaved) {
  const std::string before = gameFile("b..../I..../...../....i/....B");
  const std::string won = gameFile("I..../...../...../....i/....B");
  const std::string question = "No se puede guardar el archivo:\r\n" + path + "\r\n¿Reintentar?";
  std::map<std::string, std::function<void(bool)>> faults = {{before, [&](bool on) { away(on); }}};
#ifdef __linux__
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  std::signal(SIGXFSZ, SIG_IGN);
  faults[won] = [&](bool on) { // a disk without room for the marker
    const rlimit bound{on ? won.size() : limit.rlim_max, limit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &bound);
  };
#endif
  for (const auto& [kept, fault] : faults) {
    for (const Answer last : {Answer::Yes, Answer::No}) {
      put(before);
      run("join A");
      fault(true);
      a->screen.expectBox(victory("1", "CONQUISTADO la Bandera"));
      a->screen.expectBox(question, BoxStyle::InformationYesNo, Answer::Yes, [&] {
        EXPECT_EQ(a->menus(), "HHHHH");
        EXPECT_FALSE(a->app.enJuego.picUnidad(1)->Enabled);
      });
      a->screen.expectBox(question, BoxStyle::InformationYesNo, last, [&] { fault(false); });
      run("move A 6 1");
      EXPECT_EQ(file(), last == Answer::Yes ? won + "11\r\n" : kept);
    }
  }
}

} // namespace falanges
