// How long the core takes for what a player waits for: a click, a move, a whole game, a file.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <random>
#include <vector>

#include "forms/text_file.h"
#include "model/geometry.h"
#include "persistence/game_file.h"
#include "shell/app.h"
#include "still_desktop.h"

namespace {

using namespace falanges;

// The program with an 8x8 game on the screen: both armies fill their first two rows.
class Game {
public:
  Game() : folder_(std::filesystem::temp_directory_path() / "falanges-bench"), desktop_(folder()) {
    std::filesystem::create_directories(folder_);
    app_.start();
    deploy();
    app_.enJuego.open();
  }
  ~Game() { std::filesystem::remove_all(folder_); }

  App& app() { return app_; }
  std::string folder() const { return folder_.string(); }

  void deploy() {
    Principal& principal = app_.principal;
    principal.NumColumnas = principal.NumFilas = 8;
    principal.NumCasillas = 64;
    fillPositions(principal);
    for (int n = 1; n <= 64; ++n) {
      Casilla& square = principal.Casillas(n);
      const bool own = n > 48, enemy = n <= 16;
      const int type = n % 8 == 4 ? int{BAN} : INF + n % 4;
      square.Jugador = static_cast<std::uint8_t>(own ? 1 : enemy ? 2 : 0);
      square.TUnidad = static_cast<std::uint8_t>(own || enemy ? type : 0);
    }
  }

  void click(forms::Picture* picture) { app_.forms.clicked(*picture); }

private:
  std::filesystem::path folder_;
  bench::StillDesktop desktop_;
  App app_{desktop_};
};

// Selects and takes the selection back: the figure is for two clicks.
void selectUnit(benchmark::State& state) {
  Game game;
  const int general = 53; // with all three squares in front of it free
  game.app().principal.Casillas(general).TUnidad = GEN;
  for (auto _ : state) {
    game.click(game.app().enJuego.picUnidad(general));
    game.click(game.app().enJuego.picUnidad(general));
  }
}
BENCHMARK(selectUnit);

// One unit forth and back, with the clicks that select it: the figure is for one selection and one
// move.
void moveUnit(benchmark::State& state) {
  Game game;
  frmEnJuego& screen = game.app().enJuego;
  game.app().principal.MovPorTurno = 0; // never reached: player 1 stays in turn
  game.app().principal.Casillas(49).TUnidad = GEN;
  int from = 49, to = 41;
  for (auto _ : state) {
    game.click(screen.picUnidad(from));
    game.click(screen.picMovimientoPermitido(to));
    std::swap(from, to);
  }
}
BENCHMARK(moveUnit);

// Random moves to the victory or for 300 moves, from the opening of the play screen on.
void wholeRandomGame(benchmark::State& state) {
  Game game;
  App& app = game.app();
  std::mt19937 random(1);
  std::size_t moves = 0;
  for (auto _ : state) {
    app.enJuego.close();
    game.deploy();
    app.enJuego.open();
    for (int move = 0; move < 300 && app.frame.mnuGuardarJuego.Visible; ++move) {
      std::vector<int> squares;
      for (int n = 1; n <= 64; ++n)
        if (app.principal.Casillas(n).Jugador == app.enJuego.JugadorActual)
          squares.push_back(n);
      game.click(app.enJuego.picUnidad(squares[random() % squares.size()]));
      std::vector<int> targets;
      for (int n = 1; n <= 64; ++n)
        if (app.enJuego.picMovimientoPermitido(n))
          targets.push_back(n);
      if (targets.empty())
        continue;
      game.click(app.enJuego.picMovimientoPermitido(targets[random() % targets.size()]));
      ++moves;
    }
  }
  state.counters["moves"] =
      benchmark::Counter(static_cast<double>(moves), benchmark::Counter::kAvgIterations);
}
BENCHMARK(wholeRandomGame);

void saveGame(benchmark::State& state) {
  Game game;
  for (auto _ : state)
    game.app().frame.mnuGuardarJuego_Click();
}
BENCHMARK(saveGame);

// From the file to the open play screen.
void loadGame(benchmark::State& state) {
  Game game;
  game.app().frame.mnuGuardarJuego_Click();
  for (auto _ : state)
    game.app().frame.mnuCargarJuego_Click();
}
BENCHMARK(loadGame);

// The file's content alone: read and checked.
void readGameFile(benchmark::State& state) {
  Game game;
  game.app().frame.mnuGuardarJuego_Click();
  for (auto _ : state)
    benchmark::DoNotOptimize(readGame(game.folder() + "/juego.txt"));
}
BENCHMARK(readGameFile);

} // namespace
