#include "network/polling.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace falanges {

// The states of one copy, and what leads from one to another. A marker behind a whole file ends the
// game in each of them, and so does leaving the play screen.
//
//   state              event                          what happens                      next state
//   (joined)           the file names this player                                       InTurn
//                      it names the other             position_ is what was joined
//                      FirstWritePending
//   InTurn             a poll                         nothing
//                      a move passes the turn         position_ is what it led to TurnFinished a
//                      winning move                 position and marker are written   (ended)
//   TurnFinished       a poll                         position_ is written              Waiting
//   FirstWritePending  a poll sees another position   it is taken over                  InTurn or
//   Waiting
//                      a poll sees position_, or for  position_ is written              Waiting
//                      a full interval a torn or
//                      missing file
//   Waiting            a poll sees a position         it is taken over                  InTurn or
//   Waiting
//                      a poll sees the one that the   position_ is written again
//                      last turn began with, or for
//                      a full interval a torn file
//
// A poll that cannot have or write the file leaves the state as it is; the next tick polls again.
// In all states but InTurn the moves on this copy's screen are idle: nothing of them is written or
// wins, and the next position that is taken over drops them. While idle moves make it look as if
// this player were in turn, a poll in the last two states does nothing.
//
// TurnoPublicado is true in Waiting alone.

namespace {

constexpr std::chrono::milliseconds Patience{100}; // for the file, in one tick
constexpr std::chrono::milliseconds None{0};

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

GameReading readingOf(const FileLook& look) {
  GameReading read;
  read.opened = look.text.has_value();
  return read.opened ? parseGame(*look.text) : read;
}

} // namespace

// What an earlier game still waits for is of no interest any more.
void Polling::join() {
  principal_.SegundosRestantes = principal_.SegundosActualizacion;
  mainWindow_.runTimer(true);
  principal_.JuegoEnRed = true;
  mainWindow_.showMenu(AppState::NetworkPlay);
  principal_.TurnoPublicado = false;
  withoutAccess_ = false;
  ownIsLast_ = false;
  then_ = {};
  position_ =
      principal_.NumCasillas > 0 ? gameText(principal_, enJuego_.JugadorActual) : std::string();
  turnPlayedFrom_.reset();
  state_ = State::FirstWritePending;
  if (enJuego_.JugadorActual == principal_.JugadorRed) {
    state_ = State::InTurn;
    turnPlayedFrom_ = position_;
  }
  knownPath_ = principal_.ArchivoRed;
  known_ = position_;
}

void Polling::turnPassed() {
  if (state_ != State::InTurn)
    return;
  state_ = State::TurnFinished;
  position_ = gameText(principal_, enJuego_.JugadorActual);
}

bool Polling::winningMove() {
  if (state_ != State::InTurn)
    return false;
  known_.clear();
  return true;
}

std::optional<std::string> Polling::lastPosition(const std::string& path) const {
  return path == knownPath_ && !known_.empty() ? std::optional(known_) : std::nullopt;
}

// --- The tick ----------------------------------------------------------------------------------

