// Pictures whose files cannot be loaded. On a drawn board I and G are infantry and general of
// player 1, g is a general of player 2, "0" is a unit without its picture, "." an empty square.
//
// No picture can be loaded whose file name has the text of `missingPictures` in it. `run` does its
// steps one by one: "menu X" chooses mnuX, "choose comTablero 6x6" a size of the board, "click
// picINF" the infantry in the palette, "load BOARD TURN" loads a game, "move 21 16" moves the unit
// on 21.
//
// `pictures()` is the board as its pictures show it. `app` is the program, `screen` the person
// before it; `screen.expectBox(TEXT)` announces a box that will come, and that is closed with Ok.
// `informationBox()` is the one that the program starts with; `start()` goes past it.
#include "scripted/game.h"

namespace falanges {

using MissingPictures = Game;

TEST_F(MissingPictures, AreToldOnceAndTheGameGoesOnWithoutThem) {
  // The program's symbol.
  screen.missingPictures = "tiempo";
  screen.expectBox(informationBox().text);
  screen.expectBox("No se puede cargar la imagen:\r\n" + file("ico\\tiempo.ico"));
  app.start();
  run("menu NuevoJuego");
  // All that are loaded from now on, for each file name has a point. The first box was the only
  // one: another would be one that nobody expects, and fail the case.
  screen.missingPictures = ".";
  run("choose comTablero 6x6, click picINF, click square 36");
  EXPECT_EQ(pictures(), "0...../....../....../....../....../.....0");
  // They stand in the way of no move; the infantry goes from 21 to 16.
  run("load g..../...../...../...../I...G 1, move 21 16");
  EXPECT_EQ(pictures(), "0..../...../...../0..../....0");
}

TEST_F(MissingPictures, AreAllNamedInOneBox) {
  start();
  // The boards: img/5x5.jpg and so on. No other file has an x in its name.
  screen.missingPictures = "x";
  std::string text = "No se pueden cargar las imágenes:";
  for (const char* name : {"5x5", "6x6", "7x7", "8x8"})
    text += "\r\n" + file("img\\" + std::string(name) + ".jpg");
  screen.expectBox(text);
  // The deployment opens with the board of 5x5 and tells of all four; of 6x6 nothing more is told.
  run("menu NuevoJuego, choose comTablero 6x6");
}

TEST_F(MissingPictures, OfAWholeFolderAskToUnpackTheProgram) {
  // All of the folder ico.
  screen.missingPictures = ".ico";
  screen.expectBox(informationBox().text);
  screen.expectBox("Faltan las imágenes del juego: descomprima la carpeta completa del programa y "
                   "ábralo desde ella.");
  app.start();
}

} // namespace falanges
