// What the screens and the network may ask of the frame window, and nothing more.
#pragma once

#include <string>

namespace falanges {

// The application's states. The menu shows in each what can be done there.
enum class AppState { Idle, Deployment, LocalPlay, NetworkPlay, Finished };

class MainWindow {
public:
  virtual void showMenu(AppState state) = 0;
  // Starts or stops tmrRed, which ticks once a second while it runs.
  virtual void runTimer(bool running) = 0;
  // Top and Left of the play window in twips, as decimal text, across a network refresh.
  std::string TopEnJuego;
  std::string LeftEnJuego;

protected:
  ~MainWindow() = default;
};

} // namespace falanges
