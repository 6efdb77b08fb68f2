// The play screen: the battle on the board, drawn from the shared state each time it opens.
#pragma once

#include <cstdint>

#include "board/board_screen.h"
#include "play/victory.h"

namespace falanges {

// What the play screen tells the network game that may be played on it. Nothing comes of any of
// them while none runs.
class NetworkPlay {
public:
  // A move has passed the turn.
  virtual void turnPassed() = 0;
  // The move that has just been made would win. True when it does: then the other copy is told.
  virtual bool moveWins() = 0;
  // The play window is to close. False when the player stays, so that the other copy is told.
  virtual bool mayLeave() = 0;

protected:
  ~NetworkPlay() = default;
};

class frmEnJuego final : public BoardScreen {
public:
  frmEnJuego(forms::Forms& forms, Principal& principal, MainWindow& mainWindow);

  // The player in turn; keeps its value while the window is closed. 0 until the first opening in
  // a run of the program; 11 or 12 where a network game has been lost, so that no unit reacts.
  std::uint8_t JugadorActual = 0;

  // Set by the owner of the screens, before this one opens.
  NetworkPlay* network = nullptr;

  // Texts behind the players' names, such as "En Turno".
  void showStatus(const std::string& player1, const std::string& player2);
  // Whether the player in turn has a unit that can move.
  bool canMove();
  // No unit answers the pointer any more.
  void disableUnits();

  // Element n stands while the selected unit may move to square n; a click moves it there.
  forms::PictureArray picMovimientoPermitido{*this, "picMovimientoPermitido"};
  forms::Label lblJ1{*this, "lblJ1"}, lblJ1_Estado{*this, "lblJ1_Estado"};
  forms::Label lblJ2{*this, "lblJ2"}, lblJ2_Estado{*this, "lblJ2_Estado"};

private:
  void Form_Load() override;
  bool Form_QueryUnload() override;
  void Form_Unload() override;
  bool Form_KeyDown(forms::Key key, int digit) override;

  void picUnidad_Click(int Index);
  void picMovimientoPermitido_Click(int Index);

  void drawStatus();

  bool maySelect(int n);
  void select(int n, bool selected);
  void showMarker(int n);
  void removeMarkers();
  int selectedSquare();
  void movePicture(int CasillaOrigen, int CasillaDestino);
  void closeWonGame(Victory victory);
};

} // namespace falanges
