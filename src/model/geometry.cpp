#include "model/geometry.h"

#include <cmath>

#include "forms/element.h"

namespace falanges {

std::optional<int> boardSide(int squares) {
  for (int side = SmallestBoard; side <= LargestBoard; ++side)
    if (side * side == squares)
      return side;
  return std::nullopt;
}

std::string boardName(int side) {
  const std::string digits = std::to_string(side);
  return digits + "x" + digits;
}

std::string boardPicture(int side) {
  if (side < SmallestBoard || side > LargestBoard)
    return {};
  return "\\img\\" + boardName(side) + ".jpg";
}

int boardElementSide(const Principal& principal) {
  using forms::TwipsPerPixel;
  const int grid = principal.NumColumnas * principal.LadoCasilla;
  return ((grid + TwipsPerPixel - 1) / TwipsPerPixel + 2) * TwipsPerPixel;
}

RowColumn rowAndColumn(const Principal& principal, int n) {
  const int side = principal.NumColumnas;
  return {(n - 1) / side + 1, (n - 1) % side + 1};
}

int CasillaEspejo(const Principal& principal, int n) {
  return principal.NumCasillas - n + 1;
}

int pictureTop(const Principal& principal, int row) {
  return BoardTop + principal.MargenCasilla + (row - 1) * principal.LadoCasilla;
}

int pictureLeft(const Principal& principal, int column) {
  return BoardLeft + principal.MargenCasilla + (column - 1) * principal.LadoCasilla;
}

void fillPositions(Principal& principal) {
  for (int n = 1; n <= principal.NumCasillas; ++n) {
    const auto [row, column] = rowAndColumn(principal, n);
    Casilla& square = principal.Casillas(n);
    square.PosX = static_cast<std::uint8_t>(row);
    square.PosY = static_cast<std::uint8_t>(column);
    square.PosXTwips = static_cast<std::int16_t>(pictureTop(principal, row));
    square.PosYTwips = static_cast<std::int16_t>(pictureLeft(principal, column));
  }
}

PointedSquare squareAt(const Principal& principal, float X, float Y) {
  const auto upwards = [&](float position) {
    return static_cast<int>(std::ceil(position / static_cast<float>(principal.LadoCasilla)));
  };
  PointedSquare place{upwards(Y), upwards(X), 0};
  const int side = principal.NumColumnas;
  if (place.row >= 1 && place.row <= side && place.column >= 1 && place.column <= side)
    place.square = (place.row - 1) * side + place.column;
  return place;
}

std::string hoverText(int square, int row, int column) {
  return "Cuadro: " + (square > 0 ? std::to_string(square) : std::string()) + " (" +
         std::to_string(row) + "," + std::to_string(column) + ")";
}

} // namespace falanges
