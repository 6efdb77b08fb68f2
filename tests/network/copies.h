// Two copies of the program over one shared file, their timers cranked by hand.
#pragma once

#include <algorithm>
#include <fstream>

#include "forms/text_file.h"
#include "persistence/game_file.h"
#include "scripted/game.h"

namespace falanges {

// The game that most cases play: player 1 moves from 23 to 18, player 2 from 3 to 8.
inline const std::string Positions[] = {"b.i../...../...../...../..I.B",
                                        "b.i../...../...../..I../....B",
                                        "b..../..i../...../..I../....B"};
inline const std::string Lost = "Sin acceso al archivo - Reintentando...";

inline std::string shared(int board, const std::string& closing = "1\r\n") {
  return gameFile(Positions[board], closing);
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
    if (const auto act = std::exchange(beforeNext, std::exchange(beforeTheOneAfter, {})))
      act();
    if (hold)
      held_ = std::move(operation);
    else
      operation();
  }
  bool finished(std::chrono::milliseconds patience) override {
    EXPECT_LE(patience.count(), 100);
    return !held_;
  }
  void letGo() {
    hold = false;
    if (const auto operation = std::exchange(held_, {}))
      operation();
  }
  bool hold = false;
  std::function<void()> beforeNext, beforeTheOneAfter; // run once, when an operation starts

private:
  std::function<void()> held_;
};

// One copy, with its player before it. Destroying it is killing the process: nothing is closed.
class Copy final : public Game {
public:
  Copy(char name, const std::string& file, const std::string& options = "0;0;5;1;\r\n",
       HeldRunner* held = new HeldRunner)
      : Game(scripted::makePlayer(), std::unique_ptr<Runner>(held)),
        number(name == 'A' ? "1" : "2"), path(file), runner(*held) {
    configure(options);
    start();
  }
  void TestBody() override {}
  const std::string number, path;
  HeldRunner& runner;

  void join() {
    screen.expectFile("Cargar Juego", path);
    run("menu Opciones, choose comJugadorActualRed " + number + ", click btnCargarJuegoRed");
  }
  std::string position() { return gameText(principal, play.JugadorActual); }
  std::string caption() { return play.Caption; }
  // In short: the number of the board, the player in turn, "p" where the turn is published, and for
  // the caption "=" as opened, the seconds to go, "." at a poll, "!" without the file.
  std::string all() {
    const std::string board = pictures(), turn = std::to_string(play.JugadorActual);
    EXPECT_EQ(position(), gameFile(board, turn + "\r\n"));
    EXPECT_EQ(status(), turn == "1" ? "En Turno/En Espera" : "En Espera/En Turno");
    std::map<std::string, std::string> signs = {
        {"En Juego", "="}, {"Actualizando...", "."}, {Lost, "!"}};
    for (const std::string seconds : {"1", "2", "3", "4", "5", "6", "7"})
      signs["Jugador -" + number + "- Actualización en: -" + seconds + "- segundos"] = seconds;
    return std::to_string(std::find(Positions, Positions + 3, board) - Positions) + turn +
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
  // The steps of a script, each behind the names of those that do it: "AB join, A move 23 18".
  void run(const std::string& script) {
    for (const std::string& step : stepsOf(script)) {
      const std::size_t blank = step.find(' ');
      for (const char name : step.substr(0, blank)) {
        auto& copy = name == 'A' ? a : b;
        if (step.ends_with(" join"))
          copy = std::make_unique<Copy>(name, path);
        if (step.ends_with(" join") || step.ends_with(" again"))
          copy->join();
        else
          copy->run(step.substr(blank + 1));
      }
    }
  }
  // Both have joined, B has written what it loaded, and A is in turn.
  void begin() {
    put(shared(0));
    run("AB join, B look");
  }
  // Board and closing line of the file, then both copies.
  std::string all() {
    std::string text = "??";
    for (const int board : {0, 1, 2})
      for (const std::string closing : {"1", "2"})
        if (file() == shared(board, closing + "\r\n"))
          text = std::to_string(board) + closing;
    return text + (a ? " " + a->all() : " -") + (b ? " " + b->all() : " -");
  }
  void follow(const std::vector<std::string>& rows) {
    walk(
        rows, [this](const std::string& script) { run(script); }, [this] { return all(); });
  }

  scripted::TemporaryFolder folder;
  const std::string path = folder.file("partida común.txt");
  std::unique_ptr<Copy> a, b;
};

} // namespace falanges
