// A second statement of the rules of selecting, going and winning, told on a drawing: its rows are
// split by "/", B I C E G are flag, infantry, cavalry, elephants and general of player 1, b i c e g
// those of player 2, "." is an empty square. A place is an index of the drawing.
#pragma once

#include <algorithm>

#include "scripted/game.h"

namespace falanges {

constexpr std::size_t Nowhere = std::string::npos;

// A local game before and after a click.
struct Rules {
  std::string board;
  int player;
  std::string flags; // the option: "0", "1" or a text that nobody knows
  int movesPerTurn;
  int moves = 0;
  std::size_t selected = Nowhere;
  std::string won{};         // the victory's words
  std::string shown = board; // a won game keeps its board and turn, but shows the last move

  int side() const { return static_cast<int>(board.find('/')); }
  bool owns(char unit) const { return unit > '/' && (unit < 'a') == (player == 1); }
  // All go one step and never onto their own: infantry towards the enemy, also askew, cavalry
  // askew, elephants straight, the general like both. Flags stay.
  bool mayGo(std::size_t to) const {
    const int width = side() + 1;
    const int start = static_cast<int>(selected), end = static_cast<int>(to);
    const int rows = end / width - start / width, columns = end % width - start % width;
    const int distance = rows * rows + columns * columns; // 1 straight, 2 askew
    if (distance < 1 || distance > 2 || board[to] == '/' || owns(board[to]))
      return false;
    switch (std::tolower(board[selected])) {
    case 'i':
      return rows == (player == 1 ? -1 : 1);
    case 'c':
      return distance == 2;
    case 'e':
      return distance == 1;
    default:
      return true;
    }
  }
  // "S" where the selected unit stands, "*" where it may go.
  std::string reach() const {
    std::string marks = blank(side());
    for (std::size_t to = 0; selected != Nowhere && to < marks.size(); ++to)
      if (to == selected || mayGo(to))
        marks[to] = to == selected ? 'S' : '*';
    return marks;
  }
  void click(std::size_t place) {
    if (reach()[place] == '*') {
      move(place);
    } else if (owns(board[place]) && std::tolower(board[place]) != 'b') {
      selected = place == selected ? Nowhere : place;
      if (reach().find('*') == Nowhere)
        selected = Nowhere;
    }
  }
  void move(std::size_t to) {
    const char flag = player == 1 ? 'b' : 'B', taken = board[to];
    const auto others = std::ranges::count_if(
        board, [&](char unit) { return unit > '/' && !owns(unit) && unit != flag; });
    if (taken == flag && flags == "0")
      won = "CONQUISTADO la Bandera";
    else if (taken == flag && flags == "1" && std::ranges::count(board, flag) == 1)
      won = "CONQUISTADO TODAS las Banderas";
    else if (taken > '/' && taken != flag && others == 1)
      won = "ELIMINADO todas las unidades enemigas";
    shown[to] = std::exchange(shown[selected], '.');
    selected = Nowhere;
    if (!won.empty())
      return;
    board = shown;
    if (++moves == movesPerTurn) {
      player = 3 - player;
      moves = 0;
    }
  }
};

} // namespace falanges
