// A second statement of the rules of selecting, going and winning, told on a drawing.
#pragma once

#include <algorithm>

#include "scripted/game.h"

namespace falanges {

// A local game before and after a click. A place is an index of the drawing.
struct Rules {
  std::string board;
  int side;
  std::string flags; // the option
  int player;
  bool lastOfTurn; // the next move
  std::size_t selected;
  std::string won{}; // the victory's words
  std::string drawn = board;

  bool owns(char unit) const { return unit > '/' && (unit < 'a') == (player == 1); }
  // All go one step and never onto their own: infantry towards the enemy, also askew, cavalry
  // askew, elephants straight, the general like both. Flags stay.
  bool mayGo(std::size_t to) const {
    const int width = side + 1, start = static_cast<int>(selected), end = static_cast<int>(to);
    const int rows = end / width - start / width, columns = end % width - start % width;
    const int distance = rows * rows + columns * columns; // 1 straight, 2 askew
    const int unit = std::tolower(board[selected]);
    return distance > 0 && distance < 3 && board[to] != '/' && !owns(board[to]) &&
           (unit == 'i'   ? rows == (player == 1 ? -1 : 1)
            : unit == 'c' ? distance == 2
            : unit == 'e' ? distance == 1
                          : unit == 'g');
  }
  // "S" where the selected unit stands, "*" where it may go.
  std::string reach() const {
    std::string marks = blank(side);
    for (std::size_t to = 0; selected != std::string::npos && to < marks.size(); ++to)
      marks[to] = to == selected ? 'S' : mayGo(to) ? '*' : marks[to];
    return marks;
  }
  void click(std::size_t place) {
    if (reach()[place] == '*') {
      move(place);
    } else if (owns(board[place]) && std::tolower(board[place]) != 'b') {
      selected = place == selected ? std::string::npos : place;
      if (reach().find('*') == std::string::npos) // nowhere to go
        selected = std::string::npos;
    }
  }
  // A won game keeps board and turn.
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
    drawn[to] = std::exchange(drawn[selected], '.');
    selected = std::string::npos;
    board = won.empty() ? drawn : board;
    player = won.empty() && lastOfTurn ? 3 - player : player;
  }
  // As the program shows it and would save it.
  std::string game() const {
    return (won.empty() ? "Guardar Juego " : " ") + reach() + drawn +
           (player == 1 ? "En Turno/En Espera" : "En Espera/En Turno") +
           gameFile(board, std::to_string(player) + "\r\n");
  }
};

} // namespace falanges
