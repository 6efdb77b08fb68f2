#include "forms/system_file.h"

#include <algorithm>
#include <utility>

#include <windows.h>

namespace forms {

namespace fs = std::filesystem;

namespace {

HANDLE systemHandle(std::intptr_t handle) {
  return reinterpret_cast<HANDLE>(handle);
}

Outcome outcomeOf(DWORD error) {
  switch (error) {
  case ERROR_FILE_NOT_FOUND:
  case ERROR_PATH_NOT_FOUND:
    return Outcome::Missing;
  case ERROR_FILE_EXISTS:
  case ERROR_ALREADY_EXISTS:
    return Outcome::Taken;
  case ERROR_ACCESS_DENIED:
    return Outcome::NotAllowed;
  case ERROR_SHARING_VIOLATION:
  case ERROR_LOCK_VIOLATION:
    return Outcome::Held;
  default:
    return Outcome::Failed;
  }
}

DWORD dispositionOf(Opening opening) {
  switch (opening) {
  case Opening::ToRead:
  case Opening::ToChange:
    return OPEN_EXISTING;
  case Opening::ToWrite:
    return OPEN_ALWAYS;
  case Opening::New:
    break;
  }
  return CREATE_NEW;
}

constexpr DWORD SharedWithAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// The call reads or writes at this place and moves no pointer.
OVERLAPPED placeAt(std::uint64_t offset) {
  constexpr unsigned HalfWidth = 32;
  OVERLAPPED place{};
  place.Offset = static_cast<DWORD>(offset);
  place.OffsetHigh = static_cast<DWORD>(offset >> HalfWidth);
  return place;
}

bool cut(std::intptr_t handle, std::uint64_t size) {
  FILE_END_OF_FILE_INFO end{};
  end.EndOfFile.QuadPart = static_cast<LONGLONG>(size);
  return SetFileInformationByHandle(systemHandle(handle), FileEndOfFileInfo, &end, sizeof end) != 0;
}

} // namespace

Outcome SystemFile::open(const fs::path& path, Opening opening) {
  const DWORD access = opening == Opening::ToRead ? GENERIC_READ : GENERIC_READ | GENERIC_WRITE;
  const HANDLE opened = CreateFileW(path.c_str(), access, SharedWithAll, nullptr,
                                    dispositionOf(opening), FILE_ATTRIBUTE_NORMAL, nullptr);
  if (opened == INVALID_HANDLE_VALUE)
    return outcomeOf(GetLastError());
  handle_ = reinterpret_cast<std::intptr_t>(opened);
  // Ports, consoles and pipes have names among the files; a whole disk has no such information.
  BY_HANDLE_FILE_INFORMATION information{};
  if (GetFileType(opened) == FILE_TYPE_DISK && GetFileInformationByHandle(opened, &information))
    return Outcome::Done;
  close();
  return Outcome::Failed;
}

std::optional<std::string> SystemFile::read(std::size_t limit) {
  std::string text;
  for (std::size_t length = 0; length < limit;) {
    text.resize(std::min(limit, length + Chunk));
    OVERLAPPED place = placeAt(length);
    DWORD count = 0;
    if (!ReadFile(systemHandle(handle_), &text[length], static_cast<DWORD>(text.size() - length),
                  &count, &place) &&
        GetLastError() != ERROR_HANDLE_EOF)
      return std::nullopt;
    length += count;
    text.resize(length);
    if (count == 0)
      break;
  }
  return text;
}

bool SystemFile::append(std::string_view text) {
  LARGE_INTEGER size{};
  return GetFileSizeEx(systemHandle(handle_), &size) &&
         writeAt(static_cast<std::uint64_t>(size.QuadPart), text);
}

bool SystemFile::fill(std::string_view text) {
  return writeAt(0, text) && cut(handle_, text.size());
}

bool SystemFile::empty() {
  return cut(handle_, 0);
}

bool SystemFile::writeAt(std::uint64_t offset, std::string_view text) {
  OVERLAPPED place = placeAt(offset);
  DWORD count = 0;
  return WriteFile(systemHandle(handle_), text.data(), static_cast<DWORD>(text.size()), &count,
                   &place) &&
         count == text.size();
}

bool SystemFile::sync() {
  return FlushFileBuffers(systemHandle(handle_)) != 0;
}

// A new file has the rights that its folder gives.
void SystemFile::takeRightsOf(const SystemFile& /*other*/) {}

bool SystemFile::close() {
  return !isOpen() || CloseHandle(systemHandle(std::exchange(handle_, None)));
}

Outcome takeName(const fs::path& file, const fs::path& name) {
  if (MoveFileExW(file.c_str(), name.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
    return Outcome::Done;
  // The system answers so as long as a program has a file of either name open.
  const DWORD error = GetLastError();
  return error == ERROR_ACCESS_DENIED ? Outcome::Held : outcomeOf(error);
}

// The rename has waited for the disk.
bool syncName(const fs::path& /*file*/) {
  return true;
}

std::optional<fs::path> throughLinks(const fs::path& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  // Of other paths none may change its spelling: that of a share begins with two separators.
  if (attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_REPARSE_POINT))
    return path;
  const HANDLE file = CreateFileW(path.c_str(), 0, SharedWithAll, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (file == INVALID_HANDLE_VALUE)
    return std::nullopt;
  constexpr DWORD LongestPath = 32768;
  std::wstring real(LongestPath, L'\0');
  const DWORD length = GetFinalPathNameByHandleW(file, real.data(), LongestPath, 0);
  CloseHandle(file);
  if (length == 0 || length >= LongestPath)
    return std::nullopt;
  real.resize(length);
  return real;
}

} // namespace forms
