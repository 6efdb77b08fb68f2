// The network game on the screen: two copies pass one saved-game file back and forth.
#pragma once

#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <string>

#include "forms/forms.h"
#include "model/main_window.h"
#include "model/principal.h"
#include "network/protocol.h"
#include "network/worker.h"
#include "persistence/game_file.h"
#include "play/frm_en_juego.h"

namespace falanges {

// Turns ticks, moves and the worker's answers into the protocol's events, and what that asks for
// into operations, captions and windows. It decides nothing.
//
// A tick waits a moment for an operation that it begins, so that with a file that answers all of a
// poll happens within its tick; later ticks only ask whether the answer is there.
class NetworkGame final : public NetworkPlay {
public:
  NetworkGame(forms::Forms& forms, Principal& principal, MainWindow& mainWindow,
              frmEnJuego& enJuego, network::Start start)
      : forms_(forms), principal_(principal), mainWindow_(mainWindow), enJuego_(enJuego),
        start_(std::move(start)) {}
  // Gives operations under way half a second to end.
  ~NetworkGame();
  NetworkGame(const NetworkGame&) = delete;
  NetworkGame& operator=(const NetworkGame&) = delete;

  // The game in this file, which the player wants to join. Nothing when it is refused or does not
  // answer: the player has been told why, or does not want to wait, and nothing has changed.
  std::optional<GameText> join(const std::string& path);
  // That game has opened on the play screen: the network game begins.
  void begin();
  // Once a second while the network game runs.
  void tmrRed_Timer();
  // Looks at the file now, as a poll does. False when no network game runs.
  bool pollNow();

  void turnPassed() override;
  bool moveWins() override;
  bool mayLeave() override;

private:
  // What this run of the program knows of one file. A game that was left while an operation hung is
  // joined again behind it; on other files it has no bearing.
  struct Game {
    Game(const std::string& file, const network::Start& start) : path(file), worker(file, start) {}

    std::string path;
    network::State state;
    network::Worker worker;
  };

  network::Position position() const;
  bool resultUnwritten() const;
  void tick();
  void await(std::chrono::milliseconds patience);
  void happened(const network::Event& event);
  network::Action step(const network::Event& event);
  void showAccess(bool wasWithout);
  void refresh(const GameText& game);
  void lose(const GameText& game);
  void end(const char* caption);
  bool goesOn(const std::string& question);
  void refuse(const network::Look& look);

  forms::Forms& forms_;
  Principal& principal_;
  MainWindow& mainWindow_;
  frmEnJuego& enJuego_;
  network::Start start_;
  std::map<std::filesystem::path, Game> games_; // by their paths
  Game* game_ = nullptr;                        // the one joined last
};

} // namespace falanges
