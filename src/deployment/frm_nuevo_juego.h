// The new-game screen: choosing the board and setting up player 1's army, mirrored for player 2.
#pragma once

#include <array>
#include <cstdint>

#include "board/board_screen.h"
#include "persistence/game_file.h"

namespace falanges {

class frmNuevoJuego final : public BoardScreen {
public:
  // `play` opens for the game that is set up here; `dump` shows TextoVolcado, modally.
  frmNuevoJuego(forms::Forms& forms, Principal& principal, MainWindow& mainWindow,
                forms::Window& play, forms::Window& dump);

  // Opens anew with the board and the units of a template. The list of boards keeps "5x5", whatever
  // the template's board.
  void layOut(const GameText& game);

  // The pointer's last place over the board, twips: X to the right, Y downwards.
  float PosX = 0;
  float PosY = 0;
  // The square being worked on and its mirror.
  std::uint8_t PosXEspejo = 0; // column
  std::uint8_t PosYEspejo = 0; // row
  std::uint8_t CasillaActual = 0;
  std::uint8_t NCasilla = 0;
  std::uint8_t NCasillaEspejo = 0;

  forms::DropList comTablero{*this, "comTablero"};
  forms::Picture picINF{*this, "picINF"};
  forms::Picture picCAB{*this, "picCAB"};
  forms::Picture picELE{*this, "picELE"};
  forms::Picture picGEN{*this, "picGEN"};
  forms::Picture picBAN{*this, "picBAN"};
  forms::Button btnIniciar{*this, "btnIniciar"};
  forms::Button Command1{*this, "Command1"};
  forms::Button btnEliminarUnidades{*this, "btnEliminarUnidades"};

private:
  struct PaletteEntry {
    forms::Picture& picture;
    TipoUnidad type;
  };

  void Form_Load() override;
  void Form_Unload() override;
  bool Form_KeyDown(forms::Key key, int digit) override;

  void makePalette();
  void makeButtons();
  void chooseBoard(int side);

  void comTablero_Click();
  void picPaleta_Click(const PaletteEntry& clicked);
  void picTablero_Click();
  void picUnidad_MouseDown(int Index, forms::MouseButton button);
  void btnIniciar_Click();
  void btnEliminarUnidades_Click();
  void Command1_Click();

  bool placeUnit(int n, std::uint8_t player);
  void clearRecord(int n);

  forms::Window& play_;
  forms::Window& dump_;
  std::array<PaletteEntry, 5> palette_;
};

} // namespace falanges
