#include "play/victory.h"

namespace falanges {

Victory victoryOfMove(const Principal& principal, int JugadorActual, int CasillaDestino) {
  const int enemy = JugadorActual == 1 ? 2 : 1;
  const Casilla& taken = principal.Casillas(CasillaDestino);
  if (taken.Jugador != enemy)
    return Victory::None;
  int BanderasEnemigas = 0;
  int UnidadesEnemigas = 0;
  for (int i = 1; i <= principal.NumCasillas; ++i) {
    const Casilla& square = principal.Casillas(i);
    if (square.Jugador == enemy && square.TUnidad == BAN)
      ++BanderasEnemigas;
    if (square.Jugador == enemy && square.TUnidad > BAN)
      ++UnidadesEnemigas;
  }
  if (taken.TUnidad == BAN && principal.OpcPermitirBanderas == "0")
    return Victory::Flag;
  // Any text but "0" and "1" lets no capture of a flag end the game.
  if (taken.TUnidad == BAN && principal.OpcPermitirBanderas == "1" && BanderasEnemigas == 1)
    return Victory::AllFlags;
  if (taken.TUnidad > BAN && UnidadesEnemigas == 1)
    return Victory::Elimination;
  return Victory::None;
}

} // namespace falanges
