// Two copies of the program over one shared file, their timers cranked by hand.
#pragma once

#include <algorithm>
#include <fstream>

#include "scripted/game.h"

namespace falanges {

// The game that most cases play: player 1 moves from 23 to 18, player 2 from 3 to 8.
inline const std::string Positions[] = {"b.g../...../...../...../..G.B",
                                        "b.g../...../...../..G../....B",
                                        "b..../..g../...../..G../....B"};

// By the number of its board and the player in turn, "12".
inline std::string shared(const std::string& game, const std::string& end = "\r\n") {
  return gameFile(Positions[game[0] - '0'], game.substr(1) + end);
}

// The box of the copy that has not won.
inline std::string defeat(const std::string& digit) {
  return "JUGADOR -" + digit +
         "- HA VENCIDO\r\n\r\nCierre la ventana del Tablero para iniciar otro juego";
}

// Runs an operation at once, or holds it back as a share that hangs does.
class HeldRunner final : public Runner {
public:
  void start(std::function<void()> operation) override {
    EXPECT_FALSE(held_) << "one operation at a time";
    held_ = std::move(operation);
    hold ? void() : letGo();
  }
  bool finished(std::chrono::milliseconds patience) override {
    EXPECT_LE(patience.count(), 100);
    return !held_;
  }
  void letGo() {
    hold = false;
    std::exchange(held_, [] {})(), held_ = {};
  }
  bool hold = false;

private:
  std::function<void()> held_;
};

// One copy, with its player before it. Destroying it is killing the process: nothing is closed.
class Copy final : public Game {
public:
  Copy(char name, const std::string& path, HeldRunner* runner = new HeldRunner)
      : Game(scripted::makePlayer(), std::unique_ptr<Runner>(runner)) {
    screen.verbs["join"] = screen.verbs["again"] = [=, this](auto&, auto&) {
      run("menu Opciones, choose comJugadorActualRed " + std::string(name == 'A' ? "1" : "2"));
      choose("click btnCargarJuegoRed", path);
    };
    screen.verbs["hold"] = [=](auto&, auto&) { runner->hold = true; };
    screen.verbs["go"] = [=](auto&, auto&) { runner->letGo(); };
    configure("0;0;5;1;\r\n");
    start();
  }
  void TestBody() override {}
  // Who is in turn and how it stands, as after the end: "12 Derrota/Victoria".
  std::string standing() { return std::to_string(play.JugadorActual) + " " + status(); }
  // In short: the number of the board, the player in turn, "p" where the turn is published, and for
  // the caption "=" as opened, the seconds to go, "." at a poll, "!" without the file.
  std::string all() {
    const std::string board = pictures(), turn = std::to_string(play.JugadorActual),
                      left = std::to_string(principal.SegundosRestantes + 1),
                      caption = play.Caption;
    EXPECT_EQ(gameText(principal, play.JugadorActual), gameFile(board, turn + "\r\n"));
    EXPECT_EQ(status(), turn == "1" ? "En Turno/En Espera" : "En Espera/En Turno");
    const std::string counting = "Jugador -" + std::to_string(principal.JugadorRed) +
                                 "- Actualización en: -" + left + "- segundos";
    std::map<std::string, std::string> signs = {{"En Juego", "="},
                                                {"Actualizando...", "."},
                                                {"Sin acceso al archivo - Reintentando...", "!"},
                                                {counting, left}};
    return std::to_string(std::find(Positions, Positions + 3, board) - Positions) + turn +
           (principal.TurnoPublicado ? "p" : "") + signs[caption];
  }
};

class Network : public testing::Test {
protected:
  // "none": no file.
  void put(const std::string& text) const {
    std::filesystem::remove(scripted::toPath(path)); // emptying a file would wait for the disk
    if (text != "none")
      std::ofstream(path, std::ios::binary) << text;
  }
  std::string file() const { return bytesOf(path); }
  // The steps of a script, each behind the names of those that do it: "AB join, A move 23 18". Or
  // what becomes of the file: "file 12", "file none"; its folder goes "away" and comes "back".
  // "begin": both have joined, B has written what it loaded, and A is in turn.
  void run(const std::string& script) {
    for (const std::string& step : scripted::stepsOf(script)) {
      const std::string who = step.substr(0, step.find(' ')),
                        what = step.substr(step.find(' ') + 1);
      const auto here = scripted::toPath(folder.path()),
                 there = scripted::toPath(folder.path() + "x");
      if (who == "folder")
        std::filesystem::rename(what == "away" ? here : there, what == "away" ? there : here);
      else if (who == "file")
        put(what == "none"   ? what
            : what == "torn" ? shared("12", "\r")
            : what == "won"  ? shared("11", "\r\n11\r\n")
                             : shared(what));
      else if (step == "begin")
        run("file 01, AB join, B look");
      else
        for (const char name : who) {
          auto& copy = name == 'A' ? a : b;
          if (what == "join" || what == "killed")
            copy.reset(what == "join" ? new Copy(name, path) : nullptr);
          if (what != "killed")
            copy->run(what);
        }
    }
  }
  // Board and closing line of the file, then both copies.
  std::string all() {
    std::string text = "??";
    for (const std::string game : {"01", "02", "11", "12", "21", "22"})
      if (file() == shared(game))
        text = game;
    return text + (a ? " " + a->all() : " -") + (b ? " " + b->all() : " -");
  }
  void follow(const std::vector<std::string>& rows) {
    scripted::walk(rows, [this](const std::string& script) { return run(script), all(); });
  }

  scripted::TemporaryFolder folder;
  const std::string path = folder.file("partida común.txt");
  std::unique_ptr<Copy> a, b;
};

} // namespace falanges
