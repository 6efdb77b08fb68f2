#include <fstream>

#include "persistence/configuration.h"
#include "scripted/game.h"

namespace falanges {

TEST(Configuration, IsReadFieldByFieldFromTheFirstItem) {
  // A text counts at once, a number once its ";" has come; what does not fit leaves the default.
  const auto read = [](const std::string& text) {
    const scripted::TemporaryFolder folder;
    const std::string path = configurationPath(folder.path());
    if (text != "no file")
      std::ofstream(path, std::ios::binary) << text;
    Principal principal;
    principal.OpcPermitirBanderas = principal.OpcLimiteFilas = "earlier";
    readConfiguration(principal, path);
    return principal.OpcPermitirBanderas + '|' + principal.OpcLimiteFilas + '|' +
           std::to_string(principal.SegundosActualizacion) + '|' +
           std::to_string(principal.MovPorTurno);
  };
  scripted::walk({"1;0;30;2 => 1|0|30|1", "1;1;30;3;99;7;x => 1|1|30|3",
                  " \"1;0;20;2;\",9 => 1|0|20|2", "\r\n1;1;30;3;\r\n => ||10|1",
                  "\xE9;\x01;12abc; 1 2;\r\n => \xE9|\x01|12|12", "0;0;2.5;3.5; => 0|0|2|4",
                  "0;0;32768;-1; => 0|0|10|1", " \t\r\n  => 0|0|10|1", "no file => 0|0|10|1"},
                 read);
}

using Files = Game;

TEST_F(Files, AConfigurationThatCannotBeWrittenIsToldOnceAndTheGameGoesOn) {
  const std::string path = file("VornathFalangesZTEE.cfg");
  std::filesystem::create_directory(scripted::toPath(path)); // under the file's name
  write("plantillas", "no folder");
  start();
  screen.expectBox("No se puede guardar el archivo:\r\n" + path, Answer::Ok,
                   [&] { EXPECT_EQ(principal.OpcPermitirBanderas, "1"); });
  run("menu Opciones, click chkPermitirBanderas, click lblLimiteFilas, close Opciones");
  EXPECT_EQ(principal.OpcPermitirBanderas + principal.OpcLimiteFilas, "11");
}

TEST_F(Files, AFailedSaveIsToldAndChangesNothing) {
  start();
  const std::string board = "g..../...../...../...../....G", folder = screen.programFolder();
  for (const std::string kind : {"Plantilla", "Juego"}) {
    run((kind == "Juego" ? "load " : "layOut ") + board + " 1");
    choose("menu Guardar" + kind, folder, "No se puede guardar el archivo:\r\n" + folder);
    expectBoard(board);
  }
}

TEST_F(Files, ShortAndOddFilesHaveADefinedResult) {
  start();
  const std::string squares = gameFile("i" + blank(5).substr(1), "");
  // What is loaded over a 6x6 game of player 2 with generals in two corners; then the side, the
  // player in turn, and squares 1, 2 and 36.
  scripted::walk(
      {" => 6 2 g. G", squares + "1 => 5 1 i. G", squares + " => 6 2 i. G",
       squares + "2 turno\r\n => 5 2 i. G", squares + "0\r\n => 5 1 i. G",
       squares + "2\r\n12\r\n => 6 12 i. G", gameFile(blank(8), "x\r\ny\r\n2\r\n => 6 2 .. ."),
       "1;3;\r\n2;\r\n1\r\n => 6 1 C0 G", "1;3;380;1340;1;1;9;x\n1;2\r\n2 => 6 2 C0 G",
       "\t\"2;4;380;1340;1;1;\"\r\n1 => 6 1 e. G", "1;2;-32768;32767;255;0;\r\n2 => 6 2 .. G"},
      [&](const std::string& text) {
        run("load g...../....../....../....../....../.....G 2, close EnJuego");
        play.JugadorActual = 2;
        load(text);
        EXPECT_EQ(shown().find(" , "), std::string::npos) << "no name of a type";
        const std::string seen = std::to_string(play.JugadorActual) + " " + pictures().substr(0, 2);
        run("close EnJuego");
        return std::to_string(principal.NumFilas) + " " + seen +
               (principal.Casillas(36).TUnidad == GEN ? " G" : " .");
      });
}

TEST(GameText, NoBeginningOfAWholeOnePassesForWhole) {
  const std::string text = gameFile("b.i../...../...../...../..I.B", "2\r\n12\r\n");
  for (std::size_t length = 0; length <= text.size(); ++length) {
    const GameText read = parseGame(text.substr(0, length)).game;
    EXPECT_EQ(read.whole, length == text.size() - 4 || length == text.size());
    EXPECT_EQ(read.resultLine.has_value(), length == text.size());
  }
}

TEST_F(Files, ARefusedFileChangesNothing) {
  start();
  run("layOut ..c.../....../....../....../....../...C.., click picGEN");
  const auto everything = [&] { return gameText(principal, 2) + state() + shown(); };
  const std::string before = everything(), invalid = Invalid + file("rota") + "\r\n";
  const auto pass = [&](const std::optional<std::string>& path, const std::string& box) {
    for (const std::string kind : {"Juego", "Plantilla"}) {
      choose("menu Cargar" + kind, path, box);
      EXPECT_EQ(everything(), before);
    }
  };
  const std::pair<std::string, std::string> table[] = {
      {gameFile(blank(8), ";\r\n"), "Línea 65: el tablero no tiene tantas casillas"},
      {std::string(LargestGameFile + 1, ' '), "El archivo ocupa más de 64 KiB"},
      {"0;0;\r\n1;2;12abc;0;0;0;\r\n1\r\n", "Línea 2: el campo 3 no es un número"},
      {"0;0;-;", "Línea 1: el campo 3 no es un número"},
      {"1;6;", "Línea 1: el campo 2 tiene un valor no permitido"},
      {"0;0;0;-32769;", "Línea 1: el campo 4 tiene un valor no permitido"},
      {"0;0;0;0;0;99999999999;", "Línea 1: el campo 6 tiene un valor no permitido"},
      {"0;\r\n256\r\n", "Línea 2: el jugador en turno tiene un valor no permitido"}};
  for (const auto& [text, reason] : table)
    pass(write("rota", text), invalid + reason);
  pass(file("no hay/x"), "No se puede abrir el archivo:\r\n" + file("no hay/x"));
  pass(std::nullopt, "");
}

} // namespace falanges
