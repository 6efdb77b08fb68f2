#include "network/polling.h"

#include "model/forms/text_file.h"

namespace falanges {

void Polling::join() {
  principal_.SegundosRestantes = principal_.SegundosActualizacion;
  mainWindow_.runTimer(true);
  principal_.JuegoEnRed = true;
  mainWindow_.showMenuItem(MenuItem::GuardarJuego, false);
  principal_.TurnoPublicado = false;
  retrying_ = false;
  ticksWithout_ = 0;
  ownPublication_.reset();
  joinedWith_.reset();
  if (!inTurn())
    joinedWith_ = gameText(principal_, enJuego_.JugadorActual);
}

void Polling::tmrRed_Timer() {
  if (retrying_) {
    poll();
    return;
  }
  enJuego_.Caption = "Jugador -" + std::to_string(principal_.JugadorRed) + "- Actualización en: -" +
                     std::to_string(principal_.SegundosRestantes) + "- segundos";
  --principal_.SegundosRestantes;
  if (principal_.SegundosRestantes >= 0)
    return;
  enJuego_.Caption = std::string("Actualizando...");
  principal_.SegundosRestantes = principal_.SegundosActualizacion;
  poll();
}

Polling::Look Polling::look() const {
  Look seen;
  auto read = readGame(principal_.ArchivoRed);
  seen.opened = read.has_value();
  if (!read)
    return seen;
  auto* game = std::get_if<GameText>(&*read);
  if (game && game->whole)
    seen.game = std::move(*game);
  return seen;
}

// What was checked is what is loaded: one read serves the whole poll.
void Polling::poll() {
  const Look seen = look();
  if (seen.game && seen.game->resultMarker)
    defeat(*seen.game);
  else
    turnSteps(seen);
}

// JugadorActual here is the one in this copy's memory, not the one in the file.
void Polling::turnSteps(const Look& seen) {
  if (inTurn()) {
    retrying_ = false; // the copy in turn needs no file
  } else if (principal_.TurnoPublicado) {
    waitForTurn(seen);
  } else if (joinedWith_) {
    firstPublication(seen);
  } else {
    publish();
  }
}

// --- Writing -----------------------------------------------------------------------------------

// A copy that joined out of turn writes what it joined with, whatever has been moved on its screen
// since. The other copy may have gone on: its news must not be written over.
void Polling::firstPublication(const Look& seen) {
  if (seen.game && textOf(*seen.game) != *joinedWith_) {
    joinedWith_.reset();
    refresh(*seen.game);
    principal_.TurnoPublicado = !inTurn();
    accessRegained();
    return;
  }
  if (!seen.game) {
    accessLost();
    // A torn file that stays torn has no writer any more; one that is away may come back newer.
    ticksWithout_ = seen.opened ? ticksWithout_ + 1 : 0;
    if (ticksWithout_ <= principal_.SegundosActualizacion)
      return;
  }
  const std::string position = *joinedWith_;
  published(forms::writeTextFile(principal_.ArchivoRed, position), position);
}

void Polling::publish() {
  if (principal_.NumCasillas == 0)
    return; // there is no position to tell
  const bool written = mainWindow_.mnuGuardarJuego_Click();
  published(written, gameText(principal_, enJuego_.JugadorActual));
}

void Polling::published(bool written, const std::string& position) {
  if (!written) {
    accessLost();
    return;
  }
  joinedWith_.reset();
  ownPublication_ = position;
  principal_.TurnoPublicado = true;
  accessRegained();
}

// The other copy may have died while writing. Who wrote last puts its text back.
void Polling::heal() {
  ++ticksWithout_;
  if (!ownPublication_ || ticksWithout_ <= principal_.SegundosActualizacion)
    return;
  if (forms::writeTextFile(principal_.ArchivoRed, *ownPublication_))
    accessRegained();
}

// --- Reading -----------------------------------------------------------------------------------

void Polling::waitForTurn(const Look& seen) {
  if (!seen.game) {
    accessLost();
    heal();
    return;
  }
  if (ownPublication_ && textOf(*seen.game) != *ownPublication_)
    ownPublication_.reset();
  refresh(*seen.game);
  if (inTurn())
    principal_.TurnoPublicado = false;
  accessRegained();
}

// Closing the play screen stops the network game, so both are set again before it opens.
void Polling::refresh(const GameText& game) {
  takeGame(game, principal_, enJuego_.JugadorActual);
  mainWindow_.TopEnJuego = std::to_string(enJuego_.Top);
  mainWindow_.LeftEnJuego = std::to_string(enJuego_.Left);
  enJuego_.close();
  principal_.JuegoEnRed = true;
  mainWindow_.runTimer(true);
  enJuego_.open();
}

void Polling::defeat(const GameText& game) {
  const std::string digit = game.resultMarker->substr(1);
  refresh(game);
  if (digit == "1")
    enJuego_.showStatus("Victoria", "Derrota");
  if (digit == "2")
    enJuego_.showStatus("Derrota", "Victoria");
  enJuego_.Caption = std::string("Derrota - Juego finalizado");
  principal_.JuegoEnRed = false;
  mainWindow_.runTimer(false);
  forms_.messageBox("JUGADOR -" + digit + "- HA VENCIDO\r\n\r\n" +
                    "Cierre la ventana del Tablero para iniciar otro juego");
}

// --- The file that is not to be had ------------------------------------------------------------

void Polling::accessLost() {
  if (!retrying_)
    ticksWithout_ = 0;
  retrying_ = true;
  enJuego_.Caption = std::string("Sin acceso al archivo - Reintentando...");
}

void Polling::accessRegained() {
  if (retrying_)
    principal_.SegundosRestantes = principal_.SegundosActualizacion;
  retrying_ = false;
}

// The text that this game has when this program writes it, so that only a difference in the game
// counts. A closing 0 means that player 1 begins.
std::string Polling::textOf(const GameText& game) const {
  Principal scratch;
  std::uint8_t JugadorActual = 0;
  takeGame(game, scratch, JugadorActual);
  return gameText(scratch, JugadorActual == 0 ? 1 : JugadorActual);
}

} // namespace falanges
