// What a double click on "falanges" starts in the archive for Linux: it has lib/check.sh look
// whether the system has what the program needs besides the archive's own libraries, and then
// becomes the program. What stands in the way of that is told in a window, for who clicks sees no
// terminal. It is linked statically, so that an old system still runs it, and at fixed addresses:
// file managers take other program files for libraries.
#include <array>
#include <climits>
#include <csignal>
#include <cstdio>
#include <string>

#include <sys/wait.h>
#include <unistd.h>

namespace {

// Shows the reason why the game cannot start, with the first of these programs that the system has.
int tell(const std::string& reason) {
  const std::string text = "Falanges no puede empezar.\n" + reason;
  std::fprintf(stderr, "%s\n", text.c_str());
  if (const pid_t child = fork(); child > 0) {
    waitpid(child, nullptr, 0);
    return 1;
  }
  // In the child, or in this process where the system grants no other.
  const char* const words = text.c_str();
  const char* const title = "Falanges Z";
  execlp("zenity", "zenity", "--error", "--no-markup", "--width", "420", "--title", title, "--text",
         words, nullptr);
  execlp("kdialog", "kdialog", "--title", title, "--error", words, nullptr);
  execlp("xmessage", "xmessage", "-xrm", "*international: true", "-center", "-title", title, words,
         nullptr);
  execlp("notify-send", "notify-send", title, words, nullptr);
  _exit(1);
}

// All that comes out of a pipe until its other end is closed.
std::string readAll(int pipe) {
  std::string text;
  std::array<char, 4096> part{};
  for (ssize_t size; (size = read(pipe, part.data(), part.size())) > 0;)
    text.append(part.data(), static_cast<std::size_t>(size));
  return text;
}

std::string unusable(const std::string& file) {
  return "Falta este archivo, o el sistema no permite usarlo:\n\n" + file +
         "\n\nDescomprima otra vez el archivo entero,\nen una carpeta de su disco.";
}

// Has the script look at the program. What it says against it; empty: nothing.
std::string obstacle(const std::string& script, const std::string& program) {
  const char* const noProcess = "El sistema no admite más programas en marcha:\n"
                                "cierre alguno y pruebe otra vez.";
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0)
    return noProcess;
  const pid_t child = fork();
  if (child < 0)
    return noProcess;
  if (child == 0) {
    dup2(ends[1], STDOUT_FILENO);
    execl("/bin/sh", "sh", script.c_str(), program.c_str(), nullptr);
    _exit(127);
  }
  close(ends[1]);
  const std::string said = readAll(ends[0]);
  close(ends[0]);
  int status = 0;
  if (waitpid(child, &status, 0) == child && status == 0)
    return {};
  return said.empty() ? unusable(script) : said;
}

} // namespace

int main(int, char** argv) {
  // A launcher may have it ignored, and then nobody hears how a child has ended.
  std::signal(SIGCHLD, SIG_DFL);
  std::array<char, PATH_MAX> own{};
  const ssize_t length = readlink("/proc/self/exe", own.data(), own.size());
  if (length <= 0)
    return tell("El sistema no dice en qué carpeta está (/proc/self/exe).");
  const std::string path(own.data(), static_cast<std::size_t>(length));
  const std::string folder = path.substr(0, path.rfind('/'));
  const std::string program = path + ".bin";
  if (access(program.c_str(), X_OK) == 0) {
    if (const std::string reason = obstacle(folder + "/lib/check.sh", program); !reason.empty())
      return tell(reason);
    // Under the name by which it was called: windows and menus go by it.
    execv(program.c_str(), argv);
  }
  return tell(unusable(program));
}
