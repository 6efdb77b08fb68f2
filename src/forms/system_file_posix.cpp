#include "forms/system_file.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace forms {

namespace fs = std::filesystem;

namespace {

int descriptor(std::intptr_t handle) {
  return static_cast<int>(handle);
}

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

// Calls again what a signal has interrupted.
template <class Call> ssize_t repeated(Call call) {
  ssize_t count = -1;
  do
    count = call();
  while (count < 0 && errno == EINTR);
  return count;
}

} // namespace

Outcome SystemFile::open(const fs::path& path, Opening opening) {
  constexpr mode_t Permissions = 0666; // less what the person's mask takes away
  const int opened =
      ::open(path.c_str(), flagsOf(opening) | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, Permissions);
  if (opened < 0)
    return outcomeOf(errno);
  handle_ = opened;
  struct stat status = {};
  if (fstat(opened, &status) == 0 && S_ISREG(status.st_mode))
    return Outcome::Done;
  close();
  return Outcome::Failed;
}

std::optional<std::string> SystemFile::read(std::size_t limit) {
  std::string text;
  for (std::size_t length = 0; length < limit;) {
    text.resize(std::min(limit, length + Chunk));
    const ssize_t count = repeated([&] {
      return pread(descriptor(handle_), &text[length], text.size() - length,
                   static_cast<off_t>(length));
    });
    if (count < 0)
      return std::nullopt;
    length += static_cast<std::size_t>(count);
    text.resize(length);
    if (count == 0)
      break;
  }
  return text;
}

bool SystemFile::append(std::string_view text) {
  struct stat status = {};
  return fstat(descriptor(handle_), &status) == 0 &&
         writeAt(static_cast<std::uint64_t>(status.st_size), text);
}

bool SystemFile::fill(std::string_view text) {
  return writeAt(0, text) && ftruncate(descriptor(handle_), static_cast<off_t>(text.size())) == 0;
}

bool SystemFile::empty() {
  return ftruncate(descriptor(handle_), 0) == 0;
}

// A disk that becomes full takes a part and refuses the rest.
bool SystemFile::writeAt(std::uint64_t offset, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = repeated([&] {
      return pwrite(descriptor(handle_), text.data(), text.size(), static_cast<off_t>(offset));
    });
    if (count <= 0)
      return false;
    offset += static_cast<std::uint64_t>(count);
    text.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

bool SystemFile::sync() {
  return synced(descriptor(handle_));
}

void SystemFile::takeRightsOf(const SystemFile& other) {
  struct stat status = {};
  if (fstat(descriptor(other.handle_), &status) != 0)
    return;
  // The file of players who share a folder stays that of their group, if this one may say so.
  constexpr auto SameOwner = static_cast<uid_t>(-1);
  [[maybe_unused]] const int refused = fchown(descriptor(handle_), SameOwner, status.st_gid);
  constexpr mode_t Permissions = 0777;
  fchmod(descriptor(handle_), status.st_mode & Permissions);
}

bool SystemFile::close() {
  return !isOpen() || ::close(descriptor(std::exchange(handle_, None))) == 0;
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
