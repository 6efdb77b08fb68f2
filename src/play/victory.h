// Whether a move wins the game, and how.
#pragma once

#include "model/principal.h"

namespace falanges {

enum class Victory { None, Flag, AllFlags, Elimination };

// Looks at the board as it stands before JugadorActual's unit takes CasillaDestino: what is being
// taken is still counted among the enemy's.
Victory victoryOfMove(const Principal& principal, int JugadorActual, int CasillaDestino);

} // namespace falanges
