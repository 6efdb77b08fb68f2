// A fresh empty folder that goes with everything in it at the end of its scope.
#pragma once

#include <filesystem>
#include <random>
#include <string>
#include <string_view>

namespace scripted {

// On Windows a path made of plain characters would not be UTF-8.
inline std::filesystem::path toPath(std::string_view utf8) {
  return std::filesystem::path(std::u8string(utf8.begin(), utf8.end())).make_preferred();
}

class TemporaryFolder {
public:
  // The name has a blank and an accent: every path of the tests does.
  TemporaryFolder() {
    std::random_device random;
    do
      path_ = std::filesystem::temp_directory_path() / toPath("Señal " + std::to_string(random()));
    while (!std::filesystem::create_directory(path_));
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  // UTF-8, with the system's separators.
  std::string path() const { return fromPath(path_); }
  std::string file(std::string_view name) const { return fromPath(path_ / toPath(name)); }
  // How many files and folders are in it.
  auto entries() const { return std::distance(std::filesystem::directory_iterator(path_), {}); }

private:
  static std::string fromPath(const std::filesystem::path& path) {
    const std::u8string utf8 = path.u8string();
    return {utf8.begin(), utf8.end()};
  }

  std::filesystem::path path_;
};

} // namespace scripted
