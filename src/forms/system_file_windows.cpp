#include "forms/system_file.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>

namespace forms {

namespace fs = std::filesystem;

namespace {

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

} // namespace

Outcome SystemFile::open(const fs::path& path, Opening opening) {
  const DWORD access = opening == Opening::ToRead ? GENERIC_READ : GENERIC_READ | GENERIC_WRITE;
  const HANDLE opened = CreateFileW(path.c_str(), access, SharedWithAll, nullptr,
                                    dispositionOf(opening), FILE_ATTRIBUTE_NORMAL, nullptr);
  if (opened == INVALID_HANDLE_VALUE)
    return outcomeOf(GetLastError());
  // Ports, consoles and pipes have names among the files; a whole disk has no such information.
  BY_HANDLE_FILE_INFORMATION information{};
  if (GetFileType(opened) == FILE_TYPE_DISK && GetFileInformationByHandle(opened, &information))
    file_ = _open_osfhandle(reinterpret_cast<std::intptr_t>(opened), _O_BINARY);
  if (isOpen())
    return Outcome::Done;
  CloseHandle(opened);
  return Outcome::Failed;
}

bool SystemFile::sync() {
  return _commit(file_) == 0;
}

// A new file has the rights that its folder gives.
void SystemFile::takeRightsOf(const SystemFile& /*other*/) {}

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
