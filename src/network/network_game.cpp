#include "network/network_game.h"

#include <utility>

namespace falanges {

using namespace network;

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds Moment{100};
constexpr milliseconds HalfASecond{500};
constexpr milliseconds None{0};

} // namespace

NetworkGame::~NetworkGame() {
  const auto until = steady_clock::now() + HalfASecond;
  for (auto& [path, game] : games_)
    game.worker.ended(until);
}

// --- Joining -----------------------------------------------------------------------------------

std::optional<GameText> NetworkGame::join(const std::string& path) {
  // Two spellings of one path must not come to two workers.
  const auto key = std::filesystem::path(std::u8string(path.begin(), path.end()));
  game_ = &games_.try_emplace(key.lexically_normal(), path, start_).first->second;
  Action action = step(Join{principal_.JugadorRed, principal_.SegundosActualizacion});
  while (action.what != Action::Open) {
    if (action.what == Action::Ask &&
        goesOn("El archivo está incompleto. ¿Continuar desde la última posición conocida?")) {
      action = step(GoOn{});
    } else if (action.what == Action::Ask || action.what == Action::Refuse) {
      refuse(action.look);
      return std::nullopt;
    } else if (game_->worker.ended(steady_clock::now() + HalfASecond)) {
      action = step(game_->worker.takeResult());
    } else if (!goesOn("El archivo no responde:\r\n" + path + "\r\n¿Seguir esperando?")) {
      return std::nullopt;
    }
  }
  return parseGame(action.look.text).game;
}

bool NetworkGame::goesOn(const std::string& question) {
  return forms_.messageBox(question, forms::BoxStyle::InformationYesNo) == forms::Answer::Yes;
}

void NetworkGame::refuse(const Look& look) {
  GameReading reading = parseGame(look.text);
  reading.opened = look.found == Found::Torn;
  if (reading.refusal.empty())
    reading.refusal = "El archivo está incompleto";
  forms_.messageBox(reading.told(game_->path));
}

void NetworkGame::begin() {
  principal_.SegundosRestantes = principal_.SegundosActualizacion;
  mainWindow_.runTimer(true);
  principal_.JuegoEnRed = true;
  mainWindow_.showMenu(AppState::NetworkPlay);
  principal_.TurnoPublicado = false;
}

// --- The tick ----------------------------------------------------------------------------------

void NetworkGame::tmrRed_Timer() {
  if (!game_->worker.underWay() && !game_->state.withoutAccess) {
    enJuego_.Caption = "Jugador -" + std::to_string(principal_.JugadorRed) +
                       "- Actualización en: -" + std::to_string(principal_.SegundosRestantes) +
                       "- segundos";
    --principal_.SegundosRestantes;
    if (principal_.SegundosRestantes >= 0)
      return;
    enJuego_.Caption = std::string("Actualizando...");
    principal_.SegundosRestantes = principal_.SegundosActualizacion;
  }
  tick();
}

bool NetworkGame::pollNow() {
  if (!principal_.JuegoEnRed)
    return false;
  tick();
  return true;
}

void NetworkGame::tick() {
  const bool hangs = game_->worker.underWay() && !game_->worker.ended(steady_clock::now());
  if (hangs || !game_->worker.underWay())
    happened(Tick{enJuego_.JugadorActual == principal_.JugadorRed && enJuego_.canMove()});
  await(hangs ? None : Moment);
}

void NetworkGame::await(milliseconds patience) {
  const auto until = steady_clock::now() + patience;
  while (game_->worker.ended(until))
    happened(game_->worker.takeResult());
}

// --- Moves -------------------------------------------------------------------------------------

Position NetworkGame::position() const {
  return {squaresText(principal_), enJuego_.JugadorActual};
}

void NetworkGame::turnPassed() {
  if (principal_.JuegoEnRed)
    happened(TurnPassed{position()});
}

// The result may take its time; the winner's box does not wait for it.
bool NetworkGame::moveWins() {
  happened(MoveWins{position()});
  if (!resultUnwritten())
    return false;
  if (principal_.JugadorRed == 1)
    enJuego_.showStatus("Victoria", "Derrota");
  else
    enJuego_.showStatus("Derrota", "Victoria");
  enJuego_.Caption = std::string("Victoria - Juego finalizado");
  await(HalfASecond);
  if (resultUnwritten())
    happened(Tick{});
  return true;
}

bool NetworkGame::resultUnwritten() const {
  return principal_.JuegoEnRed && game_->state.phase == Phase::Won;
}

// The other player waits for the result. It goes on being tried behind the question; who does not
// want that leaves a finished game.
bool NetworkGame::mayLeave() {
  if (resultUnwritten() &&
      goesOn("No se puede guardar el archivo:\r\n" + game_->path + "\r\n¿Reintentar?"))
    return !resultUnwritten();
  if (resultUnwritten())
    end("Victoria - Juego finalizado");
  return true;
}

// --- What the protocol asks for ----------------------------------------------------------------

Action NetworkGame::step(const Event& event) {
  auto [state, action] = happen(std::move(game_->state), event);
  game_->state = std::move(state);
  if (action.what == Action::LookAtFile || action.what == Action::Write ||
      action.what == Action::WriteResult)
    game_->worker.begin(action);
  return action;
}

void NetworkGame::happened(const Event& event) {
  const bool wasWithout = game_->state.withoutAccess;
  const bool wasUnwritten = resultUnwritten();
  const Action action = step(event);
  principal_.TurnoPublicado = game_->state.phase == Phase::Waiting;
  if (action.what == Action::TakeOver)
    refresh(parseGame(action.look.text).game);
  showAccess(wasWithout);
  if (wasUnwritten && !resultUnwritten())
    end("Victoria - Juego finalizado");
  if (action.what == Action::Lose)
    lose(parseGame(action.look.text).game);
}

void NetworkGame::showAccess(bool wasWithout) {
  if (game_->state.withoutAccess) {
    enJuego_.Caption = std::string("Sin acceso al archivo - Reintentando...");
  } else if (wasWithout) {
    enJuego_.Caption = std::string("Actualizando...");
    principal_.SegundosRestantes = principal_.SegundosActualizacion;
  }
}

// Closing the play screen stops the network game, so both are set again before it opens.
void NetworkGame::refresh(const GameText& game) {
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

void NetworkGame::lose(const GameText& game) {
  const std::string digit = game.resultLine->substr(1);
  refresh(game);
  if (digit == "1")
    enJuego_.showStatus("Victoria", "Derrota");
  if (digit == "2")
    enJuego_.showStatus("Derrota", "Victoria");
  end("Derrota - Juego finalizado");
  forms_.messageBox("JUGADOR -" + digit + "- HA VENCIDO\r\n\r\n" +
                    "Cierre la ventana del Tablero para iniciar otro juego");
}

void NetworkGame::end(const char* caption) {
  enJuego_.Caption = std::string(caption);
  principal_.JuegoEnRed = false;
  mainWindow_.runTimer(false);
  mainWindow_.showMenu(AppState::Finished);
}

} // namespace falanges
