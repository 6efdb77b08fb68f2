// What both screens with a board show: the board, the units on it, and the hints under the pointer.
#pragma once

#include "forms/forms.h"
#include "forms/grid_picture.h"
#include "forms/picture_array.h"
#include "model/main_window.h"
#include "model/principal.h"

namespace falanges {

// Every square may carry a unit.
static_assert(forms::PictureArray::Last == TablaCasillas::Last);

class BoardScreen : public forms::Window {
public:
  forms::GridPicture picTablero{*this, "picTablero"};
  forms::PictureArray picUnidad{*this, "picUnidad"}; // index: square number

protected:
  BoardScreen(forms::Forms& forms, Principal& principal, MainWindow& mainWindow,
              std::string_view name);

  // Gives the board the picture for NumFilas, and the window the size of the board. A size that no
  // picture belongs to keeps the picture there is.
  void showBoard();
  // Makes the pictures of the units on squares 1 to `last`, each in its record's place.
  void drawUnits(int last);
  // Gives picUnidad(n), which exists, the look, place (twips) and name of the unit, in front of all
  // else. Of `unit` the owner and the type count.
  void showUnit(int n, const Casilla& unit, int top, int left,
                forms::OnFailure onFailure = forms::OnFailure::Tell);
  // The hint of square n on the picture that stands there.
  void showHint(forms::Picture& picture, int n);

  // The hint of the square at X, Y twips of the board on the board's own picture.
  void showBoardHint(float X, float Y);

  Principal& principal_;
  MainWindow& mainWindow_;
};

} // namespace falanges
