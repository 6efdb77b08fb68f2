// What the program's files hold, and what odd ones come to. A board is drawn from the top row, "/"
// between rows: B I C E G are flag, infantry, cavalry, elephants and general of player 1, b i c e g
// those of player 2, "." is an empty square; the number behind it says whose turn it is. A line of
// a game file is a square: player; type of unit (1 B, 2 I, 3 C, 4 E, 5 G); top and left edge in
// twips; row; column. The last line is the player in turn; a won game has "1" and the winner behind
// it.
//
// `gameFile(BOARD, END)` is the text of a file with this board, and END in place of the last line;
// `blank(8)` is an empty board of 8x8. `file(NAME)` is a path in the program's folder, `write(NAME,
// TEXT)` makes a file there. `start()` starts the program and closes the information box. The steps
// of `run` are done one by one: "load BOARD TURN" loads a saved game, "layOut BOARD TURN" a
// template, "click X" and "close X" name an element or a window. `choose(step, path, box)` picks
// this path in the file dialog that the step opens, or cancels it; a box with this text follows, if
// any. `pictures()` is the board as its pictures show it; `expectBoard` wants the same of the
// records behind them.
//
// `run(steps, box)` leads to the box with this text. `principal` is what the program knows of game
// and options, `play` the window of play, whose JugadorActual is the player in turn, `screen` the
// person before it.
#include "persistence/configuration.h"
#include "scripted/game.h"

