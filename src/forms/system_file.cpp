#include "forms/system_file.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include <unistd.h>

namespace forms {

namespace {

// Calls again what a signal has interrupted.
template <class Call> auto repeated(Call call) {
  auto count = call();
  while (count < 0 && errno == EINTR)
    count = call();
  return count;
}

} // namespace

std::optional<std::string> SystemFile::read(std::size_t limit) {
  constexpr std::size_t Chunk = 64 * 1024; // bytes that are read at a time
  std::string text;
  if (lseek(file_, 0, SEEK_SET) != 0)
    return std::nullopt;
  while (text.size() < limit) {
    const std::size_t length = text.size();
    const std::size_t wanted = std::min(limit - length, Chunk);
    text.resize(length + wanted);
    const auto count =
        repeated([&] { return ::read(file_, &text[length], static_cast<unsigned>(wanted)); });
    if (count < 0)
      return std::nullopt;
    text.resize(length + static_cast<std::size_t>(count));
    if (count == 0)
      break;
  }
  return text;
}

bool SystemFile::append(std::string_view text) {
  return lseek(file_, 0, SEEK_END) >= 0 && write(text);
}

bool SystemFile::fill(std::string_view text) {
  return lseek(file_, 0, SEEK_SET) == 0 && write(text) &&
         ftruncate(file_, static_cast<off_t>(text.size())) == 0;
}

// A disk that becomes full takes a part and refuses the rest.
bool SystemFile::write(std::string_view text) {
  while (!text.empty()) {
    const auto count =
        repeated([&] { return ::write(file_, text.data(), static_cast<unsigned>(text.size())); });
    if (count <= 0)
      return false;
    text.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

bool SystemFile::close() {
  return !isOpen() || ::close(std::exchange(file_, None)) == 0;
}

} // namespace forms
