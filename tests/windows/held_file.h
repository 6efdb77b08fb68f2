// A file that another program has open, as long as this lives.
#pragma once

#include <string>

#include <windows.h>

#include <gtest/gtest.h>

#include "scripted/temporary_folder.h"

namespace scripted {

class HeldFile {
public:
  // `sharing` is what others may do meanwhile: 0 for nothing, or FILE_SHARE_ flags.
  HeldFile(const std::string& path, DWORD sharing)
      : file_(CreateFileW(toPath(path).c_str(), GENERIC_READ, sharing, nullptr, OPEN_EXISTING, 0,
                          nullptr)) {
    EXPECT_NE(file_, INVALID_HANDLE_VALUE);
  }
  ~HeldFile() { CloseHandle(file_); }
  HeldFile(const HeldFile&) = delete;
  HeldFile& operator=(const HeldFile&) = delete;

private:
  HANDLE file_;
};

} // namespace scripted
