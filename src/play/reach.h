// Which squares a unit may move to: the whole of the movement rules.
#pragma once

#include <vector>

#include "model/principal.h"

namespace falanges {

// Targets of the unit on square n (1 to 64) while JugadorActual, its owner, is in turn: the
// neighbouring squares in its directions, in the order in which these are tried, that hold nothing
// of the same player. Every target lies on the board, also when the square's PosX and PosY come
// from an odd file.
std::vector<int> reach(const Principal& principal, int n, int JugadorActual);

} // namespace falanges