namespace falanges {

// More flags allowed; any row allowed; seconds; moves a turn. A text counts at once, a number once
// its ";" has come; what does not fit leaves the default, 10 seconds and 1 move. A row is "what the
// file holds => the options then". Only the first line counts, which is empty in one of them.
TEST(Configuration, IsReadFieldByFieldFromTheFirstLine) {
  const auto read = [](const std::string& text) {
    const scripted::TemporaryFolder folder;
    const std::string path = configurationPath(folder.path());
    EXPECT_TRUE(forms::writeTextFile(path, text));
    Principal principal;
    readConfiguration(principal, path);
    return principal.OpcPermitirBanderas + ";" + principal.OpcLimiteFilas + ";" +
           std::to_string(principal.SegundosActualizacion) + ";" +
           std::to_string(principal.MovPorTurno);
  };
  // No ";" behind the moves; more fields than four; an empty first line; numbers that do not fit.
  scripted::walk({"1;0;30;2 => 1;0;30;1", "1;1;30;3;99;x => 1;1;30;3",
                  "\r\n1;1;30;3;\r\n => ;;10;1", "0;0;32768;-1; => 0;0;10;1"},
                 read);
}

using Files = Game;

TEST_F(Files, AConfigurationThatCannotBeWrittenIsToldOnceAndCountsAllTheSame) {
  const std::string path = file("VornathFalangesZTEE.cfg");
  // A folder under the file's name. Both changes fail to be written, and one box comes: a second
  // one would be one that is not expected, and fail the case. The second change counts all the
  // same.
  std::filesystem::create_directory(scripted::toPath(path));
  start();
  run("menu Opciones, click chkPermitirBanderas, click lblLimiteFilas, close Opciones",
      "No se puede guardar el archivo:\r\n" + path);
  EXPECT_EQ(principal.OpcLimiteFilas, "1");
}

TEST_F(Files, AFailedSaveIsToldAndChangesNothing) {
  start();
  const std::string board = "g..../...../...../...../....G", folder = screen.programFolder();
  run("load " + board + " 1");
  // A folder in place of a file. Behind it, records and pictures are the game's still.
  choose("menu GuardarJuego", folder, "No se puede guardar el archivo:\r\n" + folder);
  expectBoard(board);
}

TEST_F(Files, ShortAndOddFilesHaveADefinedResult) {
  const std::string earlier = "g...../....../....../....../....../.....G";
  const std::string squares = gameFile("i..../...../...../...../.....", "");
  // The file, then board and turn when it was loaded over the earlier game, in which player 2 was
  // in turn. "0" is a unit without a type; one that stands on no square follows behind the board.
  const std::pair<std::string, std::string> table[] = {
      {"", earlier + " 2"}, // nothing of it: all is as before
      // Where nobody is in turn, player 1 begins.
      {squares + "0\r\n", "i..../...../...../...../..... 1"},
      // A board's size shows in its lines, but for the last one. Here a turn and player 2's victory
      // follow, which makes 26: no board has so many, and the earlier size stays. Of a line without
      // ";" no square takes anything; the last line counts as the turn.
      {squares + "2\r\n12\r\n", "i...../....../....../....../....../.....G 12"},
      // Cavalry on square 1, with more fields than six; then, on square 2, a unit of player 2 that
      // has no more than its player, and whose place stays that of the earlier game.
      {"1;3;380;1340;1;1;9;x\r\n2;\r\n1\r\n", "C0..../....../....../....../....../.....G 1"},
      // An infantry on square 1 whose picture stands far outside the window.
      {"1;2;-32768;32767;255;0;\r\n2",
       "....../....../....../....../....../.....G picUnidad(1)I 2"}};
  start();
  for (const auto& [text, seen] : table) {
    run("load " + earlier + " 2, close EnJuego");
    // The closing has put player 1 in turn.
    play.JugadorActual = 2;
    load(text);
    EXPECT_EQ(pictures() + " " + std::to_string(play.JugadorActual), seen) << text;
    run("close EnJuego");
  }
}

// Cut off behind each of its characters: a game, player 2 in turn, and behind it the line of the
// victory of player 2. `whole` says that a text is a whole game, `resultLine` is that last line.
TEST(GameText, IsWholeUpToItsTurnOrItsResultAndNowhereElse) {
  const std::string game = gameFile("b.i../...../...../...../..I.B", "2\r\n");
  const std::string won = game + "12\r\n";
  for (std::size_t length = 0; length <= won.size(); ++length) {
    const GameText read = parseGame(won.substr(0, length)).game;
    EXPECT_EQ(read.whole, length == game.size() || length == won.size());
    EXPECT_EQ(read.resultLine.has_value(), length == won.size());
  }
  // An empty line, the result twice.
  EXPECT_FALSE(parseGame(game + "\r\n").game.whole);
  EXPECT_FALSE(parseGame(won + "12\r\n").game.whole);
}

// `everything()` is the records, the menu, the windows and what they show. `Invalid` begins the box
// of a file that is no game; the table holds such texts and what the box says of each.
TEST_F(Files, ARefusedFileChangesNothing) {
  start();
  // What could change: units, and a general that is chosen.
  run("layOut ..c.../....../....../....../....../...C.. 1, click picGEN");
  // The records as a file (any player would do for the turn at its end), and what is seen.
  const auto everything = [&] { return gameText(principal, 2) + menu() + windows() + shown(); };
  const std::string before = everything(), invalid = Invalid + file("rota") + "\r\n";
  // That nothing happens but the box.
  const auto expectNothing = [&](const std::string& step, const std::optional<std::string>& path,
                                 const std::string& box) {
    choose(step, path, box);
    EXPECT_EQ(everything(), before);
  };
  // One square more than 8x8 has; a text that is too long; a field with letters; a type of unit
  // that there is not; numbers that the records cannot hold.
  const std::pair<std::string, std::string> table[] = {
      {gameFile(blank(8), ";\r\n"), "Línea 65: el tablero no tiene tantas casillas"},
      {std::string(LargestGameFile + 1, ' '), "El archivo ocupa más de 64 KiB"},
      {"0;0;\r\n1;2;12abc;0;0;0;\r\n1\r\n", "Línea 2: el campo 3 no es un número"},
      {"1;6;", "Línea 1: el campo 2 tiene un valor no permitido"},
      {"0;0;0;0;0;99999999999;", "Línea 1: el campo 6 tiene un valor no permitido"},
      {"0;\r\n256\r\n", "Línea 2: el jugador en turno tiene un valor no permitido"}};
  for (const auto& [text, reason] : table)
    expectNothing("menu CargarJuego", write("rota", text), invalid + reason);
  const std::string gone = file("no hay/x"); // there is no such folder
  expectNothing("menu CargarPlantilla", gone, "No se puede abrir el archivo:\r\n" + gone);
  expectNothing("menu CargarJuego", std::nullopt, ""); // cancelled
  expectNothing("menu CargarPlantilla", std::nullopt, "");
}

} // namespace falanges
