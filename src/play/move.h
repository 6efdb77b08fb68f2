// A move as it changes the game: the board, the count of moves, and whose turn it is.
#pragma once

#include "model/principal.h"

namespace falanges {

// The unit of square CasillaOrigen stands on CasillaDestino; what stood there is taken.
void applyMove(Principal& principal, int CasillaOrigen, int CasillaDestino);

// Counts one move of JugadorActual. True when it was the turn's last: then the other player is in
// turn, with no move made.
bool countMove(Principal& principal, std::uint8_t& JugadorActual);

} // namespace falanges
