// Every reader of texts: a saved game, template or shared file, the configuration, numbers, items.
#include <algorithm>
#include <cmath>
#include <vector>

#include "fuzz/bytes.h"
#include "model/forms/numbers.h"
#include "model/forms/text_file.h"
#include "model/geometry.h"
#include "persistence/configuration.h"
#include "persistence/game_file.h"
#include "scripted/temporary_folder.h"

namespace fuzz {

using namespace falanges;

namespace {

// Against the C library's reading of what stands before the first character of no number.
void checkNumber(const std::string& text) {
  std::string number;
  for (const char c : text) {
    const bool sign = (c == '-' || c == '+') && number.empty();
    const bool point = c == '.' && number.find('.') == number.npos;
    if (sign || point || (c >= '0' && c <= '9'))
      number += c;
    else if (c != ' ' && c != '\t')
      break;
  }
  const double value = forms::Val(text);
  require(value == std::strtod(number.c_str(), nullptr), "the value of", text);
  const auto byte = forms::stored<std::uint8_t>(value);
  require(byte.has_value() == (value >= -0.5 && value < 255.5), "what fits a byte:", text);
  require(!byte || std::abs(*byte - value) <= 0.5, "the nearest number:", text);
}

std::vector<std::string> itemsOf(const std::string& text) {
  std::vector<std::string> items;
  for (forms::ItemReader reader(text); !reader.atEnd();) {
    items.emplace_back(reader.next());
    require(items.size() <= text.size(), "each item takes a character");
  }
  return items;
}

// What the item's separators close.
std::vector<std::string> fieldsOf(const std::string& item) {
  std::vector<std::string> fields;
  for (std::size_t start = 0, end; (end = item.find(';', start)) != item.npos; start = end + 1)
    fields.push_back(item.substr(start, end - start));
  return fields;
}

void checkWhole(const std::string& text, const GameText& game, Bytes& bytes) {
  const auto records = std::count_if(game.lines.begin(), game.lines.end(),
                                     [](const GameLine& line) { return line.fields == 6; });
  const auto behind = static_cast<long>(game.lines.size()) - records;
  require(boardSide(static_cast<int>(records)) && (behind == 1 || behind == 2) &&
              text.ends_with('\n') && game.JugadorActual,
          "so many complete records, and lines with their ends");
  // What the other copy sees of it while it is being written.
  const auto torn = parseGame(text.substr(0, bytes.below(text.size())));
  const auto* part = std::get_if<GameText>(&torn);
  require(!part || !part->whole || (behind == 2 && !part->resultMarker), "a torn game is none");
}

void checkGame(const std::string& text, Bytes& bytes) {
  const auto read = parseGame(text);
  if (const auto* refusal = std::get_if<Refusal>(&read))
    return require(!refusal->reason.empty(), "a refusal has a reason");
  const auto& game = std::get<GameText>(read);
  auto items = itemsOf(text);
  require(text.size() <= LargestGameFile && game.lines.size() == items.size(), "a line an item");
  require(!game.resultMarker || (game.whole && items.back().size() == 2), "a marker ends a game");
  Principal after;
  for (int n = 1; n <= TablaCasillas::Last; ++n)
    after.Casillas(n) = {9, 9, 9, 9, 9, 9};
  std::uint8_t JugadorActual = 77;
  takeGame(game, after, JugadorActual);
  require(JugadorActual == game.JugadorActual.value_or(77), "the player in turn");
  items.resize(TablaCasillas::Last);
  for (int n = 1; n <= TablaCasillas::Last; ++n) {
    auto fields = fieldsOf(items[static_cast<std::size_t>(n - 1)]);
    fields.resize(std::max<std::size_t>(fields.size(), 6), "9");
    const Casilla& square = after.Casillas(n);
    const int taken[] = {square.Jugador,   square.TUnidad, square.PosXTwips,
                         square.PosYTwips, square.PosX,    square.PosY};
    for (std::size_t field = 0; field < 6; ++field)
      require(taken[field] == std::atoi(fields[field].c_str()), "each field as it stands");
    require((square.Jugador <= 2 || square.Jugador == 9) && square.TUnidad != 6, "what there is");
  }
  if (game.whole)
    checkWhole(text, game, bytes);
}

void checkConfiguration(const std::string& text) {
  static const scripted::TemporaryFolder folder;
  static const std::string path = configurationPath(folder.path());
  write(path, text);
  Principal read;
  read.OpcLimiteFilas = read.OpcPermitirBanderas = "left from before";
  readConfiguration(read, path);
  const std::string item = text.empty() ? "0;0;" : itemsOf(text).front();
  auto fields = fieldsOf(item + ";"); // the two texts need no end of their own
  const auto closed = static_cast<std::size_t>(std::count(item.begin(), item.end(), ';'));
  fields.resize(std::max<std::size_t>(fields.size(), 4));
  const auto number = [&](std::size_t field) {
    return field < closed ? forms::Val(fields[field]) : HUGE_VAL;
  };
  require(read.OpcPermitirBanderas == fields[0] && read.OpcLimiteFilas == fields[1] &&
              read.SegundosActualizacion == forms::stored<std::int16_t>(number(2)).value_or(10) &&
              read.MovPorTurno == forms::stored<std::uint8_t>(number(3)).value_or(1),
          "the four options of", text);
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
