// The network game as it is meant to go: joining, turns, results, leaving.
#include "network/copies.h"

namespace falanges {

TEST_F(Network, ATurnGoesToTheOtherCopyAndBackThroughTheFile) {
  // With other line ends than the program writes, so that its first writing shows.
  std::string made = shared("01");
  std::erase(made, '\r');
  put(made);
  follow({"AB join => ?? 01= 01=", "AB tick 1 => ?? 015 015", "AB tick 4 => ?? 011 011",
          "AB tick 1 => 01 01. 01p.",    // who joined out of turn writes what it loaded
          "AB tick => 01 01. 01p.",      // and waits
          "A move 23 18 => 01 12. 01p.", // the turn passes in memory alone
          "A tick => 12 12p. 01p.",      // the next poll publishes it
          "AB tick => 12 12p. 12.",      // the other copy's poll takes it
          "AB tick => 12 12p. 12.",      // in turn, polls do nothing
          "B move 3 8 => 12 12p. 21.", "B tick => 21 12p. 21p.", "AB tick => 21 21. 21p."});
}

TEST_F(Network, ARefreshKeepsTheWindowsPlaceAndDropsWhatWasSelected) {
  begin();
  b->principal.SegundosActualizacion = 7;
  run("B look"); // the value counts from the next poll on
  b->play.Top = 1500;
  b->play.Left = -315;
  run("B click picUnidad(23), B Up, B Up"); // back where the mouse was, and on
  b->principal.MovRealizados = 1;
  follow({"B tick 1 => 01 01= 01p7", "B tick 6 => 01 01= 01p1"});
  EXPECT_TRUE(b->play.picMovimientoPermitido(18));
  follow({"B tick 1 => 01 01= 01p."});
  EXPECT_FALSE(b->play.picMovimientoPermitido(18) || b->principal.MovRealizados > 0);
  EXPECT_TRUE(b->play.Top == 1500 && b->play.Left == -315);
  EXPECT_EQ(b->play.picTablero.cursorSquare, 18);
  run("B close EnJuego, B again");
  EXPECT_EQ(b->play.picTablero.cursorSquare, 0) << "a screen that opens anew has none";
}

TEST_F(Network, TheClosingLineSaysWhoBegins) {
  follow({"file 00, B join, B tick 18, A join, AB tick => 01 01. 01p.",
          "file 02, B join, B tick 18, A join, AB tick => 02 02p. 02."});
}

TEST_F(Network, AWinReachesTheOtherCopyAndEndsTheGameOnBoth) {
  const std::string last = "b..../I..../...../...../....i", text = gameFile(last, "2\r\n12\r\n");
  put(gameFile("b..../I..../...../....i/....B", "2\r\n"));
  run("AB join, AB tick");
  b->screen.expectBox(victory("2", "CONQUISTADO la Bandera"), Answer::Ok, [&] {
    EXPECT_EQ(file(), text) << "the other player need not wait for the box to close";
    EXPECT_EQ(b->menus(), "HHHHH");
  });
  b->move(20, 25);
  a->screen.expectBox(defeat("2"), Answer::Ok, [&] { EXPECT_EQ(a->menus(), "HHHHH"); });
  run("AB tick 20");
  for (Copy* copy : {a.get(), b.get()}) {
    const bool won = copy == b.get();
    EXPECT_EQ(copy->play.Caption.get() + " " + copy->pictures() + copy->status(),
              (won ? "Victoria" : "Derrota") +
                  (" - Juego finalizado " + last + "Derrota/Victoria"));
    EXPECT_EQ(copy->position(), gameFile(last, won ? "2\r\n" : "12\r\n"));
    for (const int square : {6, 25})
      if (copy->unit(square)->Enabled)
        copy->screen.click(*copy->unit(square));
    EXPECT_EQ(copy->play.picMovimientoPermitido.count(), 1);
    copy->run("close EnJuego");
    EXPECT_EQ(copy->play.JugadorActual, 1);
  }
  EXPECT_EQ(file(), text);
}

TEST_F(Network, ACopyInTurnSeesTheMarkerTooWhateverItsDigit) {
  scripted::walk({"1\r\n11 => 11 Victoria/Derrota", "1\r\n12 => 12 Derrota/Victoria",
                  "2\r\n1x => 1 En Turno/En Espera", "12 => 12 Derrota/Victoria"},
                 [&](const std::string& last) {
                   begin();
                   put(shared("1" + last));
                   a->screen.expectBox(defeat(last.substr(last.size() - 1)));
                   run("A look");
                   EXPECT_EQ(a->play.Caption.get() + a->menus() + a->pictures(),
                             "Derrota - Juego finalizadoHHHHH" + Positions[1]);
                   return std::to_string(a->play.JugadorActual) + " " + a->status();
                 });
}

TEST_F(Network, WhoLeavesKeepsThePlayerInTurnAndMayComeBack) {
  begin();
  run("A move 23 18, A look, A close EnJuego");
  EXPECT_EQ(a->menus(), "SSHSH");
  a->load(shared("0", "")); // names nobody
  EXPECT_EQ(a->play.JugadorActual, 2);
  run("A close EnJuego");
  EXPECT_EQ(a->play.JugadorActual, 1);
  follow({"A again, AB tick => 12 12p. 12.", "B move 3 8, B look, A look => 21 21. 21p."});
}

TEST_F(Network, MovesMadeAtAWaitingCopyAreDropped) {
  for (const std::string seen : {"", "B look, "}) { // in between it seems to be in turn
    begin();
    follow({"B move 23 18, " + seen + "B move 3 8, B look => 01 01= 01p.",
            "B join, B move 23 18, " + seen + "B move 3 8, B look => 01 01= 21p.",
            "B look => 01 01= 01p."});
  }
}

TEST_F(Network, AJoinLeadsFromEveryStateToTheFilesGameAndARefusalLeavesThatState) {
  const std::string torn = folder.file("incompleto");
  std::ofstream(torn) << shared("01", "");
  put(shared("22"));
  for (const std::string state : {"", "menu NuevoJuego, click picINF, square 21",
                                  "load b.i../...../...../...../..I.B 1, move 23 18"}) {
    a = std::make_unique<Copy>('A', path);
    a->run(state);
    a->run("menu Opciones");
    const auto seen = [this] {
      return a->shown() + a->position() + a->state() + a->principal.ArchivoRed;
    };
    const std::string before = seen();
    a->joinBy(std::nullopt);
    a->joinBy(torn, Invalid + torn + Incomplete);
    EXPECT_EQ(seen(), before);
    a->joinBy(path);
    a->run("menu Opciones");
    EXPECT_EQ(a->all() + a->state(), "22=HHHHH running EnJuego") << state;
  }
}

} // namespace falanges
