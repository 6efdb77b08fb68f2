// What a unit type is called and which picture shows it.
#pragma once

#include <string>

#include "model/principal.h"

namespace falanges {

// Literal of the picture's path below the program folder, such as "\img\inf_j1.jpg"; empty for a
// type or player that has none (a hand-edited file can hold such a record).
std::string unitPicture(int type, int player);

// "Bandera", "Infantería", ...; empty for a type outside 1 to 5.
std::string unitName(int type);

// What assistive technology says of `unit` on square n: "Infantería, Jugador 1, cuadro 17, fila 4,
// columna 2", with ", seleccionada" behind it. Of `unit` the owner and the type count.
std::string unitDescription(const Principal& principal, int n, const Casilla& unit, bool selected);
// "cuadro 12, fila 3, columna 2".
std::string squareDescription(const Principal& principal, int n);
// "Cuadro 12, fila 3, columna 2, vacío".
std::string emptySquareDescription(const Principal& principal, int n);
// "Tablero 5x5".
std::string boardDescription(const Principal& principal);

} // namespace falanges
