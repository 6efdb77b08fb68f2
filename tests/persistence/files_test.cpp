#include <algorithm>
#include <iterator>

#include "persistence/configuration.h"
#include "play/reach.h"
#include "shell/game.h"

namespace falanges {

TEST(Configuration, IsReadFieldByFieldFromTheFirstItem) {
  // A text counts at once, a number once its ";" has come; what does not fit leaves the default.
  // clang-format off
  for (const std::string row : {
           "1;1;30;3;\r\n => 1|1|30|3",     "1;1;30;3;\n => 1|1|30|3",  "1;1;30;3; => 1|1|30|3",
           "1;0 => 1|0|10|1",               "1;0;30 => 1|0|10|1",       "1;0;30;2 => 1|0|30|1",
           "1;1;30;3;99;7;x => 1|1|30|3",   "0;0;;;\r\n => 0|0|0|0",    ";;25;4;\r\n => ||25|4",
           "0;0;30,5;1;\r\n => 0|0|10|1",   " \"1;0;20;2;\",9 => 1|0|20|2",
           "\r\n1;1;30;3;\r\n => ||10|1",   "1;1;30;3;\r\n0;0;5;5; => 1|1|30|3",
           "a;b;12abc; 1 2;\r\n => a|b|12|12", "0;0;2.5;3.5; => 0|0|2|4", "0;0;1e3;+2; => 0|0|1|2",
           "0;0;-7;-1; => 0|0|-7|1",  "0;0;32767;255; => 0|0|32767|255", "0;0;32768;256; => 0|0|10|1",
           "\xE9;\x01;\t7;2; => \xE9|\x01|7|2", " => 0|0|10|1",          "no file => 0|0|10|1"}) {
    // clang-format on
    const scripted::TemporaryFolder folder;
    const std::string path = configurationPath(folder.path());
    const auto [text, options] = halves(row);
    if (text != "no file")
      std::ofstream(path, std::ios::binary) << text;
    Principal principal;
    principal.OpcPermitirBanderas = principal.OpcLimiteFilas = "earlier";
    readConfiguration(principal, path);
    std::ostringstream read;
    read << principal.OpcPermitirBanderas << '|' << principal.OpcLimiteFilas << '|'
         << principal.SegundosActualizacion << '|' << int{principal.MovPorTurno};
    EXPECT_EQ(read.str(), options) << text;
  }
}

class Files : public Game {
protected:
  Files() { start(); }

