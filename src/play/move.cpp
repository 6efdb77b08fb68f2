#include "play/move.h"

namespace falanges {

void applyMove(Principal& principal, int CasillaOrigen, int CasillaDestino) {
  Casilla& from = principal.Casillas(CasillaOrigen);
  Casilla& to = principal.Casillas(CasillaDestino);
  to.Jugador = from.Jugador;
  to.TUnidad = from.TUnidad;
  from.Jugador = 0;
  from.TUnidad = 0;
}

// The test is for equality: lowered below the moves already made, MovPorTurno is passed and the
// player stays in turn. The count stops at 255 so that it never comes round to it again.
bool countMove(Principal& principal, std::uint8_t& JugadorActual) {
  if (principal.MovRealizados < 255)
    ++principal.MovRealizados;
  if (principal.MovRealizados != principal.MovPorTurno)
    return false;
  if (JugadorActual == 1)
    JugadorActual = 2;
  else if (JugadorActual == 2)
    JugadorActual = 1;
  principal.MovRealizados = 0;
  return true;
}

} // namespace falanges
