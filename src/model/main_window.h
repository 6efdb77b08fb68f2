// What the screens and the network may ask of the frame window, and nothing more.
#pragma once

#include <string>

namespace falanges {

// The application's states. The menu shows in each what can be done there.
enum class AppState { Idle, Deployment, LocalPlay, NetworkPlay, Finished };

// Which game files a load takes: a network game is joined on a whole one only.
enum class Accept { AnyGame, WholeGame };

class MainWindow {
public:
  virtual void showMenu(AppState state) = 0;
  // Starts or stops tmrRed, which ticks once a second while it runs.
  virtual void runTimer(bool running) = 0;
  // Saves the game: through the file dialog in a local game, to ArchivoRed without any box in a
  // network game. False when cancelled or failed; in a local game the player has been told why.
  virtual bool mnuGuardarJuego_Click() = 0;
  // Loads a game through the file dialog and opens it on the play screen. CargaCancelada tells
  // whether that was cancelled, refused or failed, and nothing has changed then; the player has
  // been told why.
  virtual void mnuCargarJuego_Click(Accept accept) = 0;

  // Top and Left of the play window in twips, as decimal text, across a network refresh.
  std::string TopEnJuego;
  std::string LeftEnJuego;

protected:
  ~MainWindow() = default;
};

} // namespace falanges
