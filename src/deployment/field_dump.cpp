#include "deployment/field_dump.h"

namespace falanges {

std::string fieldDump(const Principal& principal) {
  std::string text;
  const auto field = [&text](const char* name, int value, const char* behind) {
    text += std::string(name) + ": <" + std::to_string(value) + ">" + behind;
  };
  for (int n = 1; n <= principal.NumCasillas; ++n) {
    const Casilla& square = principal.Casillas(n);
    text += "\t\t";
    if (square.Jugador == 1)
      text += "*J1*";
    if (square.Jugador == 2)
      text += "*J2*";
    field("Casilla", n, " - ");
    field("Jugador", square.Jugador, " - ");
    field("TUnidad", square.TUnidad, " - ");
    field("PosXTwips", square.PosXTwips, " - ");
    field("PosYTwips", square.PosYTwips, " - ");
    field("PosX", square.PosX, " - ");
    field("PosY", square.PosY, "\t\t\r\n");
  }
  return text;
}

} // namespace falanges
