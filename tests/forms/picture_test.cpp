// Pictures whose files cannot be loaded.
#include "scripted/game.h"
#include "scripted/test_windows.h"

namespace falanges {

TEST(MissingPictures, LeaveTheOldOneAndTheFirstIsNoted) {
  scripted::Player screen;
  scripted::TestProgram program(screen);
  screen.missingPictures = "8";
  EXPECT_TRUE(program.one.pic.LoadPicture("\\img\\6x6.jpg"));
  EXPECT_FALSE(program.one.pic.LoadPicture("\\img\\8x8.jpg") ||
               program.one.LoadIcon("\\ico\\8.ico"));
  const std::string img = forms::programPath(screen.programFolder(), "\\img\\");
  EXPECT_EQ(program.forms.failures.front().path, img + "8x8.jpg");
  EXPECT_EQ(program.one.pic.picturePath() + program.one.Icon.get(), img + "6x6.jpg");
}

using MissingPicturesInAGame = Game;

TEST_F(MissingPicturesInAGame, AreToldOnceAndItGoesOn) {
  screen.missingPictures = ".";
  screen.expectBox(informationBox().text);
  screen.expectBox("No se puede cargar la imagen:\r\n" + file("ico\\tiempo.ico"), Answer::Ok,
                   [&] { EXPECT_TRUE(frame.isOpen()); });
  app.start();
  run("menu NuevoJuego, choose comTablero 8x8, click picINF, square 64");
  EXPECT_EQ(pictures(), "0......./......../......../......../......../......../......../.......0");
  // They stand in the way of no move; a box would fail here.
  run("load g..../...../...../...../I...G 1, move 21 16");
  EXPECT_EQ(pictures(), "0..../...../...../0..../....0");
  EXPECT_EQ(status(), "En Espera/En Turno");
}

} // namespace falanges
