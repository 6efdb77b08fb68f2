// A network game: two copies pass one saved-game file back and forth and look at it in turn.
#pragma once

#include <optional>
#include <string>

#include "forms/forms.h"
#include "model/main_window.h"
#include "model/principal.h"
#include "persistence/game_file.h"
#include "play/frm_en_juego.h"

namespace falanges {

// The tick of tmrRed. A poll believes the shared file only when it is whole: the other copy may be
// in the middle of a write, and the folder may be away. It never shows a box because of the file
// and never ends the program; what cannot be done now is tried again at the next tick.
class Polling {
public:
  Polling(forms::Forms& forms, Principal& principal, MainWindow& mainWindow, frmEnJuego& enJuego)
      : forms_(forms), principal_(principal), mainWindow_(mainWindow), enJuego_(enJuego) {}

  // The play screen has opened on the shared file: the network game begins here.
  void join();
  // Once a second while the network game runs.
  void tmrRed_Timer();

private:
  void poll();
  void turnSteps(const GameReading& seen);
  void firstPublication(const GameReading& seen);
  void publish();
  void published(bool written, const std::string& position);
  void publishAgain();
  void waitForTurn(const GameReading& seen);
  bool takesTurnBack(const std::string& position) const;
  void takeOver(const GameReading& seen);
  void refresh(const GameText& game);
  void defeat(const GameText& game);

  bool inTurn() const { return enJuego_.JugadorActual == principal_.JugadorRed; }
  void accessLost();
  void accessRegained();
  bool fullIntervalWithout() const;

  forms::Forms& forms_;
  Principal& principal_;
  MainWindow& mainWindow_;
  frmEnJuego& enJuego_;

  bool retrying_ = false; // the file is not to be had: look again at each tick
  int looksWithout_ = 0;  // looks of this retrying, one a second, that found no whole file
  // The position that this copy joined with out of turn, until it has written for the first time.
  std::optional<std::string> joinedWith_;
  // The position that this copy's turn, the present or the last one, is played from.
  std::optional<std::string> turnPlayedFrom_;
  // This copy's last publication, as long as no other whole text has been seen since.
  std::optional<std::string> ownPublication_;
};

} // namespace falanges
