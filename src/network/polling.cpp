#include "network/polling.h"

#include "forms/text_file.h"

namespace falanges {

namespace {

// What the text says of the squares, without its closing line.
std::string_view squaresOf(std::string_view text) {
  return text.substr(0, text.rfind(';'));
}

// The text that this game has when this program writes it, so that only a difference in the game
// counts. A closing 0 means that player 1 begins.
std::string positionOf(const GameText& game) {
  Principal scratch;
  std::uint8_t JugadorActual = 0;
  takeGame(game, scratch, JugadorActual);
  return gameText(scratch, JugadorActual == 0 ? 1 : JugadorActual);
}

} // namespace

void Polling::join() {
  principal_.SegundosRestantes = principal_.SegundosActualizacion;
  mainWindow_.runTimer(true);
  principal_.JuegoEnRed = true;
  mainWindow_.showMenu(AppState::NetworkPlay);
  principal_.TurnoPublicado = false;
  retrying_ = false;
  ownPublication_.reset();
  joinedWith_.reset();
  turnPlayedFrom_.reset();
  (inTurn() ? turnPlayedFrom_ : joinedWith_) = gameText(principal_, enJuego_.JugadorActual);
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

// What was checked is what is loaded: one read serves the whole poll.
void Polling::poll() {
  const GameReading seen = readGame(principal_.ArchivoRed);
  if (seen.game.resultMarker)
    defeat(seen.game);
  else
    turnSteps(seen);
}

// JugadorActual here is the one in this copy's memory, not the one in the file.
void Polling::turnSteps(const GameReading& seen) {
  const bool publishing = !inTurn() && !principal_.TurnoPublicado;
  if (inTurn() || (publishing && principal_.NumCasillas == 0)) {
    accessRegained(); // the copy in turn needs no file, and no board is no position to tell
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
void Polling::firstPublication(const GameReading& seen) {
  if (seen.game.whole && positionOf(seen.game) != joinedWith_) {
    joinedWith_.reset();
    takeOver(seen);
    return;
  }
  if (!seen.game.whole) {
    accessLost();
    // A torn file that stays torn has no writer any more; one that is away may come back newer.
    looksWithout_ = seen.opened ? looksWithout_ + 1 : 0;
    if (!fullIntervalWithout())
      return;
  }
  const std::string position = *joinedWith_;
  published(forms::writeTextFile(principal_.ArchivoRed, position), position);
}

void Polling::publish() {
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

void Polling::publishAgain() {
  if (forms::writeTextFile(principal_.ArchivoRed, *ownPublication_))
    accessRegained();
  else
    accessLost();
}

// --- Reading -----------------------------------------------------------------------------------

void Polling::waitForTurn(const GameReading& seen) {
  if (!seen.game.whole) {
    accessLost();
    ++looksWithout_;
    // The other copy may have died while writing. Who wrote last puts its text back.
    if (ownPublication_ && fullIntervalWithout())
      publishAgain();
    return;
  }
  const std::string position = positionOf(seen.game);
  if (takesTurnBack(position)) {
    publishAgain();
    return;
  }
  if (position != ownPublication_)
    ownPublication_.reset();
  takeOver(seen);
}

// The other copy may have put its last text back before it had seen this copy's turn, or a slow
// writing of it may have come late. No answer to a turn can be the position that the turn began
// with, unless the turn itself led back to it.
bool Polling::takesTurnBack(const std::string& position) const {
  return ownPublication_ && position == turnPlayedFrom_ &&
         squaresOf(position) != squaresOf(*ownPublication_);
}

void Polling::takeOver(const GameReading& seen) {
  refresh(seen.game);
  principal_.TurnoPublicado = !inTurn();
  if (inTurn())
    turnPlayedFrom_ = positionOf(seen.game);
  accessRegained();
}

// Closing the play screen stops the network game, so both are set again before it opens.
void Polling::refresh(const GameText& game) {
  takeGame(game, principal_, enJuego_.JugadorActual);
  const int top = enJuego_.Top;
  const int left = enJuego_.Left;
  const auto cursor = enJuego_.picTablero.cursor();
  mainWindow_.TopEnJuego = std::to_string(top);
  mainWindow_.LeftEnJuego = std::to_string(left);
  enJuego_.close();
  principal_.JuegoEnRed = true;
  mainWindow_.runTimer(true);
  enJuego_.open();
  // A desktop may move a window that it shows.
  enJuego_.Top = top;
  enJuego_.Left = left;
  enJuego_.picTablero.putCursor(cursor);
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
  mainWindow_.showMenu(AppState::Finished);
  forms_.messageBox("JUGADOR -" + digit + "- HA VENCIDO\r\n\r\n" +
                    "Cierre la ventana del Tablero para iniciar otro juego");
}

// --- The file that is not to be had ------------------------------------------------------------

void Polling::accessLost() {
  if (!retrying_)
    looksWithout_ = 0;
  retrying_ = true;
  enJuego_.Caption = std::string("Sin acceso al archivo - Reintentando...");
}

void Polling::accessRegained() {
  if (!retrying_)
    return;
  retrying_ = false;
  enJuego_.Caption = std::string("Actualizando...");
  principal_.SegundosRestantes = principal_.SegundosActualizacion;
}

// From the first look in vain to the one that a poll after it would be.
bool Polling::fullIntervalWithout() const {
  return looksWithout_ > principal_.SegundosActualizacion + 1;
}

} // namespace falanges
