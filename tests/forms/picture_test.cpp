// Pictures whose files cannot be loaded. On a drawn board I and G are infantry and general of
// player 1, g is a general of player 2, "0" is a unit without its picture, "." an empty square.
#include "scripted/game.h"

namespace falanges {

using MissingPictures = Game;

TEST_F(MissingPictures, AreToldOnceAndItGoesOnWithTheOldOnes) {
  screen.missingPictures = "tiempo";
  screen.expectBox(informationBox().text);
  screen.expectBox("No se puede cargar la imagen:\r\n" + file("ico\\tiempo.ico"), Answer::Ok,
                   [&] { EXPECT_TRUE(frame.isOpen()); });
  app.start();
  run("menu NuevoJuego");
  screen.missingPictures = ".";
  run("choose comTablero 8x8, click picINF, click square 64");
  EXPECT_EQ(pictures(), "0......./......../......../......../......../......../......../.......0");
  // They stand in the way of no move; a box would fail here.
  run("load g..../...../...../...../I...G 1, move 21 16");
  EXPECT_EQ(pictures(), "0..../...../...../0..../....0");
  EXPECT_EQ(status(), "En Espera/En Turno");
}

TEST_F(MissingPictures, AreAllNamedInOneBox) {
  start();
  screen.missingPictures = "x"; // the boards
  std::string text = "No se pueden cargar las imágenes:";
  for (const char* name : {"5x5", "6x6", "7x7", "8x8"})
    text += "\r\n" + file("img\\" + std::string(name) + ".jpg");
  screen.expectBox(text);
  run("menu NuevoJuego, choose comTablero 6x6");
}

TEST_F(MissingPictures, OfAWholeFolderAskToUnpackTheProgram) {
  screen.missingPictures = ".ico";
  screen.expectBox(informationBox().text);
  screen.expectBox("Faltan las imágenes del juego: descomprima la carpeta completa del programa y "
                   "ábralo desde ella.");
  app.start();
}

} // namespace falanges
