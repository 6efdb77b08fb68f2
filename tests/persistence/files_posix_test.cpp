// A program that is killed while it saves.
#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

#include "scripted/game.h"

namespace falanges {

using FilesPosix = Game;

TEST_F(FilesPosix, AKilledSaveLeavesTheEarlierGameOrTheNewOne) {
  const std::string path = file("partida");
  const std::string board =
      "gggggggg/gggggggg/......../......../......../......../......../........";
  const std::string games[] = {gameFile(board), gameFile(board, "2\r\n")};
  start();
  load(games[0]);
  for (int kills = 0; kills < 60; ++kills) {
    const pid_t child = fork();
    if (child == 0)
      for (;;) {
        play.JugadorActual = 3 - play.JugadorActual;
        choose("menu GuardarJuego", path);
      }
    usleep(static_cast<useconds_t>(std::rand() % 10000));
    int status = 0;
    ASSERT_TRUE(kill(child, SIGKILL) == 0 && waitpid(child, &status, 0) == child);
    ASSERT_EQ(WTERMSIG(status), SIGKILL) << "it went on until then";
    ASSERT_TRUE(bytesOf(path) == games[0] || bytesOf(path) == games[1]) << bytesOf(path);
  }
}

} // namespace falanges
