#include "persistence/game_file.h"

#include <charconv>
#include <limits>

#include "forms/numbers.h"
#include "forms/text_file.h"
#include "model/geometry.h"

namespace falanges {

namespace {

// One of the six fields of a record, in the order in which the line has them.
struct Field {
  const char* name;
  int lowest;
  int highest;
  int (*get)(const Casilla&);
  void (*set)(Casilla&, int);
};

// `highest` bounds the fields with a meaning of their own; the others take what their type holds.
template <class T, T Casilla::*Item>
constexpr Field field(const char* name, int highest = std::numeric_limits<T>::max()) {
  return {name, std::numeric_limits<T>::min(), highest,
          [](const Casilla& square) { return int{square.*Item}; },
          [](Casilla& square, int value) { square.*Item = static_cast<T>(value); }};
}

constexpr std::array<Field, 6> Fields{field<std::uint8_t, &Casilla::Jugador>("Jugador", 2),
                                      field<std::uint8_t, &Casilla::TUnidad>("TUnidad", GEN),
                                      field<std::int16_t, &Casilla::PosXTwips>("PosXTwips"),
                                      field<std::int16_t, &Casilla::PosYTwips>("PosYTwips"),
                                      field<std::uint8_t, &Casilla::PosX>("PosX"),
                                      field<std::uint8_t, &Casilla::PosY>("PosY")};

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

bool isRecord(std::string_view item) {
  return item.find(';') != std::string_view::npos;
}

// Takes the fields that the item closes. The reason why it cannot, or an empty text.
std::string takeFields(std::string_view item, GameLine& line) {
  std::size_t start = 0;
  while (line.fields < Fields.size()) {
    const std::size_t end = item.find(';', start);
    if (end == std::string_view::npos)
      break;
    const std::string name = "el campo " + std::to_string(line.fields + 1);
    const auto value = wholeNumber(item.substr(start, end - start));
    if (!value)
      return name + " no es un número";
    const Field& field = Fields[line.fields];
    if (*value < field.lowest || *value > field.highest)
      return name + " tiene un valor no permitido";
    line.values[line.fields++] = *value;
    start = end + 1;
  }
  return {};
}

// See GameText::whole. `items` are the lines as they were read.
void judgeWholeness(std::string_view text, const std::vector<std::string_view>& items,
                    GameText& game) {
  const std::size_t count = items.size();
  const bool plain = text.find_first_of(",\"") == std::string_view::npos && text.ends_with('\n');
  if (!plain || count < 2)
    return;
  const bool hasResult = !boardSide(static_cast<int>(count) - 1);
  const std::size_t records = count - (hasResult ? 2 : 1);
  if (!boardSide(static_cast<int>(records)))
    return;
  if (hasResult && items.back().size() != 2)
    return;
  for (std::size_t n = 0; n < records; ++n)
    if (game.lines[n].fields != Fields.size())
      return;
  // With 7 in turn neither player would ever be. Two characters are a result line.
  const std::string_view closing = items[records];
  const bool result =
      closing.size() == 2 && closing.find_first_not_of("0123456789") == std::string_view::npos;
  if (closing != "0" && closing != "1" && closing != "2" && !result)
    return;
  game.whole = true;
  if (items.back().size() == 2)
    game.resultLine = std::string(items.back());
}

} // namespace

GameReading parseGame(std::string_view text) {
  GameReading read;
  const auto refuse = [&read](std::string reason) {
    read.refusal = std::move(reason);
    read.game = {};
    return read;
  };
  if (text.size() > LargestGameFile)
    return refuse("El archivo ocupa más de 64 KiB");
  GameText& game = read.game;
  std::vector<std::string_view> items;
  for (forms::ItemReader reader(text); !reader.atEnd();) {
    const std::string_view item = items.emplace_back(reader.next());
    GameLine& line = game.lines.emplace_back();
    if (isRecord(item) && items.size() > TablaCasillas::Last)
      return refuse(inLine(items.size(), "el tablero no tiene tantas casillas"));
    if (const std::string reason = takeFields(item, line); !reason.empty())
      return refuse(inLine(items.size(), reason));
  }
  if (!items.empty() && !isRecord(items.back())) {
    game.JugadorActual = forms::stored<std::uint8_t>(forms::Val(items.back()));
    if (!game.JugadorActual)
      return refuse(inLine(items.size(), "el jugador en turno tiene un valor no permitido"));
  }
  judgeWholeness(text, items, game);
  return read;
}

std::string GameReading::told(const std::string& path) const {
  return opened ? "El archivo no contiene un juego guardado válido:\r\n" + path + "\r\n" + refusal
                : "No se puede abrir el archivo:\r\n" + path;
}

GameReading readGame(const std::string& path) {
  if (const auto text = forms::readTextFile(path, LargestGameFile + 1))
    return parseGame(*text);
  GameReading unopened;
  unopened.opened = false;
  return unopened;
}

void takeGame(const GameText& game, Principal& principal, std::uint8_t& JugadorActual) {
  int n = 0;
  for (const GameLine& line : game.lines) {
    ++n;
    for (std::size_t i = 0; i < line.fields; ++i)
      Fields[i].set(principal.Casillas(n), line.values[i]);
  }
  if (game.JugadorActual)
    JugadorActual = *game.JugadorActual;
  if (const auto side = boardSide(static_cast<int>(game.lines.size()) - 1)) {
    principal.NumFilas = static_cast<std::uint8_t>(*side);
    principal.NumColumnas = principal.NumFilas;
  }
  principal.NumCasillas = static_cast<std::uint8_t>(principal.NumColumnas * principal.NumFilas);
}

std::string squaresText(const Principal& principal) {
  std::string text;
  for (int n = 1; n <= principal.NumCasillas; ++n) {
    for (const Field& field : Fields) {
      text += std::to_string(field.get(principal.Casillas(n)));
      text += ';';
    }
    text += "\r\n";
  }
  return text;
}

std::string gameText(const Principal& principal, int JugadorActual) {
  return squaresText(principal) + std::to_string(JugadorActual) + "\r\n";
}

std::string fieldDump(const Principal& principal) {
  std::string text;
  for (int n = 1; n <= principal.NumCasillas; ++n) {
    const Casilla& square = principal.Casillas(n);
    text += "\t\t";
    if (square.Jugador != 0)
      text += "*J" + std::to_string(square.Jugador) + "*";
    text += "Casilla: <" + std::to_string(n) + ">";
    for (const Field& field : Fields)
      text += std::string(" - ") + field.name + ": <" + std::to_string(field.get(square)) + ">";
    text += "\t\t\r\n";
  }
  return text;
}

std::string resultLine(int winner) {
  return "1" + std::to_string(winner) + "\r\n";
}

} // namespace falanges