void Polling::tmrRed_Timer() {
  patienceEnds_ = std::chrono::steady_clock::now() + Patience;
  if (then_) {
    resume(None);
    return;
  }
  if (withoutAccess_) {
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

template <class Operation, class Then> void Polling::perform(Operation operation, Then then) {
  const auto result = std::make_shared<decltype(operation())>();
  runner_->start([result, operation] { *result = operation(); });
  then_ = [result, then] { then(*result); };
  const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
      patienceEnds_ - std::chrono::steady_clock::now());
  resume(std::max(left, None));
}

void Polling::resume(std::chrono::milliseconds patience) {
  if (runner_->finished(patience))
    std::exchange(then_, {})();
  else
    accessLost();
}

void Polling::poll() {
  // An operation of an earlier game may still hang.
  if (!runner_->finished(None)) {
    accessLost();
    return;
  }
  perform([path = principal_.ArchivoRed] { return lookAtFile(path); },
          [this](const FileLook& look) { seen(look); });
}

// What was checked is what is loaded: one look serves the whole poll.
void Polling::seen(const FileLook& look) {
  const GameReading read = readingOf(look);
  if (read.game.resultLine) {
    readTwice(look);
    return;
  }
  if (read.game.whole)
    remember(read.game);
  turnSteps(look, read);
}

// Position and marker may be of two moments. What stays the same belongs together.
void Polling::readTwice(const FileLook& first) {
  perform([path = principal_.ArchivoRed] { return lookAtFile(path); },
          [this, first](const FileLook& second) {
            if (second == first)
              defeat(readingOf(second).game);
            else
              accessLost();
          });
}

void Polling::turnSteps(const FileLook& look, const GameReading& read) {
  const bool seemsInTurn = enJuego_.JugadorActual == principal_.JugadorRed;
  if (state_ == State::TurnFinished) {
    publish();
  } else if (seemsInTurn) {
    accessRegained(); // really, and no file is needed, or by idle moves
  } else if (state_ == State::FirstWritePending) {
    firstPublication(look, read);
  } else {
    waitForTurn(read);
  }
}

// --- Writing -----------------------------------------------------------------------------------

// The other copy may have gone on since this one joined: its news must not be written over.
void Polling::firstPublication(const FileLook& look, const GameReading& read) {
  if (position_.empty()) {
    accessRegained(); // no board is no position to tell
    return;
  }
  if (read.game.whole && positionOf(read.game) != position_) {
    takeOver(read.game);
    return;
  }
  if (!read.game.whole) {
    accessLost();
    // A file that stays torn or missing has no writer any more; a folder that is away may come back
    // with a newer one.
    looksWithout_ = read.opened || look.missing ? looksWithout_ + 1 : 0;
    if (!fullIntervalWithout())
      return;
  }
  perform([path = principal_.ArchivoRed, look,
           text = position_] { return writeFileAsSeen(path, look, text); },
          [this](Written written) { published(written); });
}

void Polling::publish() {
  perform([path = principal_.ArchivoRed, text = position_] { return writeFile(path, text); },
          [this](Written written) { published(written); });
}

void Polling::published(Written written) {
  if (written != Written::Whole) {
    accessLost();
    return;
  }
  state_ = State::Waiting;
  principal_.TurnoPublicado = true;
  ownIsLast_ = true;
  known_ = position_;
  accessRegained();
}

void Polling::publishAgain() {
  perform([path = principal_.ArchivoRed, text = position_] { return writeFile(path, text); },
          [this](Written written) {
            if (written == Written::Whole)
              accessRegained();
            else
              accessLost();
          });
}

// --- Reading -----------------------------------------------------------------------------------

void Polling::waitForTurn(const GameReading& read) {
  if (!read.game.whole) {
    accessLost();
    ++looksWithout_;
    // The other copy may have died while writing. Who wrote last puts its text back.
    if (ownIsLast_ && fullIntervalWithout())
      publishAgain();
    return;
  }
  const std::string position = positionOf(read.game);
  if (takesTurnBack(position)) {
    publishAgain();
    return;
  }
  ownIsLast_ = ownIsLast_ && position == position_;
  takeOver(read.game);
}

// The other copy may have put its last text back before it had seen this copy's turn, or a slow
// writing of it may have come late. No answer to a turn can be the position that the turn began
// with, unless the turn itself led back to it.
bool Polling::takesTurnBack(const std::string& position) const {
  return ownIsLast_ && position == turnPlayedFrom_ && squaresOf(position) != squaresOf(position_);
}

void Polling::takeOver(const GameText& game) {
  refresh(game);
  const bool inTurn = enJuego_.JugadorActual == principal_.JugadorRed;
  state_ = inTurn ? State::InTurn : State::Waiting;
  principal_.TurnoPublicado = !inTurn;
  if (inTurn)
    turnPlayedFrom_ = positionOf(game);
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
  enJuego_.moveTo(left, top);
  enJuego_.picTablero.putCursor(cursor);
}

void Polling::defeat(const GameText& game) {
  const std::string digit = game.resultLine->substr(1);
  refresh(game);
  if (digit == "1")
    enJuego_.showStatus("Victoria", "Derrota");
  if (digit == "2")
    enJuego_.showStatus("Derrota", "Victoria");
  enJuego_.Caption = std::string("Derrota - Juego finalizado");
  principal_.JuegoEnRed = false;
  mainWindow_.runTimer(false);
  mainWindow_.showMenu(AppState::Finished);
  known_.clear();
  forms_.messageBox("JUGADOR -" + digit + "- HA VENCIDO\r\n\r\n" +
                    "Cierre la ventana del Tablero para iniciar otro juego");
}

void Polling::remember(const GameText& game) {
  known_ = positionOf(game);
}

// --- The file that is not to be had ------------------------------------------------------------

void Polling::accessLost() {
  if (!withoutAccess_)
    looksWithout_ = 0;
  withoutAccess_ = true;
  enJuego_.Caption = std::string("Sin acceso al archivo - Reintentando...");
}

void Polling::accessRegained() {
  if (!withoutAccess_)
    return;
  withoutAccess_ = false;
  enJuego_.Caption = std::string("Actualizando...");
  principal_.SegundosRestantes = principal_.SegundosActualizacion;
}

// From the first look in vain to the one that a poll after it would be.
bool Polling::fullIntervalWithout() const {
  return looksWithout_ > principal_.SegundosActualizacion + 1;
}

} // namespace falanges
