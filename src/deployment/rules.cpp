#include "deployment/rules.h"

#include <array>

namespace falanges {

namespace {

bool anyFlag(const Principal& principal) {
  for (int i = 1; i <= principal.NumCasillas; ++i)
    if (principal.Casillas(i).TUnidad == BAN)
      return true;
  return false;
}

} // namespace

// Options are texts, and only "0" restricts: the empty text of a configuration that supplied none
// does not.
std::optional<std::string> placementRefusal(const Principal& principal, int n) {
  const int firstTwoRows = principal.NumCasillas - 2 * principal.NumColumnas;
  if (principal.OpcLimiteFilas == "0" && n <= firstTwoRows)
    return "SÓLO se permiten Unidades en las 2 primeras filas";
  if (principal.OpcPermitirBanderas == "0" && principal.TUnidadSeleccionada == BAN &&
      anyFlag(principal))
    return "NO se permite ubicar más de 1 Bandera";
  return std::nullopt;
}

ArmyCheck checkArmy(const Principal& principal) {
  std::array<int, GEN + 1> count{};
  for (int n = 1; n <= principal.NumCasillas; ++n) {
    const Casilla& square = principal.Casillas(n);
    if (square.Jugador == 1 && square.TUnidad <= GEN)
      ++count[square.TUnidad];
  }
  // Flags do not count as units.
  const int units = count[INF] + count[CAB] + count[ELE] + count[GEN];
  ArmyCheck check;
  if (units == 0)
    check.refusal = "DEBE colocar Unidades en el tablero";
  else if (units < 3)
    check.refusal = "DEBE colocar al menos 3 Unidades en el tablero";
  if (count[BAN] == 0)
    check.question += "DEBE colocar al menos 1 Bandera\r\n";
  if (count[INF] == 0 || count[CAB] == 0 || count[ELE] == 0 || count[GEN] == 0)
    check.question += "DEBE colocar al menos 1 Unidad de cada tipo\r\n";
  check.question += "¿Iniciar el juego con la disposición actual de Unidades en el Tablero?";
  return check;
}

} // namespace falanges
