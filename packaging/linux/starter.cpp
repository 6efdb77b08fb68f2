// What a double click on "falanges" starts in the archive for Linux: it has lib/check.sh look
// whether the system has what the program needs besides the archive's own libraries, and then
// becomes the program. It is linked statically, so that an old system still runs it, and at fixed
// addresses: file managers take other program files for libraries.
#include <array>
#include <climits>
#include <cstdio>
#include <string>

#include <sys/wait.h>
#include <unistd.h>

namespace {

// Runs the script with the program's path, and tells whether it succeeded.
bool succeeds(const std::string& script, const std::string& program) {
  const pid_t child = fork();
  if (child == 0) {
    execl("/bin/sh", "sh", script.c_str(), program.c_str(), nullptr);
    _exit(127);
  }
  int status = 0;
  return child > 0 && waitpid(child, &status, 0) == child && status == 0;
}

} // namespace

int main(int, char** argv) {
  std::array<char, PATH_MAX> own{};
  const ssize_t length = readlink("/proc/self/exe", own.data(), own.size());
  if (length <= 0) {
    std::perror("/proc/self/exe");
    return 1;
  }
  const std::string path(own.data(), static_cast<std::size_t>(length));
  const std::string folder = path.substr(0, path.rfind('/'));
  const std::string program = path + ".bin";
  if (!succeeds(folder + "/lib/check.sh", program))
    return 1;
  // Under the name by which it was called: windows and menus go by it.
  execv(program.c_str(), argv);
  std::perror(program.c_str());
  return 1;
}
