#include "play/victory.h"

namespace falanges {

namespace {

template <class Test> int countSquares(const Principal& principal, Test test) {
  int count = 0;
  for (int i = 1; i <= principal.NumCasillas; ++i)
    if (test(principal.Casillas(i)))
      ++count;
  return count;
}

} // namespace

Victory victoryOfMove(const Principal& principal, int JugadorActual, int CasillaDestino) {
  const int enemy = JugadorActual == 1 ? 2 : 1;
  const auto isFlag = [&](const Casilla& square) {
    return square.Jugador == enemy && square.TUnidad == BAN;
  };
  const auto isUnit = [&](const Casilla& square) {
    return square.Jugador == enemy && square.TUnidad > BAN;
  };
  const Casilla& taken = principal.Casillas(CasillaDestino);
  if (isFlag(taken)) {
    if (principal.OpcPermitirBanderas == "0")
      return Victory::Flag;
    // Any text but "0" and "1" lets no capture of a flag end the game.
    const int BanderasEnemigas = countSquares(principal, isFlag);
    if (principal.OpcPermitirBanderas == "1" && BanderasEnemigas == 1)
      return Victory::AllFlags;
  }
  if (isUnit(taken)) {
    const int UnidadesEnemigas = countSquares(principal, isUnit);
    if (UnidadesEnemigas == 1)
      return Victory::Elimination;
  }
  return Victory::None;
}

} // namespace falanges
