// Which squares a unit may move to: the whole of the movement rules.
#pragma once

#include <array>
#include <cstddef>

#include "model/principal.h"

namespace falanges {

// Up to eight target squares, in the order in which the unit's directions are tried.
class Targets {
public:
  void add(int square) { squares_[count_++] = square; }
  bool empty() const { return count_ == 0; }
  const int* begin() const { return squares_.data(); }
  const int* end() const { return squares_.data() + count_; }

private:
  std::array<int, 8> squares_{};
  std::size_t count_ = 0;
};

// Targets of the unit on square n (1 to 64) while JugadorActual, its owner, is in turn: the
// neighbouring squares in its directions that hold nothing of the same player. Every target lies
// on the board, also when the square's PosX and PosY come from an odd file.
Targets reach(const Principal& principal, int n, int JugadorActual);

} // namespace falanges
