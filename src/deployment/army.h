// What stands in the way of a game with the army on the board, and what only deserves a warning.
#pragma once

#include <string>

#include "model/principal.h"

namespace falanges {

struct ArmyCheck {
  std::string refusal;  // the game cannot start; empty: it can
  std::string question; // asked before it starts, with the warnings in front
};

// Looks at player 1's army alone: player 2's is its mirror.
ArmyCheck checkArmy(const Principal& principal);

} // namespace falanges
