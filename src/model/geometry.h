// How square numbers, rows, columns and screen positions relate on the four boards.
#pragma once

#include <optional>
#include <string>

#include "model/principal.h"

namespace falanges {

// Place of the board element on both screens, twips.
constexpr int BoardTop = 240;
constexpr int BoardLeft = 1200;
constexpr int UnitSide = 930; // side of a unit picture, twips

struct RowColumn {
  int row = 0;
  int column = 0;
};

// Where a pointer stands on the board. `square` is 0 outside the grid; row and column are then
// what the position alone gives.
struct PointedSquare {
  int row = 0;
  int column = 0;
  int square = 0;
};

// The side N of a board with this many squares; nothing when no board has that many.
std::optional<int> boardSide(int squares);
// "5x5".
std::string boardName(int side);
// Literal of the board picture's path below the program folder, such as "\img\5x5.jpg"; empty for
// a side that no board has.
std::string boardPicture(int side);
// Side of the board element, frame included, that shows a grid of this side: whole pixels, in
// twips. What stands in for the size of a picture that cannot be loaded.
int boardElementSide(const Principal& principal);

// Row and column of square n (1 to NumCasillas), both from 1.
RowColumn rowAndColumn(const Principal& principal, int n);
// Square n turned half a circle about the board's centre. Outside 1 to NumCasillas for an n
// outside.
int CasillaEspejo(const Principal& principal, int n);
// Top and Left of a unit picture, in twips.
int pictureTop(const Principal& principal, int row);
int pictureLeft(const Principal& principal, int column);
// Sets the four position fields of squares 1 to NumCasillas; what stands on them stays.
void fillPositions(Principal& principal);

// The square under a pointer at X, Y twips from the board's inner corner. A boundary belongs to the
// square above or left of it, so that position 0 lies on no square.
PointedSquare squareAt(const Principal& principal, float X, float Y);
// Tool tip such as "Cuadro: 8 (2,2)": square, row, column; without a number for square 0.
std::string hoverText(int square, int row, int column);

} // namespace falanges
