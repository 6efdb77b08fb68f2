// The play screen. A board is drawn from the top row, "/" between rows: B I C E G are flag,
// infantry, cavalry, elephants and general of player 1, b i c e g those of player 2, "." is an
// empty square; the number behind it says whose turn it is. Squares count from 1 at the top left. A
// unit is picUnidad, the mark of a square that it may go to picMovimientoPermitido. How units go
// and win is tried in fuzz/rules_test.cpp.
#include "scripted/game.h"

namespace falanges {

class Play : public Game {
protected:
  Play() { start(); }
};

TEST_F(Play, TheHintNamesTheSquareUnderThePointer) {
  run("load g...../....../....../.I..../....../.....G 1, click picUnidad(20)");
  EXPECT_EQ(hint("picUnidad(20) 10;10"), "Cuadro: 20 (4,2)");
  EXPECT_EQ(hint("picMovimientoPermitido(14) 10;10"), "Cuadro: 14 (3,2)");
  // Twips from the board's corner; a square has 1180.
  EXPECT_EQ(hint("picTablero 3540;1200"), "Cuadro: 9 (2,3)") << "a boundary";
  EXPECT_EQ(hint("picTablero 3000;0"), "Cuadro:  (0,3)") << "no square";
}

TEST_F(Play, APictureInvitesWhereAClickDoesSomething) {
  run("load gb.../b..../...../BBB../BIBG. 1");
  EXPECT_TRUE(unit(24)->invites());
  EXPECT_FALSE(unit(22)->invites()) << "the flags of its own hold this infantry";
  EXPECT_FALSE(unit(1)->invites()) << "the other player's";
  run("move 24 19, click picUnidad(1)");
  EXPECT_TRUE(unit(1)->invites()) << "to take the selection back";
  EXPECT_TRUE(play.picMovimientoPermitido(7)->invites());
}

TEST_F(Play, SurrenderEndsTheGameWithoutAWinner) {
  run("load g..../...../...../...../....G 2");
  screen.expectBox("¿Declarar Rendición?", Answer::No);
  frame.mnuDeclararRendicion_Click();
  EXPECT_EQ(menu(), "Guardar Juego") << "it goes on";

  screen.expectBox("¿Declarar Rendición?", Answer::Yes);
  screen.expectBox("JUGADOR -2- HA DECLARADO SU RENDICIÓN\r\n\r\nJUGADOR -2- PIERDE");
  frame.mnuDeclararRendicion_Click();
  EXPECT_EQ(menu(), "");
  EXPECT_EQ(status(), "En Espera/En Turno");
  EXPECT_FALSE(unit(1)->Enabled);
}

} // namespace falanges
