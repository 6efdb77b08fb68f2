// Every reader of texts: a saved game, template or shared file, the configuration, numbers, items.
#include <cmath>

#include "forms/numbers.h"
#include "fuzz/bytes.h"
#include "persistence/configuration.h"
#include "persistence/game_file.h"
#include "play/reach.h"
#include "scripted/temporary_folder.h"

namespace fuzz {

using namespace falanges;

namespace {

void checkNumber(const std::string& text) {
  const double value = forms::Val(text);
  require(!std::isnan(value), "text holds a number:", text);
  const std::string number = text.substr(0, text.find_first_not_of("0123456789+-. \t"));
  require(value == forms::Val(number + "x7e1.-"), "what lies behind does not count:", text);
}

void checkConfiguration(const std::string& text) {
  static const scripted::TemporaryFolder folder;
  static const std::string path = configurationPath(folder.path());
  write(path, text);
  Principal read;
  readConfiguration(read, path);
  for (const std::string& option : {read.OpcPermitirBanderas, read.OpcLimiteFilas})
    require(option.find(';') == option.npos && option.size() <= text.size() + 1, "one field", text);
}

void checkGame(const std::string& text, Bytes& bytes) {
  const auto read = parseGame(text);
  if (!read.isGame())
    return require(!read.refusal.empty(), "a refusal has a reason");
  const GameText& game = read.game;
  Principal principal;
  principal.NumFilas = principal.NumColumnas = 8;
  std::uint8_t JugadorActual = 77;
  takeGame(game, principal, JugadorActual);
  for (int n = 1; n <= principal.NumCasillas; ++n)
    for (const int target : reach(principal, n, principal.Casillas(n).Jugador))
      require(target >= 1 && target <= principal.NumCasillas, "units stay on the board");

  const GameText again = parseGame(gameText(principal, JugadorActual)).game;
  require(again.JugadorActual == game.JugadorActual.value_or(77), "the turn of", text);
  for (std::size_t n = 0; n < game.lines.size() && n + 1 < again.lines.size(); ++n)
    require(again.lines[n].values == game.lines[n].values, "each record of", text);

  // What the other copy sees of a game while it is being written: at most the marker is to come.
  for (std::size_t back = 1; game.whole && back < 12; ++back) {
    const auto length = back < 11 ? text.size() - back : bytes.below(text.size());
    const GameText part = parseGame(text.substr(0, length)).game;
    require(!part.whole || (game.resultMarker && game.lines.size() == part.lines.size() + 1),
            "a torn game is none:", text.substr(0, length));
  }
}

} // namespace

} // namespace fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace fuzz;
  Bytes bytes(data, size);
  const std::string options = bytes.changed("1;0;10;2;\r\n"), game = bytes.game();
  Bytes places = bytes;
  for (const std::string& text : {options, game, bytes.rest()}) {
    checkNumber(text);
    checkGame(text, places);
    checkConfiguration(text);
  }
  return 0;
}
