// The new-game screen: choosing the board and setting up player 1's army, mirrored for player 2.
#pragma once

#include <array>
#include <cstdint>
#include <functional>

#include "forms/element_array.h"
#include "forms/forms.h"
#include "model/main_window.h"
#include "model/principal.h"

namespace falanges {

class frmNuevoJuego final : public forms::Window {
public:
  frmNuevoJuego(forms::Forms& forms, Principal& principal, MainWindow& mainWindow);

  // Opens the play screen; set by the owner of both screens.
  std::function<void()> abrirEnJuego;
  // Shows the field dump of TextoVolcado and waits until it is closed.
  std::function<void()> mostrarVolcado;

  // Shows the unit of a record that a template has just filled, where the record says.
  void showLoadedUnit(int n);
  // Gives the board its picture for NumFilas, and the window the size of the board.
  void showBoard();

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
  forms::Picture picTablero{*this, "picTablero"};
  forms::Picture picINF{*this, "picINF"};
  forms::Picture picCAB{*this, "picCAB"};
  forms::Picture picELE{*this, "picELE"};
  forms::Picture picGEN{*this, "picGEN"};
  forms::Picture picBAN{*this, "picBAN"};
  forms::Button btnIniciar{*this, "btnIniciar"};
  forms::Button Command1{*this, "Command1"};
  forms::Button btnEliminarUnidades{*this, "btnEliminarUnidades"};
  forms::ElementArray<forms::Picture> picUnidad{*this, "picUnidad"};

private:
  struct PaletteEntry {
    forms::Picture& picture;
    std::uint8_t type;
    int top;
  };

  void Form_Load() override;
  void Form_Unload() override;
  bool Form_KeyDown(forms::Key key, int digit) override;

  void makeElements();
  void makeButton(forms::Button& button, const char* caption, int top, int left, int width,
                  int height, int tabIndex);
  void placeElements();
  void setMenu(bool open);
  void clearRecords();

  void comTablero_Click();
  void picPaleta_Click(std::size_t entry);
  void raisePalette(std::uint8_t type);
  void picTablero_Click();
  void picTablero_MouseMove(float X, float Y);
  void picUnidad_MouseMove(int Index);
  void picUnidad_MouseDown(int Index, forms::MouseButton button);
  void btnIniciar_Click();
  void btnEliminarUnidades_Click();
  void Command1_Click();

  bool placeUnit(int n, int row, int column, std::uint8_t player);
  void loadUnitPicture(int n, int type, int player);
  void describeUnit(int n);

  Principal& principal_;
  MainWindow& mainWindow_;
  std::array<PaletteEntry, 5> palette_;
};

} // namespace falanges