  // All that a load may change.
  std::string everything() {
    Principal all = principal;
    all.NumCasillas = 64;
    return gameText(all, app.enJuego.JugadorActual) + principal.ArchivoRed + state() +
           std::to_string(principal.NumCasillas) + screen.transcript("frmNuevoJuego");
  }
};

TEST_F(Files, ShortAndOddFilesHaveADefinedResult) {
  std::string lf = gameFile(blank(5));
  std::erase(lf, '\r');
  const std::map<std::string, std::string> beginnings = {
      {"25", gameFile("i..../" + blank(5).substr(6), "")},
      {"64", gameFile(blank(8), "")},
      {"LF", lf}};
  // Over a 6x6 game of player 2 with generals in two corners: one of these beginnings, and the
  // text behind it; then the side, the player in turn, and squares 1, 2 and 36.
  // clang-format off
  for (const std::string row : {
           " => 6 2 g. G",    "25 1\r\n => 5 1 i. G",       "25 1 => 5 1 i. G",        "LF  => 5 1 .. G",
           "25  => 6 2 i. G", "25 2 turno\r\n => 5 2 i. G", "25 0\r\n => 5 1 i. G",    "1\r\n => 6 1 g. G",
           "25 2\r\n12\r\n => 6 12 i. G",                    "25 2\r\n\r\n => 6 1 i. G", "64 1\r\n => 8 1 .. .",
           "1;3;\r\n2;\r\n1\r\n => 6 1 C0 G",                "64 x\r\ny\r\n2\r\n => 6 2 .. .",
           "1\r\n1;3;380;2520;1;2;\r\n1\r\n => 6 1 gC G",    "1;0;380;1340;1;1;\r\n1\r\n => 6 1 0. G",
           "1;3;380;1340;1;1;9;x\r\n1;2\r\n2 => 6 2 C0 G",   "\t\"2;4;380;1340;1;1;\"\r\n1 => 6 1 e. G",
           "1;2;-32768;32767;255;0;\r\n2 => 6 2 .. G",
           "1;3;380;1340;1;1;, 1;4;380;2520;1;2;,1 => 6 1 CE G"}) {
    // clang-format on
    SCOPED_TRACE(row);
    auto [text, result] = halves(row);
    if (const auto found = beginnings.find(text.substr(0, 2)); found != beginnings.end())
      text = found->second + text.substr(3);
    principal.MovPorTurno = 3;
    run("load g...../....../....../....../....../.....G 2, move 1 2, move 2 1, close EnJuego");
    app.enJuego.JugadorActual = 2;
    load(text);
    std::ostringstream read;
    read << int{principal.NumFilas} << ' ' << int{app.enJuego.JugadorActual} << ' '
         << pictures().substr(0, 2) << (principal.Casillas(36).TUnidad == GEN ? " G" : " .");
    EXPECT_EQ(read.str(), result);
    EXPECT_EQ(status() == "En Espera/En Turno", app.enJuego.JugadorActual == 2);
    EXPECT_EQ(principal.NumCasillas, principal.NumFilas * principal.NumColumnas);
    EXPECT_EQ(principal.ArchivoRed, file("partida"));
    EXPECT_EQ(principal.MovRealizados + principal.CargaCancelada, 0);
    EXPECT_EQ(screen.transcript("frmEnJuego").find("[,"), std::string::npos) << "no name of a type";
    run("close EnJuego");
  }
}

TEST_F(Files, ARefusedFileChangesNothing) {
  std::vector<std::pair<std::string, std::string>> table = {
      {gameFile(blank(8), ";\r\n"), "Línea 65: el tablero no tiene tantas casillas"},
      {std::string(LargestGameFile + 1, ' '), "El archivo ocupa más de 64 KiB"}};
  // clang-format off
  for (const std::string row : {
           "0;0;\r\n1;2;12abc;0;0;0;\r\n1\r\n => 2: el campo 3",
           "; => 1: el campo 1",      "0;0;3.0; => 1: el campo 3", "0;0;-; => 1: el campo 3",
           "0;0;+1; => 1: el campo 3", "0;0;1 ; => 1: el campo 3"})
    table.emplace_back(halves(row).first, "Línea " + halves(row).second + " no es un número");
  for (const std::string row : {
           "0;\r\n\r\n3;0; => 3: el campo 1", "-1; => 1: el campo 1", "1;6; => 1: el campo 2",
           "0;0;32768; => 1: el campo 3", "0;0;0;-32769; => 1: el campo 4", "0;0;0;0;256; => 1: el campo 5",
           "0;0;0;0;0;99999999999; => 1: el campo 6",
           "0;\r\n256\r\n => 2: el jugador en turno", "-1 => 1: el jugador en turno"})
    // clang-format on
    table.emplace_back(halves(row).first,
                       "Línea " + halves(row).second + " tiene un valor no permitido");
  run("layOut ..c.../....../....../....../....../...C.., click picGEN");
  principal.ArchivoRed = "otra";
  app.enJuego.JugadorActual = 2;
  const std::string before = everything();
  for (const std::string kind : {"Juego", "Plantilla"}) {
    const auto pass = [&](const std::string& entry, const std::optional<std::string>& path,
                          const std::string& box) {
      principal.CargaCancelada = false;
      choose(entry + kind, path, box);
      EXPECT_EQ(everything(), before);
      EXPECT_EQ(principal.CargaCancelada, entry + kind == "CargarJuego");
    };
    for (const auto& [text, reason] : table)
      pass("Cargar", write("rota", text),
           "El archivo no contiene un juego guardado válido:\r\n" + file("rota") + "\r\n" + reason);
    for (const std::string& path : {file("no hay/x"), screen.programFolder()})
      pass("Cargar", path, "No se puede abrir el archivo:\r\n" + path);
    pass("Cargar", std::nullopt, ""), pass("Cargar", "", "");
    if (kind == "Juego")
      continue;
    for (const std::string& path : {file("no hay/x"), screen.programFolder()})
      pass("Guardar", path, "No se puede guardar el archivo:\r\n" + path);
    pass("Guardar", std::nullopt, ""), pass("Guardar", "", "");
  }
}

// The fields that a piece of a file closes are taken, everything else stays.
TEST_F(Files, AGameCutAtAnyByteIsTakenAsFarAsItGoes) {
  const std::string whole =
      gameFile("bcegi.../......../......../iiiiiiii/......../......../IIIIIIII/CGE...BG", "2\r\n");
  const auto numbers = [](std::string text) {
    std::replace(text.begin(), text.end(), ';', ' ');
    std::istringstream in(text);
    return std::vector<int>(std::istream_iterator<int>(in), {});
  };
  for (std::size_t end = 0; end <= whole.size(); ++end) {
    const std::string piece = whole.substr(0, end), last = piece.substr(piece.rfind('\n') + 1);
    Principal taken;
    std::uint8_t turn = 7;
    takeGame(std::get<GameText>(parseGame(piece)), taken, turn);
    const auto lines = std::count(piece.begin(), piece.end(), '\n') + (last.empty() ? 0 : 1);
    const std::map<std::ptrdiff_t, int> sides = {{26, 5}, {37, 6}, {50, 7}, {65, 8}};
    EXPECT_EQ(taken.NumFilas, sides.contains(lines) ? sides.at(lines) : 0) << end;
    const bool number = !last.empty() && last.find(';') == last.npos;
    EXPECT_EQ(turn, end == whole.size() ? 2 : number ? std::stoi(last) : 7) << end;
    taken.NumCasillas = 64;
    auto expected = numbers(piece.substr(0, piece.rfind(';') + 1));
    expected.resize(6 * 64 + 1);
    EXPECT_EQ(numbers(gameText(taken, 0)), expected) << end;
  }
}

TEST_F(Files, WithAnyByteAGameIsTakenOrRefusedAndNoUnitReachesBeyondTheBoard) {
  const std::string whole = gameFile("b.c../.i.../...../...I./G.C.G");
  for (std::size_t place = 0; place < whole.size(); ++place)
    for (const char byte : std::string("\0\n\r\t \",;-09x\xFF", 13)) {
      std::string text = whole;
      text[place] = byte;
      const auto game = parseGame(text);
      Principal taken;
      std::uint8_t turn = 0;
      if (const auto* readable = std::get_if<GameText>(&game))
        takeGame(*readable, taken, turn);
      for (int n = 1; n <= taken.NumCasillas; ++n)
        for (const int target : reach(taken, n, taken.Casillas(n).Jugador))
          ASSERT_TRUE(target >= 1 && target <= taken.NumCasillas) << text;
    }
}

} // namespace falanges
