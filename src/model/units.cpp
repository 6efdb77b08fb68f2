#include "model/units.h"

#include <array>

#include "model/geometry.h"

namespace falanges {

namespace {

struct UnitType {
  const char* stem;
  const char* name;
};

constexpr std::array<UnitType, 6> Types{{{"", ""},
                                         {"ban", "Bandera"},
                                         {"inf", "Infantería"},
                                         {"cab", "Caballería"},
                                         {"ele", "Elefantes"},
                                         {"gen", "General"}}};

const UnitType& unitType(int type) {
  return Types[type >= BAN && type <= GEN ? static_cast<std::size_t>(type) : 0];
}

} // namespace

std::string unitPicture(int type, int player) {
  const std::string stem = unitType(type).stem;
  if (stem.empty() || player < 1 || player > 2)
    return {};
  return "\\img\\" + stem + "_j" + std::to_string(player) + ".jpg";
}

std::string unitName(int type) {
  return unitType(type).name;
}

std::string squareDescription(const Principal& principal, int n) {
  const Casilla& square = principal.Casillas(n);
  return "cuadro " + std::to_string(n) + ", fila " + std::to_string(square.PosX) + ", columna " +
         std::to_string(square.PosY);
}

std::string unitDescription(const Principal& principal, int n, const Casilla& unit, bool selected) {
  const std::string name = unitName(unit.TUnidad);
  // A hand-edited file can hold a unit without a type.
  return (name.empty() ? "Unidad sin tipo" : name) + ", Jugador " + std::to_string(unit.Jugador) +
         ", " + squareDescription(principal, n) + (selected ? ", seleccionada" : "");
}

std::string emptySquareDescription(const Principal& principal, int n) {
  std::string text = squareDescription(principal, n) + ", vacío";
  text.front() = 'C';
  return text;
}

std::string boardDescription(const Principal& principal) {
  if (principal.NumColumnas == 0)
    return "Tablero"; // a file without a board was opened
  return "Tablero " + boardName(principal.NumColumnas);
}

} // namespace falanges
