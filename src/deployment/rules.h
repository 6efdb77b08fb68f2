// The rules of the set-up: where a unit may be placed, which army may start a game, and in which
// words either is refused.
#pragma once

#include <optional>
#include <string>

#include "model/principal.h"

namespace falanges {

// Why the unit of TUnidadSeleccionada may not stand on the free square n of the board; nothing
// when it may. The rows are looked at before the flags.
std::optional<std::string> placementRefusal(const Principal& principal, int n);

struct ArmyCheck {
  std::string refusal;  // the game cannot start; empty: it can
  std::string question; // asked before it starts, with the warnings in front
};

// Looks at player 1's army alone: player 2's is its mirror.
ArmyCheck checkArmy(const Principal& principal);

} // namespace falanges
