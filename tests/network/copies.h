// Two copies of the program over one shared file, their timers cranked by hand.
#pragma once

#include <memory>
#include <utility>

#include "forms/text_file.h"
#include "scripted/game.h"

namespace falanges {

constexpr int Interval = 6; // ticks from poll to poll: one more than the seconds of the option
// The game that most cases play: player 1 moves from 23 to 18, player 2 from 3 to 8.
inline const std::string Boards[] = {"b.i../...../...../...../..I.B",
                                     "b.i../...../...../..I../....B",
                                     "b..../..i../...../..I../....B"};
inline const std::string Lost = "Sin acceso al archivo - Reintentando...";

inline std::string shared(int board, const std::string& closing = "1\r\n") {
  return gameFile(Boards[board], closing);
}

// The box of the copy that has not won.
inline std::string defeat(const std::string& digit) {
  return "JUGADOR -" + digit +
         "- HA VENCIDO\r\n\r\nCierre la ventana del Tablero para iniciar otro juego";
}

// One copy, with its player before it. Destroying it is killing the process: nothing is closed.
class Copy final : public Game {
public:
  Copy(int number, const std::string& file, const std::string& options = "0;0;5;1;\r\n")
      : player(std::to_string(number)), path(file) {
    configure(options);
    start();
  }
  void TestBody() override {}

  using Game::app, Game::load, Game::menus, Game::move, Game::pictures, Game::principal, Game::run,
      Game::screen, Game::status;
  const std::string player, path;

  void join() {
    screen.expectFile("Cargar Juego", path);
    run("menu Opciones, choose comJugadorActualRed " + player + ", click btnCargarJuegoRed");
  }
  // A poll at once.
  void look() {
    principal.SegundosRestantes = 0;
    screen.tick();
  }
  std::string position() { return gameText(principal, app.enJuego.JugadorActual); }
  std::string caption() { return screen.text("frmEnJuego"); }
  // In short: the number of the board, the player in turn, "p" where the turn is published, and for
  // the caption "=" as opened, the seconds to go, "." at a poll, "!" without the file.
  std::string state() {
    const std::string board = pictures(), turn = std::to_string(app.enJuego.JugadorActual);
    EXPECT_EQ(position(), gameFile(board, turn + "\r\n"));
    EXPECT_EQ(status(), turn == "1" ? "En Turno/En Espera" : "En Espera/En Turno");
    std::map<std::string, std::string> signs = {
        {"En Juego", "="}, {"Actualizando...", "."}, {Lost, "!"}};
    for (const std::string seconds : {"1", "2", "3", "4", "5", "6", "7"})
      signs["Jugador -" + player + "- Actualización en: -" + seconds + "- segundos"] = seconds;
    return std::to_string(std::find(Boards, Boards + 3, board) - Boards) + turn +
           (principal.TurnoPublicado ? "p" : "") + signs[caption()];
  }
};

class Network : public testing::Test {
protected:
  Network() { put(shared(0)); }

  void put(const std::optional<std::string>& text) const {
    std::filesystem::remove(scripted::toPath(path)); // emptying a file would wait for the disk
    if (text)
      std::ofstream(path, std::ios::binary) << *text;
  }
  std::string file() const { return forms::readTextFile(path, 8000).value_or("none"); }
  void away(bool gone) const {
    const auto place = scripted::toPath(folder.path());
    const auto other = scripted::toPath(folder.path() + " (lejos)");
    gone ? std::filesystem::rename(place, other) : std::filesystem::rename(other, place);
  }
  // What happens, step by step: "join A, tick AB, tick AB 1, move A 23 18, look B".
  // A tick without a number is as many as lead to the next poll.
  void run(const std::string& script) {
    std::istringstream steps(script);
    for (std::string step; std::getline(steps >> std::ws, step, ',');) {
      SCOPED_TRACE(step);
      std::istringstream words(step);
      std::string what, who;
      int from = 0, to = 0;
      words >> what >> who >> from >> to;
      for (const char name : who) {
        auto& copy = name == 'A' ? a : b;
        if (what == "join")
          copy = std::make_unique<Copy>(name == 'A' ? 1 : 2, path), copy->join();
        else if (what == "tick")
          copy->screen.tick(from > 0 ? from : Interval);
        else
          what == "look" ? copy->look() : copy->move(from, to);
      }
    }
  }
  // Both have joined, B has written what it loaded, and A is in turn.
  void begin() {
    put(shared(0));
    run("join AB, look B");
  }
  // Board and closing line of the file, then both copies.
  std::string all() {
    std::string text = "??";
    for (const int board : {0, 1, 2})
      for (const std::string closing : {"1", "2"})
        if (file() == shared(board, closing + "\r\n"))
          text = std::to_string(board) + closing;
    return text + (a ? " " + a->state() : " -") + (b ? " " + b->state() : " -");
  }
  // Each row: what happens, " => ", what all() tells then.
  void follow(const std::vector<std::string>& rows) {
    for (const std::string& row : rows) {
      SCOPED_TRACE(row);
      run(halves(row).first);
      EXPECT_EQ(all(), halves(row).second);
    }
  }

  scripted::TemporaryFolder folder;
  const std::string path = folder.file("partida común.txt");
  std::unique_ptr<Copy> a, b;
};

} // namespace falanges
