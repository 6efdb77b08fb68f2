// Saves a text as the program saves a game, or writes it as the program writes a shared file, and
// says when that is done. tools/power_cut.py kills it and cuts its power.
//   save_once save|write PATH TEXT
#include <cstdio>
#include <string_view>

#include "forms/text_file.h"

int main(int count, char** arguments) {
  if (count != 4)
    return 2;
  const bool save = arguments[1] == std::string_view("save");
  const bool done = save ? forms::replaceTextFile(arguments[2], arguments[3])
                         : forms::writeTextFile(arguments[2], arguments[3]);
  if (done)
    std::puts("done");
  return done ? 0 : 1;
}
