// The one object that holds what the screens share: board, options, folders, network bookkeeping.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace falanges {

// The boards there are, by their side in squares. cmake/Pictures.cmake draws one for each.
constexpr int SmallestBoard = 5;
constexpr int LargestBoard = 8;

// Codes of the unit types; their order is that of the files.
enum TipoUnidad : std::uint8_t { NINGUNA = 0, BAN = 1, INF = 2, CAB = 3, ELE = 4, GEN = 5 };

// One square. X is the vertical axis in all four position fields: PosXTwips is the Top and
// PosYTwips the Left of a unit picture on it, PosX its row and PosY its column.
struct Casilla {
  std::uint8_t Jugador = 0; // owner of the unit on it, 0 when empty
  std::uint8_t TUnidad = 0; // TipoUnidad, 0 when empty
  std::int16_t PosXTwips = 0;
  std::int16_t PosYTwips = 0;
  std::uint8_t PosX = 0;
  std::uint8_t PosY = 0;
  bool operator==(const Casilla&) const = default;
};

// The board: squares 1 to 64, as many as the largest one has. A number outside is a fault of the
// program and ends it.
class TablaCasillas {
public:
  static constexpr int Last = LargestBoard * LargestBoard;
  Casilla& operator()(int n) { return squares_.at(static_cast<std::size_t>(n - 1)); }
  const Casilla& operator()(int n) const { return squares_.at(static_cast<std::size_t>(n - 1)); }
  bool operator==(const TablaCasillas&) const = default;

private:
  std::array<Casilla, Last> squares_{};
};

// Plain data; every handler reads and assigns it directly. One instance lives as long as the
// process. Options are the texts "0" and "1", tested as text.
struct Principal {
  std::string TextoVolcado;             // the field dump on its way to frmMsgBox
  std::uint8_t NumColumnas = 0;         // SmallestBoard to LargestBoard; 0 until a board exists
  std::uint8_t NumFilas = 0;            // always equal to NumColumnas
  std::uint8_t NumCasillas = 0;         // squares in play: records above are outside the game
  std::int16_t LadoCasilla = 0;         // side of a square, twips
  std::uint8_t MargenCasilla = 0;       // inset of a unit picture in its square, twips
  std::uint8_t TUnidadSeleccionada = 0; // palette choice, 0 none
  TablaCasillas Casillas;
  std::string RutaPlantillas;
  std::string RutaJuegosGuardados;
  std::string OpcPermitirBanderas;        // "1": more than one flag a side
  std::string OpcLimiteFilas;             // "1": units on any row
  std::int16_t SegundosActualizacion = 0; // between two looks at the shared file
  std::uint8_t JugadorRed = 0;            // the player of this copy in a network game
  std::string ArchivoRed;                 // path last chosen in the load dialog; the shared file
  bool JuegoEnRed = false;
  std::int16_t SegundosRestantes = 0;
  bool CargaCancelada = false;
  std::uint8_t MovPorTurno = 0;
  std::uint8_t MovRealizados = 0;
  bool TurnoPublicado = false;
};

} // namespace falanges
