// A network game: two copies pass one saved-game file back and forth and look at it in turn.
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include "forms/forms.h"
#include "model/main_window.h"
#include "model/principal.h"
#include "network/runner.h"
#include "network/shared_file.h"
#include "persistence/game_file.h"
#include "play/frm_en_juego.h"

namespace falanges {

// The tick of tmrRed. A poll believes the shared file only when it is whole: the other copy may be
// in the middle of a write, and the folder may be away. It never shows a box because of the file
// and never ends the program; what cannot be done now is tried again at the next tick.
//
// Each look and each write runs on the runner. A tick waits a moment for it, so that with a file
// that answers all of a poll happens within its tick; later ticks only ask whether the answer is
// there, and one that comes late is taken as if it had come at that tick.
class Polling {
public:
  Polling(forms::Forms& forms, Principal& principal, MainWindow& mainWindow, frmEnJuego& enJuego,
          std::unique_ptr<Runner> runner)
      : forms_(forms), principal_(principal), mainWindow_(mainWindow), enJuego_(enJuego),
        runner_(std::move(runner)) {}

  // The play screen has opened on the shared file: the network game begins here.
  void join();
  // Once a second while the network game runs.
  void tmrRed_Timer();

  // A move has passed the turn on this copy's screen.
  void turnPassed();
  // A winning move was made on this copy's screen. Whether it wins the game: one that is made while
  // the other player is in turn lives on the screen alone.
  bool winningMove();
  // The text of the last whole position that this run of the program has seen in the file or
  // written to it; nothing when it knows none, or the game there had ended.
  std::optional<std::string> lastPosition(const std::string& path) const;

private:
  // See polling.cpp for what leads from one to the other.
  enum class State { InTurn, TurnFinished, FirstWritePending, Waiting };

  void poll();
  void seen(const FileLook& look);
  void readTwice(const FileLook& first);
  void turnSteps(const FileLook& look, const GameReading& read);

  void firstPublication(const FileLook& look, const GameReading& read);
  void publish();
  void publishAgain();
  void published(Written written);

  void waitForTurn(const GameReading& read);
  bool takesTurnBack(const std::string& position) const;
  void takeOver(const GameText& game);
  void refresh(const GameText& game);
  void defeat(const GameText& game);

  void accessLost();
  void accessRegained();
  bool fullIntervalWithout() const;
  void remember(const GameText& game);

  template <class Operation, class Then> void perform(Operation operation, Then then);
  void resume(std::chrono::milliseconds patience);

  forms::Forms& forms_;
  Principal& principal_;
  MainWindow& mainWindow_;
  frmEnJuego& enJuego_;
  std::unique_ptr<Runner> runner_;

  State state_ = State::InTurn;
  // What this copy writes, or has written last: the position that it joined with out of turn, or
  // the one that its turn ended with. Empty for a board that is not known.
  std::string position_;
  // The position that this copy's turn, the present or the last one, is played from.
  std::optional<std::string> turnPlayedFrom_;
  bool ownIsLast_ = false;     // no other whole text has been seen since position_ was written
  bool withoutAccess_ = false; // the file is not to be had: look again at each tick
  int looksWithout_ = 0;       // looks without access, one a second, that found no whole file

  std::function<void()> then_; // waits for the operation under way
  std::chrono::steady_clock::time_point patienceEnds_;

  // See lastPosition.
  std::string knownPath_;
  std::string known_;
};

} // namespace falanges
