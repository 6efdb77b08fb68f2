// Saving where POSIX decides: a folder without rights, and a program that is killed.
#include <csignal>

#include <sys/fsuid.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "scripted/game.h"

namespace falanges {

class FilesPosix : public Game {};

TEST_F(FilesPosix, AProgramFolderWithoutRightsIsToldOnceAndTheGameGoesOn) {
  const scripted::TemporaryFolder elsewhere;
  std::filesystem::permissions(elsewhere.path(), std::filesystem::perms(0777));
  std::filesystem::permissions(screen.programFolder(), std::filesystem::perms(0555));
  setfsuid(geteuid() == 0 ? 65534 : geteuid()); // permissions count for root too
  start();
  screen.expectBox("No se puede guardar el archivo:\r\n" + file("VornathFalangesZTEE.cfg"),
                   Answer::Ok, [&] { EXPECT_EQ(principal.OpcPermitirBanderas, "1"); });
  run("menu Opciones, click chkPermitirBanderas, click lblLimiteFilas, close Opciones");
  EXPECT_EQ(principal.OpcPermitirBanderas + principal.OpcLimiteFilas, "11");
  run("menu NuevoJuego, click picGEN, square 1");
  const std::string inside = file("plantillas/mía");
  choose("GuardarPlantilla", inside, "No se puede guardar el archivo:\r\n" + inside);
  choose("GuardarPlantilla", elsewhere.file("mía"));
  EXPECT_EQ(bytesOf(elsewhere.file("mía")), gameFile("G..../...../...../...../....g", "0\r\n"));
  setfsuid(geteuid());
  prctl(PR_SET_DUMPABLE, 1); // or the leak check could not look into this process any more
  EXPECT_TRUE(std::filesystem::is_empty(screen.programFolder()));
}

TEST_F(FilesPosix, AKilledSaveLeavesTheEarlierGameOrTheNewOne) {
  const std::string board =
      "gggggggg/gggggggg/......../......../......../......../......../G.......";
  const std::string path = file("partida"), games[] = {gameFile(board), gameFile(board, "2\r\n")};
  start();
  load(games[0]);
  for (int kills = 0; kills < 60; ++kills) {
    const pid_t child = fork();
    while (child == 0) {
      play.JugadorActual = 3 - play.JugadorActual;
      choose("GuardarJuego", path);
    }
    usleep(static_cast<useconds_t>(std::rand() % 10000));
    int status = 0;
    ASSERT_TRUE(kill(child, SIGKILL) == 0 && waitpid(child, &status, 0) == child);
    EXPECT_EQ(WTERMSIG(status), SIGKILL) << "it went on until then";
    ASSERT_TRUE(bytesOf(path) == games[0] || bytesOf(path) == games[1]) << bytesOf(path);
  }
  // A temporary file that a killed save left behind stands in nobody's way.
  choose("GuardarJuego", path);
  EXPECT_EQ(bytesOf(path), games[0]);
}

} // namespace falanges
