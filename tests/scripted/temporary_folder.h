// A fresh empty folder that goes with everything in it at the end of its scope.
#pragma once

#include <filesystem>
#include <random>
#include <string>
#include <string_view>

namespace scripted {

class TemporaryFolder {
public:
  // The name has a blank and an accent: every path of the tests does.
  TemporaryFolder() {
    std::random_device random;
    do
      path_ = std::filesystem::temp_directory_path() / ("Señal " + std::to_string(random()));
    while (!std::filesystem::create_directory(path_));
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  std::string path() const { return path_.string(); }
  std::string file(std::string_view name) const { return (path_ / name).string(); }

private:
  std::filesystem::path path_;
};

} // namespace scripted
