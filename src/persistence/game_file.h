// The text of saved game, template and shared file: reading it into a checked copy, and writing it.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/principal.h"

namespace falanges {

// What one line of a game holds: the fields of a square that it closes, in the order of Casilla.
struct GameLine {
  std::size_t fields = 0;      // how many of the six
  std::array<int, 6> values{}; // the first `fields` of them
};

// A game text that has been read and checked, not yet applied to the board.
struct GameText {
  std::vector<GameLine> lines;               // line n speaks of square n
  std::optional<std::uint8_t> JugadorActual; // of the last line, if it holds no ";"
  // A last line of two characters in a whole game: a network game has ended ("11", "12").
  std::optional<std::string> resultLine;
  // 25, 36, 49 or 64 complete records, a closing line, perhaps a result line, every line with
  // its end and nothing else: no torn piece of a file passes that.
  bool whole = false;
};

// What came of reading a game.
struct GameReading {
  bool opened = true; // false: the file cannot be opened or read
  // Why the text is no game, in words for the player, such as "Línea 12: el campo 3 no es un
  // número"; empty: it is one.
  std::string refusal;
  GameText game; // only of a text that is one

  bool isGame() const { return opened && refusal.empty(); }
  // What the player is told of the file when it is none.
  std::string told(const std::string& path) const;
};

// A file larger than this is refused, in bytes.
constexpr std::size_t LargestGameFile = 64 * 1024;

GameReading parseGame(std::string_view text);
GameReading readGame(const std::string& path);

// Takes over the whole game: the fields that its lines close, the player in turn if the text names
// one, and the board's size by the number of lines less one; other numbers leave the size. The
// squares are not cleared first.
void takeGame(const GameText& game, Principal& principal, std::uint8_t& JugadorActual);

// The lines of squares 1 to NumCasillas.
std::string squaresText(const Principal& principal);
// The text of a saved game: squares 1 to NumCasillas, then the player in turn.
std::string gameText(const Principal& principal, int JugadorActual);
// The records of squares 1 to NumCasillas with the names of their fields, for whoever looks into a
// board that seems wrong.
std::string fieldDump(const Principal& principal);
// The line that the winner of a network game puts behind the final position.
std::string resultLine(int winner);

} // namespace falanges
