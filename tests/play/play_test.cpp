#include <set>

#include "model/geometry.h"
#include "play/reach.h"
#include "shell/game.h"

namespace falanges {

class Play : public Game {
protected:
  Play() { start(); }

  // The selected unit and the squares marked: "12: 6 7 8".
  std::string selection() {
    std::string selected, markers;
    for (int n = 1; n <= principal.NumCasillas; ++n) {
      const auto *unit = app.enJuego.picUnidad(n), *marker = app.enJuego.picMovimientoPermitido(n);
      selected += unit && unit->Appearance == 1 ? std::to_string(n) + ":" : "";
      markers += marker ? " " + std::to_string(n) : "";
      EXPECT_TRUE(!marker || (marker->Visible && marker->Width == 465 && marker->Height == 465 &&
                              marker->Top == principal.Casillas(n).PosXTwips &&
                              marker->Left == principal.Casillas(n).PosYTwips));
    }
    return selected + markers;
  }
  std::string hint(const std::string& element, double X, double Y) {
    screen.moveOver(element, X, Y);
    return screen.toolTip(element);
  }
};

TEST(Reach, HoldsForEachTypeAndPlayerOnEachSquareOfEachBoard) {
  const auto mayReach = [](int type, int player, int down, int across) {
    const int length = down * down + across * across; // 1 straight, 2 diagonal
    const bool near = length == 1 || length == 2;
    return (type == INF && near && down == 2 * player - 3) || (type == CAB && length == 2) ||
           (type == ELE && length == 1) || (type == GEN && near);
  };
  for (int side = 5; side <= 8; ++side)
    for (int unit = 0; unit < 10; ++unit)
      for (int n = 0; n < side * side; ++n) {
        std::string drawing = blank(side);
        drawing[place(n + 1, side)] = "BICEGbiceg"[unit];
        Principal principal;
        std::uint8_t player = 0;
        takeGame(std::get<GameText>(parseGame(gameFile(drawing, unit < 5 ? "1" : "2"))), principal,
                 player);
        std::set<int> expected;
        for (int to = 0; to < side * side; ++to)
          if (mayReach(unit % 5 + 1, player, to / side - n / side, to % side - n % side))
            expected.insert(to + 1);
        const Targets targets = reach(principal, n + 1, player);
        EXPECT_EQ(std::set<int>(targets.begin(), targets.end()), expected) << drawing;
      }
}

TEST_F(Play, AClickSelectsOneUnitAndMarksWhatItMayReach) {
  const std::string board = "I..../.cb../.IE../.BG../cI...";
  load(gameFile(board));
  // Flags, enemies, also beside the marker on them, and what has no move.
  walk({"unit 17 => ", "unit 12 => 12: 6 7 8", "unit 17 => 12: 6 7 8", "unit 8 => 12: 6 7 8",
        "unit 7 => 12: 6 7 8", "unit 21 => 12: 6 7 8", "unit 13 => 13: 8 14", "unit 13 => ",
        "unit 18 => 18: 14 19 23 24", "unit 1 => ", "unit 1 => ", "unit 22 => 22: 16"},
       [&] { return selection(); });
  screen.clickOn("picTablero", 5285, 245);
  EXPECT_EQ(selection(), "22: 16") << "the board has no click";
  const std::string name = "Infantería, Jugador 1, cuadro 22, fila 5, columna 2";
  EXPECT_EQ(screen.accessibleName("picUnidad(22)"), name + ", seleccionada");
  EXPECT_EQ(screen.accessibleName("picMovimientoPermitido(16)"),
            "Mover al cuadro 16, fila 4, columna 1");
  EXPECT_EQ(hint("picMovimientoPermitido(16)", 10, 10), "Cuadro: 16 (4,1)");
  EXPECT_EQ(hint("picTablero", 1500, 1200), "Cuadro: 7 (2,2)");
  EXPECT_EQ(hint("picTablero", 3000, 0), "Cuadro:  (0,3)");
  run("unit 13");
  EXPECT_EQ(screen.accessibleName("picUnidad(22)"), name);
  expectBoard(board);
  const float table[][3] = {{1180, 1180, 1}, {1181, 1180, 2}, {1, 1180.5F, 6}, {5900.5F, 9, 0}};
  for (const auto& [X, Y, square] : table)
    EXPECT_EQ(squareAt(principal, X, Y).square, square) << X << " " << Y;
}

TEST_F(Play, ATurnPassesWhenTheCountOfMovesIsMet) {
  principal.MovPorTurno = 3;
  run("load g..../...../...../...../....G 1");
  const auto seen = [&] { return status(); };
  walk({"move 25 24, move 24 25 => En Turno/En Espera", "move 25 24 => En Espera/En Turno",
        "move 1 2, move 2 1 => En Espera/En Turno", "move 1 2 => En Turno/En Espera",
        "move 24 25, move 25 24 => En Turno/En Espera"},
       seen);
  EXPECT_EQ(screen.accessibleName("picUnidad(24)"),
            "General, Jugador 1, cuadro 24, fila 5, columna 4");
  EXPECT_EQ(hint("picUnidad(24)", 10, 10) + selection(), "Cuadro: 24 (5,4)");
  principal.MovPorTurno = 2; // met already: the count passes it by
  walk(std::vector<std::string>(130, "move 24 25, move 25 24 => En Turno/En Espera"), seen);
  EXPECT_EQ(principal.MovRealizados, 255);
}

TEST_F(Play, AMoveWinsByFlagsOrByTheLastUnit) {
  for (int n = 60; n <= 63; ++n) { // beyond the board nothing counts
    principal.Casillas(n).Jugador = static_cast<std::uint8_t>(n % 2 + 1);
    principal.Casillas(n).TUnidad = n < 62 ? BAN : GEN;
  }
  const std::map<std::string, std::string> ways = {
      {"flag", "CONQUISTADO la Bandera"},
      {"flags", "CONQUISTADO TODAS las Banderas"},
      {"units", "ELIMINADO todas las unidades enemigas"}};
  // Option, board, player in turn and the move; then the way it wins.
  // clang-format off
  for (const std::string row : {
           "0 b..../.I..b/...../...../g...B 1 7 1 => flag",  "0 b..../...../...../.i.../BG... 2 17 21 => flag",
           "1 b..../.I.../...../...../g...B 1 7 1 => flags", "1 b..../...../...../.i.../BG..B 2 17 21 => ",
           "1 b...b/.I.../...../...../g...B 1 7 1 => ",      "x b..../.I.../...../...../g...B 1 7 1 => ",
           "0 g..bb/.I.../...../...../....B 1 7 1 => units", "1 b..../...../...../.c.../I.... 2 17 21 => units",
           "x e..../.C.../...../...../..... 1 7 1 => units", "0 g..../.I.../...../...../c...B 1 7 1 => ",
           "1 g.b../.E.../...../...../c...B 1 7 2 => "}) {
    // clang-format on
    SCOPED_TRACE(row);
    std::istringstream cells(row);
    std::string before, player;
    int from = 0, to = 0;
    cells >> principal.OpcPermitirBanderas >> before >> player >> from >> to;
    const std::string way = halves(row).second;
    load(gameFile(before, player + "\r\n"));
    const bool won = !way.empty(), first = (player == "1") == won;
    if (won)
      screen.expectBox(victory(player, ways.at(way)));
    move(from, to);
    std::string after = before;
    after[place(to, 5)] = std::exchange(after[place(from, 5)], '.');
    EXPECT_EQ(pictures(), after);
    // A win leaves the table, the turn, labels and caption, and no unit answers any more.
    EXPECT_EQ(gameText(principal, 1), gameFile(won ? before : after));
    EXPECT_EQ(app.enJuego.JugadorActual, first ? 1 : 2);
    EXPECT_EQ(status(), first ? "En Turno/En Espera" : "En Espera/En Turno");
    EXPECT_EQ(screen.text("frmEnJuego") + menus(), won ? "En JuegoHHHHH" : "En JuegoHHSHH");
    for (int n = 1; n <= 25; ++n)
      EXPECT_TRUE(after[place(n, 5)] == '.' || screen.enabled(at("picUnidad", n)) != won);
    screen.closeWindow("frmEnJuego");
    EXPECT_EQ(app.enJuego.JugadorActual, 1);
  }
}

TEST_F(Play, SurrenderEndsTheGameWithoutAWinner) {
  load(gameFile("g..../...../...../...../....G", "2\r\n"));
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    EXPECT_EQ(menus(), "HHSHH");
    screen.expectBox("¿Declarar Rendición?", BoxStyle::InformationYesNo, answer);
    if (answer == Answer::Yes)
      screen.expectBox("JUGADOR -2- HA DECLARADO SU RENDICIÓN\r\n\r\nJUGADOR -2- PIERDE");
    app.ventanaPrincipal.mnuDeclararRendicion_Click();
  }
  EXPECT_EQ(menus() + status(), "HHHHHEn Espera/En Turno");
  EXPECT_FALSE(screen.enabled("picUnidad(1)") || screen.enabled("picUnidad(25)"));
}

} // namespace falanges
