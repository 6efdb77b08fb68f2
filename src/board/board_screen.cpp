#include "board/board_screen.h"

#include "model/colors.h"
#include "model/geometry.h"
#include "model/units.h"

namespace falanges {

using forms::passOver;

BoardScreen::BoardScreen(forms::Forms& forms, Principal& principal, MainWindow& mainWindow,
                         std::string_view name)
    : Window(forms, forms::WindowKind::Child, name), principal_(principal),
      mainWindow_(mainWindow) {
  picTablero.AutoSize = true;
  picTablero.Border = true;
  picTablero.place(BoardLeft, BoardTop, 5940, 5940);
  picTablero.TabIndex = 0;
  picTablero.MouseMove = [this](float X, float Y) { showBoardHint(X, Y); };
  picTablero.nameOfEmptySquare = [this](int n) { return emptySquareDescription(principal_, n); };
  picTablero.inviting = [] { return false; }; // what a click does there depends on the square
  picUnidad.pattern.place(0, 0, UnitSide, UnitSide);
  picUnidad.pattern.BackColor = UnitGround;
  picUnidad.MouseMove = [this](int Index) { showHint(*picUnidad(Index), Index); };
}

void BoardScreen::showBoard() {
  const std::string picture = boardPicture(principal_.NumFilas);
  if (!picture.empty() && !picTablero.LoadPicture(picture)) {
    // Without its picture the board still has its squares.
    picTablero.Width = boardElementSide(principal_);
    picTablero.Height = boardElementSide(principal_);
  }
  picTablero.AccessibleName = boardDescription(principal_);
  picTablero.setGrid(principal_.NumColumnas, principal_.LadoCasilla);
  Height = picTablero.Height + picTablero.Top + 600;
  Width = picTablero.Width + picTablero.Left + 150;
}

void BoardScreen::drawUnits(int last) {
  for (int n = 1; n <= last; ++n) {
    const Casilla& square = principal_.Casillas(n);
    if (square.Jugador != 0 && picUnidad.Load(n))
      showUnit(n, square, square.PosXTwips, square.PosYTwips);
  }
}

void BoardScreen::showUnit(int n, const Casilla& unit, int top, int left,
                           forms::OnFailure onFailure) {
  forms::Picture& picture = *picUnidad(n);
  if (const std::string file = unitPicture(unit.TUnidad, unit.Jugador); !file.empty())
    passOver(picture.LoadPicture(file, onFailure));
  picture.moveTo(left, top);
  picture.AccessibleName = unitDescription(principal_, n, unit, false);
  picture.ZOrder();
  picture.Visible = true;
}

void BoardScreen::showHint(forms::Picture& picture, int n) {
  const Casilla& square = principal_.Casillas(n);
  picture.ToolTipText = hoverText(n, square.PosX, square.PosY);
}

void BoardScreen::showBoardHint(float X, float Y) {
  const PointedSquare place = squareAt(principal_, X, Y);
  picTablero.ToolTipText = hoverText(place.square, place.row, place.column);
}

} // namespace falanges
