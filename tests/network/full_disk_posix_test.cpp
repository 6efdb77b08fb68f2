// The end of a network game on a disk without room for it.
#include <csignal>

#include <sys/resource.h>

#include "network/copies.h"

namespace falanges {

using FullDisk = Network;

TEST_F(FullDisk, TheWinnerMayRepeatWhatCouldNotBeSaved) {
  const std::string won = gameFile("I..../...../...../....i/....B");
  const std::string question = "No se puede guardar el archivo:\r\n" + path + "\r\n¿Reintentar?";
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  std::signal(SIGXFSZ, SIG_IGN);
  for (const std::size_t room :
       {std::size_t{0}, won.size()}) { // for nothing; for all but the marker
    for (const Answer last : {Answer::Yes, Answer::No}) {
      put(gameFile("b..../I..../...../....i/....B"));
      run("A join");
      const rlimit bound{room, limit.rlim_max};
      setrlimit(RLIMIT_FSIZE, &bound);
      a->screen.expectBox(victory("1", "CONQUISTADO la Bandera"));
      a->screen.expectBox(question, Answer::Yes, [&] {
        EXPECT_EQ(a->menus(), "HHHHH");
        EXPECT_FALSE(a->play.picUnidad(1)->Enabled);
      });
      a->screen.expectBox(question, last, [&] { setrlimit(RLIMIT_FSIZE, &limit); });
      run("A move 6 1");
      EXPECT_EQ(file(), last == Answer::Yes ? won + "11\r\n" : won.substr(0, room));
    }
  }
}

} // namespace falanges
