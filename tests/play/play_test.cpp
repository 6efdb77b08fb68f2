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
  EXPECT_EQ(hint("picTablero 3540;1200"), "Cuadro: 9 (2,3)") << "a boundary";
  EXPECT_EQ(hint("picTablero 3000;0"), "Cuadro:  (0,3)");
}

TEST_F(Play, APictureInvitesWhereAClickDoesSomething) {
  const auto inviting = [&] {
    std::string names;
    for (auto* element : app.forms.activeChild()->elements())
      if (auto* picture = dynamic_cast<forms::Picture*>(element); picture && picture->invites())
        names += " " + picture->name();
    return names;
  };
  walk({"menu NuevoJuego =>  picINF picCAB picELE picGEN picBAN",
        // Its own flags hold the infantry of square 22.
        "load gb.../b..../...../BBB../BIBG. 1 =>  picUnidad(24)",
        "move 24 19, click picUnidad(1) =>  picUnidad(1) picMovimientoPermitido(7)"},
       inviting);
}

TEST_F(Play, TheWindowIsAsLargeAsItsBoardNeeds) {
  run("load g...../....../....../.I..../....../.....G 1");
  EXPECT_TRUE(play.picTablero.picturePath().ends_with("6x6.jpg"));
  EXPECT_TRUE(play.Icon.get().ends_with("adelante.ico"));
  EXPECT_EQ(play.Width, 8460);
  EXPECT_EQ(play.Height, 7950);
}

TEST_F(Play, SurrenderEndsTheGameWithoutAWinner) {
  run("load g..../...../...../...../....G 2");
  screen.expectBox("¿Declarar Rendición?", Answer::No);
  frame.mnuDeclararRendicion_Click();
  EXPECT_EQ(menu(), "Guardar Juego");
  EXPECT_TRUE(unit(1)->Enabled);

  screen.expectBox("¿Declarar Rendición?", Answer::Yes);
  screen.expectBox("JUGADOR -2- HA DECLARADO SU RENDICIÓN\r\n\r\nJUGADOR -2- PIERDE");
  frame.mnuDeclararRendicion_Click();
  EXPECT_EQ(menu(), "");
  EXPECT_EQ(status(), "En Espera/En Turno");
  EXPECT_FALSE(unit(1)->Enabled);
  EXPECT_FALSE(unit(25)->Enabled);
}

} // namespace falanges
