#include "deployment/placement.h"

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

} // namespace falanges
