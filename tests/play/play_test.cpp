// The play screen. A board is drawn from the top row, "/" between rows: B I C E G are flag,
// infantry, cavalry, elephants and general of player 1, b i c e g those of player 2, "." is an
// empty square; the number behind it says whose turn it is. Squares count from 1 at the top left. A
// unit is picUnidad, the mark of a square that it may go to picMovimientoPermitido. How units go
// and win is tried in fuzz/rules_test.cpp.
//
// `run` does its steps one by one: "load BOARD TURN" loads a saved game, "move 24 19" clicks the
// unit on square 24 and then the mark on 19. `unit(n)` is the picture of the unit on square n.
// `hint` points at a place, in twips from the corner of what is named, and reads the hint there.
//
// `play` is the window of play.
#include "scripted/game.h"

namespace falanges {

// The program, past its information box.
class Play : public Game {
protected:
  Play() { start(); }
};

// "Cuadro: 20 (4,2)" is square 20, in the fourth row and the second column. The infantry on 20 is
// selected, and may go to 14 above it.
TEST_F(Play, TheHintNamesTheSquareUnderThePointer) {
  run("load g...../....../....../.I..../....../.....G 1, click picUnidad(20)");
  EXPECT_EQ(hint("picUnidad(20) 10;10"), "Cuadro: 20 (4,2)");
  EXPECT_EQ(hint("picMovimientoPermitido(14) 10;10"), "Cuadro: 14 (3,2)");
  // A square has 1180 twips: X 3540 lies between the third column and the fourth. A boundary
  // belongs to the square on its left or above it, so that the upper edge, Y 0, belongs to none.
  EXPECT_EQ(hint("picTablero 3540;1200"), "Cuadro: 9 (2,3)") << "a boundary";
  EXPECT_EQ(hint("picTablero 3000;0"), "Cuadro:  (0,3)") << "no square";
}

// A picture that invites shows a hand over it.
TEST_F(Play, APictureInvitesWhereAClickDoesSomething) {
  run("load gb.../b..../...../BBB../BIBG. 1");
  EXPECT_TRUE(unit(24)->invites());
  // Infantry goes towards the enemy, straight or askew: from 22 to 16, 17 or 18.
  EXPECT_FALSE(unit(22)->invites()) << "the flags of its own hold this infantry";
  EXPECT_FALSE(unit(1)->invites()) << "the other player's";
  // Player 2 is in turn then, and selects the general.
  run("move 24 19, click picUnidad(1)");
  EXPECT_TRUE(unit(1)->invites()) << "to take the selection back";
  // The mark on the only square that it may go to: its own flags stand on 2 and 6.
  EXPECT_TRUE(play.picMovimientoPermitido(7)->invites());
}

} // namespace falanges
