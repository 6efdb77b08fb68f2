// The network game as it is meant to go: joining, turns, results, leaving.
#include "network/copies.h"

namespace falanges {

TEST_F(Network, ATurnGoesToTheOtherCopyAndBackThroughTheFile) {
  // With other line ends than the program writes, so that its first writing shows.
  std::string made = shared(0);
  std::erase(made, '\r');
  put(made);
  follow({"join AB => ?? 01= 01=", "tick AB 1 => ?? 015 015", "tick AB 4 => ?? 011 011",
          "tick AB 1 => 01 01. 01p.",    // who joined out of turn writes what it loaded
          "tick AB => 01 01. 01p.",      // and waits
          "move A 23 18 => 01 12. 01p.", // the turn passes in memory alone
          "tick A => 12 12p. 01p.",      // the next poll publishes it
          "tick AB => 12 12p. 12.",      // the other copy's poll takes it
          "tick AB => 12 12p. 12.",      // in turn, polls do nothing
          "move B 3 8 => 12 12p. 21.", "tick B => 21 12p. 21p.", "tick AB => 21 21. 21p."});
}

TEST_F(Network, ARefreshKeepsTheWindowsPlaceAndDropsWhatWasSelected) {
  begin();
  for (const int seconds : {5, 7}) {
    b->principal.SegundosActualizacion = static_cast<std::int16_t>(seconds);
    b->look(); // the value counts from the next poll on
    b->app.enJuego.Top = 1500;
    b->app.enJuego.Left = -315;
    b->screen.click("picUnidad(23)");
    b->principal.MovRealizados = 1;
    for (int left = seconds; left >= 1; --left)
      follow({"tick B 1 => 01 01= 01p" + std::to_string(left)});
    EXPECT_TRUE(b->screen.visible("picMovimientoPermitido(18)"));
    follow({"tick B 1 => 01 01= 01p."});
    EXPECT_FALSE(b->screen.visible("picMovimientoPermitido(18)"));
    EXPECT_EQ(b->principal.MovRealizados, 0);
    EXPECT_TRUE(b->app.enJuego.Top == 1500 && b->app.enJuego.Left == -315);
  }
}

TEST_F(Network, EitherMayJoinFirstAndTheClosingLineSaysWhoBegins) {
  for (const std::string script :
       {"join A, tick A 18, join B, tick AB", "join B, tick B 18, join A, tick AB"})
    for (const std::string closing : {"0", "1", "2"}) {
      put(shared(0, closing + "\r\n"));
      follow({script + (closing == "2" ? " => 02 02p. 02." : " => 01 01. 01p.")});
    }
}

TEST_F(Network, AWinReachesTheOtherCopyWhicheverPlayerWins) {
  const std::string lasts[] = {"I..../...../...../....i/....B", "b..../I..../...../...../....i"};
  for (const int winner : {1, 2}) {
    const std::string number = std::to_string(winner), last = lasts[winner - 1];
    const std::string text = gameFile(last, number + "\r\n1" + number + "\r\n");
    put(gameFile("b..../I..../...../....i/....B", number + "\r\n"));
    run("join AB, tick AB");
    Copy &won = winner == 1 ? *a : *b, &lost = winner == 1 ? *b : *a;
    won.screen.expectBox(victory(number, "CONQUISTADO la Bandera"), Answer::Ok, [&] {
      EXPECT_EQ(file(), text) << "the other player need not wait for the box to close";
      EXPECT_EQ(won.menus(), "HHHHH");
    });
    winner == 1 ? won.move(6, 1) : won.move(20, 25);
    lost.screen.expectBox(defeat(number), Answer::Ok, [&] { EXPECT_EQ(lost.menus(), "HHHHH"); });
    run("tick AB 20");
    EXPECT_EQ(won.caption(), "Victoria - Juego finalizado");
    EXPECT_EQ(lost.caption(), "Derrota - Juego finalizado");
    EXPECT_EQ(won.position(), gameFile(last, number + "\r\n"));
    EXPECT_EQ(lost.position(), gameFile(last, "1" + number + "\r\n"));
    for (Copy* copy : {&won, &lost}) {
      EXPECT_EQ(copy->pictures(), last);
      EXPECT_EQ(copy->status(), winner == 1 ? "Victoria/Derrota" : "Derrota/Victoria");
      for (const int square : {1, 6, 20, 25})
        if (const auto* unit = copy->app.enJuego.picUnidad(square); unit && unit->Enabled)
          copy->screen.click(at("picUnidad", square));
      EXPECT_EQ(copy->app.enJuego.picMovimientoPermitido.count(), 1);
      EXPECT_TRUE(copy->screen.closeWindow("frmEnJuego"));
      EXPECT_EQ(copy->app.enJuego.JugadorActual, 1);
    }
    EXPECT_EQ(file(), text);
  }
}

TEST_F(Network, ACopyInTurnSeesTheMarkerTooWhateverItsDigit) {
  const std::map<std::string, std::string> table = {{"1\r\n11", "11 Victoria/Derrota"},
                                                    {"1\r\n12", "12 Derrota/Victoria"},
                                                    {"2\r\n1x", "1 En Turno/En Espera"},
                                                    {"2\r\n10", "10 En Turno/En Espera"},
                                                    {"12", "12 Derrota/Victoria"}};
  for (const auto& [last, seen] : table) {
    begin();
    a->screen.click("picUnidad(23)");
    put(shared(1, last + "\r\n"));
    a->screen.expectBox(defeat(last.substr(last.size() - 1)));
    a->look();
    EXPECT_EQ(std::to_string(a->app.enJuego.JugadorActual) + " " + a->status(), seen);
    EXPECT_EQ(a->caption() + a->menus() + a->pictures(),
              "Derrota - Juego finalizadoHHHHH" + Boards[1]);
  }
}

TEST_F(Network, WhoLeavesKeepsThePlayerInTurnAndMayComeBack) {
  begin();
  run("move A 23 18, look A");
  EXPECT_TRUE(a->screen.closeWindow("frmEnJuego"));
  EXPECT_EQ(a->menus(), "SSHSH");
  a->load(shared(0, "")); // names nobody
  EXPECT_EQ(a->app.enJuego.JugadorActual, 2);
  EXPECT_TRUE(a->screen.closeWindow("frmEnJuego"));
  EXPECT_EQ(a->app.enJuego.JugadorActual, 1);
  a->join();
  follow({"tick AB => 12 12p. 12.", "move B 3 8, look B, look A => 21 21. 21p."});
}

TEST_F(Network, MovesMadeAtAWaitingCopyAreDropped) {
  for (const std::string seen : {"", "look B, "}) { // in between it seems to be in turn
    begin();
    follow({"move B 23 18, " + seen + "move B 3 8, look B => 01 01= 01p."});
    follow({"join B, move B 23 18, " + seen + "move B 3 8, look B => 01 01= 21p.",
            "look B => 01 01= 01p."});
  }
}

TEST_F(Network, AJoinLeadsFromEveryStateToTheFilesGameAndARefusalLeavesThatState) {
  const std::string torn = folder.file("incompleto"), odd = folder.file("otro"), none = path + "x";
  std::ofstream(torn) << shared(0, "1");
  std::ofstream(odd) << "3;2;380;1340;1;1;\r\n" << shared(0);
  const std::string invalid = "El archivo no contiene un juego guardado válido:\r\n";
  const std::pair<std::optional<std::string>, std::string> refusals[] = {
      {std::nullopt, ""},
      {none, "No se puede abrir el archivo:\r\n" + none},
      {torn, invalid + torn + "\r\nEl archivo está incompleto"},
      {odd, invalid + odd + "\r\nLínea 1: el campo 1 tiene un valor no permitido"}};
  put(shared(2, "2\r\n"));
  for (const std::string state : {"", "menu NuevoJuego, click picINF, square 21",
                                  "load b.i../...../...../...../..I.B 1, move 23 18",
                                  "load b..../I..../...../...../....B 1"}) {
    a = std::make_unique<Copy>(1, path);
    a->run(state);
    if (state.find("I..../") != state.npos) {
      a->screen.expectBox(victory("1", "CONQUISTADO la Bandera"));
      a->move(6, 1);
    }
    a->run("menu Opciones");
    const auto seen = [this] {
      return a->screen.transcript("frmEnJuego") + a->screen.transcript("frmNuevoJuego") +
             a->position() + a->menus() + a->principal.ArchivoRed;
    };
    const std::string before = seen();
    for (const auto& [chosen, box] : refusals) {
      a->screen.expectFile("Cargar Juego", chosen);
      if (!box.empty())
        a->screen.expectBox(box);
      a->run("click btnCargarJuegoRed");
      EXPECT_EQ(seen(), before) << box;
    }
    a->screen.expectFile("Cargar Juego", path);
    a->run("click btnCargarJuegoRed");
    EXPECT_EQ(a->state() + a->menus(), "22=HHHHH running") << state;
    EXPECT_EQ(a->app.enJuego.Top + a->app.enJuego.Left, 0);
    a->run("menu Opciones");
    EXPECT_FALSE(a->screen.isOpen("frmOpciones") || a->screen.isOpen("frmNuevoJuego"));
  }
}

} // namespace falanges
