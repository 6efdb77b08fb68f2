#include "forms/system_file.h"

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace forms {

namespace fs = std::filesystem;

namespace {

Outcome outcomeOf(int error) {
  switch (error) {
  case ENOENT:
    return Outcome::Missing;
  case EEXIST:
    return Outcome::Taken;
  case EACCES:
  case EPERM:
    return Outcome::NotAllowed;
  case EAGAIN: // a file server has lent it out, and now calls it back
  case EBUSY:  // on a share: held by a program of another system
  case ETXTBSY:
    return Outcome::Held;
  default:
    return Outcome::Failed;
  }
}

int flagsOf(Opening opening) {
  switch (opening) {
  case Opening::ToRead:
    return O_RDONLY;
  case Opening::ToChange:
    return O_RDWR;
  case Opening::ToWrite:
    return O_RDWR | O_CREAT;
  case Opening::New:
    break;
  }
  return O_WRONLY | O_CREAT | O_EXCL;
}

// Some file systems have nothing to wait for and say so.
bool synced(int file) {
  return fsync(file) == 0 || errno == EINVAL || errno == ENOTSUP || errno == ENOSYS;
}

} // namespace

Outcome SystemFile::open(const fs::path& path, Opening opening) {
  constexpr mode_t Permissions = 0666; // less what the person's mask takes away
  file_ = ::open(path.c_str(), flagsOf(opening) | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, Permissions);
  if (!isOpen())
    return outcomeOf(errno);
  struct stat status = {};
  if (fstat(file_, &status) == 0 && S_ISREG(status.st_mode))
    return Outcome::Done;
  close();
  return Outcome::Failed;
}

bool SystemFile::sync() {
  return synced(file_);
}

void SystemFile::takeRightsOf(const SystemFile& other) {
  struct stat status = {};
  if (fstat(other.file_, &status) != 0)
    return;
  // The file of players who share a folder stays that of their group, if this one may say so.
  constexpr auto SameOwner = static_cast<uid_t>(-1);
  [[maybe_unused]] const int refused = fchown(file_, SameOwner, status.st_gid);
  constexpr mode_t Permissions = 0777;
  fchmod(file_, status.st_mode & Permissions);
}

Outcome takeName(const fs::path& file, const fs::path& name) {
  return std::rename(file.c_str(), name.c_str()) == 0 ? Outcome::Done : outcomeOf(errno);
}

bool syncName(const fs::path& file) {
  const fs::path parent = file.parent_path();
  int opened = ::open(parent.empty() ? "." : parent.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  // In a folder that may be written but not listed the file's own record takes the name along.
  if (opened < 0)
    opened = ::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (opened < 0)
    return false;
  const bool done = synced(opened);
  ::close(opened);
  return done;
}

std::optional<fs::path> throughLinks(const fs::path& path) {
  constexpr int MostLinks = 40; // as many as the system follows
  fs::path file = path;
  std::error_code error;
  for (int links = 0; fs::is_symlink(fs::symlink_status(file, error)); ++links) {
    const fs::path next = fs::read_symlink(file, error);
    if (error || links == MostLinks)
      return std::nullopt;
    file = file.parent_path() / next;
  }
  return file;
}

} // namespace forms
