#include "persistence/game_file.h"

#include <charconv>
#include <limits>

#include "forms/numbers.h"
#include "forms/text_file.h"
#include "model/geometry.h"

namespace falanges {

namespace {

struct FieldRange {
  int lowest;
  int highest;
};

constexpr FieldRange Byte{0, std::numeric_limits<std::uint8_t>::max()};
constexpr FieldRange Word{std::numeric_limits<std::int16_t>::min(),
                          std::numeric_limits<std::int16_t>::max()};
constexpr std::array<FieldRange, 6> Fields{{{0, 2}, {0, GEN}, Word, Word, Byte, Byte}};

std::string inLine(std::size_t line, const std::string& reason) {
  return "Línea " + std::to_string(line) + ": " + reason;
}

// Digits with an optional "-", and nothing else. Numbers too long for an int count as out of every
// range.
std::optional<int> wholeNumber(std::string_view text) {
  const std::string_view digits = text.starts_with('-') ? text.substr(1) : text;
  if (digits.empty() || digits.find_first_not_of("0123456789") != std::string_view::npos)
    return std::nullopt;
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc() ? value : std::numeric_limits<int>::max();
}

// The reason why the closed field cannot be taken; nothing when it was.
std::optional<std::string> takeField(std::string_view text, GameLine& line) {
  const std::string field = "el campo " + std::to_string(line.fields + 1);
  const auto value = wholeNumber(text);
  if (!value)
    return field + " no es un número";
  const auto place = static_cast<std::size_t>(line.fields);
  if (*value < Fields[place].lowest || *value > Fields[place].highest)
    return field + " tiene un valor no permitido";
  line.values[place] = *value;
  ++line.fields;
  return std::nullopt;
}

std::variant<GameLine, Refusal> parseLine(std::string_view item, std::size_t number) {
  GameLine line;
  line.hasSeparator = item.find(';') != std::string_view::npos;
  if (line.hasSeparator && number > TablaCasillas::Last)
    return Refusal{inLine(number, "el tablero no tiene tantas casillas")};
  std::size_t start = 0;
  while (line.fields < 6) {
    const std::size_t end = item.find(';', start);
    if (end == std::string_view::npos)
      break;
    if (const auto reason = takeField(item.substr(start, end - start), line))
      return Refusal{inLine(number, *reason)};
    start = end + 1;
  }
  return line;
}

// See GameText::whole. `items` are the lines as they were read.
void judgeWholeness(std::string_view text, const std::vector<std::string_view>& items,
                    GameText& game) {
  const std::size_t count = items.size();
  const bool plain = text.find_first_of(",\"") == std::string_view::npos && text.ends_with('\n');
  if (!plain || count < 2)
    return;
  const bool marked = !boardSide(static_cast<int>(count) - 1);
  const std::size_t records = count - (marked ? 2 : 1);
  if (!boardSide(static_cast<int>(records)))
    return;
  if (marked && items.back().size() != 2)
    return;
  for (std::size_t n = 0; n < records; ++n)
    if (game.lines[n].fields != 6)
      return;
  const std::string_view closing = items[records];
  if (!wholeNumber(closing) || !forms::stored<std::uint8_t>(forms::Val(closing)))
    return;
  game.whole = true;
  if (items.back().size() == 2)
    game.resultMarker = std::string(items.back());
}

} // namespace

std::variant<GameText, Refusal> parseGame(std::string_view text) {
  if (text.size() > LargestGameFile)
    return Refusal{"El archivo ocupa más de 64 KiB"};
  GameText game;
  std::vector<std::string_view> items;
  for (forms::ItemReader reader(text); !reader.atEnd();) {
    items.push_back(reader.next());
    auto line = parseLine(items.back(), items.size());
    if (auto* refusal = std::get_if<Refusal>(&line))
      return *refusal;
    game.lines.push_back(std::get<GameLine>(line));
  }
  if (!items.empty() && !game.lines.back().hasSeparator) {
    game.JugadorActual = forms::stored<std::uint8_t>(forms::Val(items.back()));
    if (!game.JugadorActual)
      return Refusal{inLine(items.size(), "el jugador en turno tiene un valor no permitido")};
  }
  judgeWholeness(text, items, game);
  return game;
}

std::optional<std::variant<GameText, Refusal>> readGame(const std::string& path) {
  const auto text = forms::readTextFile(path, LargestGameFile + 1);
  if (!text)
    return std::nullopt;
  return parseGame(*text);
}

void takeLine(const GameText& game, int n, Principal& principal) {
  const GameLine& line = game.lines.at(static_cast<std::size_t>(n - 1));
  if (line.fields == 0)
    return;
  Casilla& square = principal.Casillas(n);
  const auto byte = [&](std::size_t field, std::uint8_t& item) {
    if (static_cast<int>(field) < line.fields)
      item = static_cast<std::uint8_t>(line.values[field]);
  };
  const auto word = [&](std::size_t field, std::int16_t& item) {
    if (static_cast<int>(field) < line.fields)
      item = static_cast<std::int16_t>(line.values[field]);
  };
  byte(0, square.Jugador);
  byte(1, square.TUnidad);
  word(2, square.PosXTwips);
  word(3, square.PosYTwips);
  byte(4, square.PosX);
  byte(5, square.PosY);
}

void takeBoardSize(const GameText& game, Principal& principal) {
  if (const auto side = boardSide(static_cast<int>(game.lines.size()) - 1)) {
    principal.NumFilas = static_cast<std::uint8_t>(*side);
    principal.NumColumnas = principal.NumFilas;
  }
  principal.NumCasillas = static_cast<std::uint8_t>(principal.NumColumnas * principal.NumFilas);
}

void takeGame(const GameText& game, Principal& principal, std::uint8_t& JugadorActual) {
  for (int n = 1; n <= static_cast<int>(game.lines.size()); ++n)
    takeLine(game, n, principal);
  if (game.JugadorActual)
    JugadorActual = *game.JugadorActual;
  takeBoardSize(game, principal);
}

std::string gameText(const Principal& principal, int JugadorActual) {
  std::string text;
  for (int n = 1; n <= principal.NumCasillas; ++n) {
    const Casilla& square = principal.Casillas(n);
    for (const int value : {int{square.Jugador}, int{square.TUnidad}, int{square.PosXTwips},
                            int{square.PosYTwips}, int{square.PosX}, int{square.PosY}}) {
      text += std::to_string(value);
      text += ';';
    }
    text += "\r\n";
  }
  return text + std::to_string(JugadorActual) + "\r\n";
}

std::string resultMarkerLine(const Principal& principal) {
  return "1" + std::to_string(principal.JugadorRed) + "\r\n";
}

} // namespace falanges
