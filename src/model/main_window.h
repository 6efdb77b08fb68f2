// What the screens and the network may ask of the frame window, and nothing more.
#pragma once

#include <string>

namespace falanges {

// The entries of the menu that come and go with the application's state.
enum class MenuItem { NuevoJuego, CargarJuego, GuardarJuego, CargarPlantilla, GuardarPlantilla };

// Which game files a load takes: a network game is joined on a whole one only.
enum class Accept { AnyGame, WholeGame };

class MainWindow {
public:
  virtual void showMenuItem(MenuItem item, bool shown) = 0;
  // Starts or stops tmrRed, which ticks once a second while it runs.
  virtual void runTimer(bool running) = 0;
  // Save and load a game: through the file dialog in a local game, from and to ArchivoRed without
  // any box in a network game. False when cancelled, refused or failed, and nothing has changed
  // then; in a local game the player has been told why.
  virtual bool mnuGuardarJuego_Click() = 0;
  virtual bool mnuCargarJuego_Click(Accept accept) = 0;

  // Top and Left of the play window in twips, as decimal text, across a network refresh.
  std::string TopEnJuego;
  std::string LeftEnJuego;

protected:
  ~MainWindow() = default;
};

} // namespace falanges
