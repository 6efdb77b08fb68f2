// Two players, Ana (1) and Blas (2), each before a copy of the program, and the file they share.
// Their timers are cranked by hand.
#pragma once

#include "scripted/game.h"

namespace falanges {

// The way from a copy to the file.
struct Share {
  bool hangs = false;   // what is begun now waits until it answers
  bool refuses = false; // no thread can be made for it
  bool threads = false; // what is begun has a thread of its own, as in the program
  std::thread begin(std::function<void()> operation) {
    if (refuses)
      throw std::runtime_error("no thread can be made");
    if (threads)
      return network::onOwnThread(std::move(operation));
    if (!hangs)
      return network::atOnce(operation);
    held.push_back(std::move(operation));
    return {};
  }
  void answers() {
    hangs = false;
    for (const auto& operation : std::exchange(held, {}))
      operation();
  }
  std::vector<std::function<void()>> held = {};
};

class Copy final : public Game {
public:
  explicit Copy(std::string digit)
      : Game([this](std::function<void()> operation) { return share.begin(std::move(operation)); }),
        number(std::move(digit)) {
    configure("0;0;5;1;\r\n");
    Game::start();
  }
  void TestBody() override {}

  struct Box {
    std::string text;
    Answer answer = Answer::Ok;
    std::function<void()> meanwhile = {};
  };
  // Through the options and the file dialog, past these boxes.
  void joins(const std::string& path, const std::vector<Box>& boxes = {}) {
    if (!app.opciones.isOpen())
      run("menu Opciones");
    run("choose comJugadorActualRed " + number);
    screen.expectFile("Cargar Juego", path);
    for (const auto& [text, answer, meanwhile] : boxes)
      screen.expectBox(text, answer, meanwhile);
    run("click btnCargarJuegoRed");
    screen.finish();
  }
  void polls() {
    principal.SegundosRestantes = 0;
    screen.tick();
  }
  void leaves() { run("close EnJuego"); }
  std::string caption() const { return play.Caption; }

  const std::string number;
  Share share;
};

class Network : public testing::Test {
protected:
  void put(const std::string& text) const { EXPECT_TRUE(forms::writeTextFile(path, text)); }
  std::string file() const { return bytesOf(path); }
  // Both join on this board, and Blas's first poll, out of turn, is over.
  void bothPlay(const std::string& board) {
    put(gameFile(board));
    ana.joins(path);
    blas.joins(path);
    blas.polls();
  }

  scripted::TemporaryFolder folder;
  const std::string path = folder.file("partida común.txt");
  Copy ana{"1"}, blas{"2"};
};

} // namespace falanges
