#include "play/reach.h"

#include <array>
#include <span>

namespace falanges {

namespace {

// Up is towards row 1, the top of the screen.
struct Direction {
  int row;
  int column;
};

constexpr Direction UpRight{-1, 1}, Up{-1, 0}, UpLeft{-1, -1}, Right{0, 1}, Left{0, -1},
    DownRight{1, 1}, Down{1, 0}, DownLeft{1, -1};

constexpr std::array InfantryUp{UpRight, Up, UpLeft};
constexpr std::array InfantryDown{DownRight, Down, DownLeft};
constexpr std::array Cavalry{UpRight, UpLeft, DownRight, DownLeft};
constexpr std::array Elephants{Up, Down, Right, Left};
constexpr std::array General{UpRight, Up, UpLeft, Right, Left, DownLeft, Down, DownRight};

std::span<const Direction> directions(int type, int player) {
  switch (type) {
  case INF:
    return player == 1 ? InfantryUp : InfantryDown;
  case CAB:
    return Cavalry;
  case ELE:
    return Elephants;
  case GEN:
    return General;
  default:
    return {};
  }
}

bool leavesBoard(const Principal& principal, const Casilla& square, Direction step) {
  return (step.row < 0 && square.PosX <= 1) ||
         (step.row > 0 && square.PosX >= principal.NumFilas) ||
         (step.column < 0 && square.PosY <= 1) ||
         (step.column > 0 && square.PosY >= principal.NumColumnas);
}

} // namespace

std::vector<int> reach(const Principal& principal, int n, int JugadorActual) {
  std::vector<int> targets;
  const Casilla& square = principal.Casillas(n);
  for (const Direction step : directions(square.TUnidad, JugadorActual)) {
    if (leavesBoard(principal, square, step))
      continue;
    const int target = n + step.row * principal.NumColumnas + step.column;
    // Row and column come from the file and need not fit the square's number.
    if (target < 1 || target > principal.NumCasillas)
      continue;
    if (principal.Casillas(target).Jugador != JugadorActual)
      targets.push_back(target);
  }
  return targets;
}

} // namespace falanges
