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
          "B move 3 8 => 12 12p. 21.", "B tick => 21 12p. 21p.", "AB tick => 21 21. 21p.",
          // The closing line says who begins.
          "file 00, B join, B tick 18, A join, AB tick => 01 01. 01p.",
          "file 02, B join, B tick 18, A join, AB tick => 02 02p. 02.",
          // Who leaves may come back.
          "begin, A move 23 18, A look, A close EnJuego, A again, AB tick => 12 12p. 12.",
          "B move 3 8, B look, A look => 21 21. 21p."});
}

TEST_F(Network, ARefreshKeepsTheWindowsPlaceAndDropsWhatWasSelected) {
  run("begin");
  b->principal.SegundosActualizacion = 7;
  b->play.Top = 1500;
  b->play.Left = -315;
  // The value counts from the next poll on; the cursor comes back where the mouse was, and on.
  follow({"B look, B click picUnidad(23), B Up, B Up, B tick 1 => 01 01= 01p7",
          "B tick 6 => 01 01= 01p1", "B tick 1 => 01 01= 01p."});
  EXPECT_FALSE(b->play.picMovimientoPermitido(18));
  EXPECT_TRUE(b->play.Top == 1500 && b->play.Left == -315);
  EXPECT_EQ(b->play.picTablero.cursorSquare(), 18);
}

TEST_F(Network, AWinReachesTheOtherCopyAndEndsTheGameOnBoth) {
  const std::string last = "b..../I..../...../...../....i", text = gameFile(last, "2\r\n12\r\n");
  put(gameFile("b..../I..../...../....i/....B", "2\r\n"));
  run("AB join, AB tick");
  b->screen.expectBox(victory("2", "CONQUISTADO la Bandera"), Answer::Ok, [&] {
    EXPECT_EQ(file(), text) << "the other player need not wait for the box to close";
  });
  b->run("move 20 25");
  a->screen.expectBox(defeat("2"));
  run("AB tick 20");
  EXPECT_EQ(file(), text);
  for (Copy* copy : {a.get(), b.get()}) {
    EXPECT_EQ(copy->pictures(), last);
    EXPECT_EQ(copy->menu(), "");
  }
  EXPECT_EQ(b->play.Caption.get() + b->standing(), "Victoria - Juego finalizado2 Derrota/Victoria");
  // A copy in turn sees the marker too, whatever its digit.
  scripted::walk({"1\r\n11 => 11 Victoria/Derrota", "1\r\n12 => 12 Derrota/Victoria",
                  "2\r\n1x => 1 En Turno/En Espera", "12 => 12 Derrota/Victoria"},
                 [&](const std::string& closing) {
                   run("begin");
                   put(shared("1" + closing));
                   a->screen.expectBox(defeat(closing.substr(closing.size() - 1)));
                   run("A look");
                   EXPECT_EQ(a->play.Caption, "Derrota - Juego finalizado");
                   return a->standing();
                 });
}

TEST_F(Network, AJoinFromALocalGameLeadsToTheFilesGameAndARefusalLeavesThatOne) {
  const std::string idle = folder.file("nadie en turno");
  std::ofstream(idle) << shared("07");
  run("file 22, A join, A close EnJuego");
  a->run("load b.i../...../...../...../..I.B 1, move 23 18, menu Opciones");
  const std::string before = a->shown() + a->principal.ArchivoRed;
  a->choose("click btnCargarJuegoRed", std::nullopt);
  a->choose("click btnCargarJuegoRed", idle, Invalid + idle + Incomplete);
  EXPECT_EQ(a->shown() + a->principal.ArchivoRed, before);
  a->choose("click btnCargarJuegoRed", path);
  a->run("menu Opciones");
  EXPECT_EQ(a->all(), "22=");
  EXPECT_EQ(a->windows(), "EnJuego");
  EXPECT_EQ(a->menu(), "");
}

} // namespace falanges
