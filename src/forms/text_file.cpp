#include "forms/text_file.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>

namespace forms {

namespace fs = std::filesystem;

namespace {

fs::path toPath(const std::string& utf8) {
  return fs::path(std::u8string(utf8.begin(), utf8.end()));
}

enum class Written { Whole, Failed, NotAllowed };

Written put(const fs::path& path, const std::string& text, std::ios::openmode mode) {
  std::ofstream file;
  // Unbuffered, so that the text reaches the system whole, in one call.
  file.rdbuf()->pubsetbuf(nullptr, 0);
  errno = 0;
  file.open(path, mode | std::ios::out | std::ios::binary);
  if (!file)
    return errno == EACCES || errno == EPERM ? Written::NotAllowed : Written::Failed;
  file.write(text.data(), static_cast<std::streamsize>(text.size()));
  file.close();
  return file.fail() ? Written::Failed : Written::Whole;
}

// A name beside the target that no file has.
fs::path temporaryBeside(const fs::path& target) {
  for (int i = 0;; ++i) {
    fs::path candidate = target.parent_path() / ("falanges-" + std::to_string(i) + ".tmp");
    std::error_code ignored;
    if (!fs::exists(fs::symlink_status(candidate, ignored)) || i == 999)
      return candidate;
  }
}

} // namespace

std::string programPath(const std::string& programFolder, std::string_view literal) {
  std::string path(literal);
  std::replace(path.begin(), path.end(), '\\', static_cast<char>(fs::path::preferred_separator));
  return programFolder + path;
}

std::optional<std::string> readTextFile(const std::string& path, std::size_t limit) {
  const fs::path file = toPath(path);
  std::error_code error;
  // A folder opens like a file on some systems, and a pipe would wait for ever.
  if (!fs::is_regular_file(file, error))
    return std::nullopt;
  std::ifstream stream(file, std::ios::binary);
  if (!stream)
    return std::nullopt;
  std::string text(limit, '\0');
  stream.read(text.data(), static_cast<std::streamsize>(limit));
  if (stream.bad() || (stream.fail() && !stream.eof()))
    return std::nullopt;
  text.resize(static_cast<std::size_t>(stream.gcount()));
  return text;
}

bool isMissing(const std::string& path) {
  const fs::path file = toPath(path);
  std::error_code error;
  return fs::status(file, error).type() == fs::file_type::not_found &&
         fs::is_directory(file.parent_path(), error);
}

bool writeTextFile(const std::string& path, const std::string& text) {
  return put(toPath(path), text, std::ios::trunc) == Written::Whole;
}

bool appendTextFile(const std::string& path, const std::string& text) {
  return put(toPath(path), text, std::ios::app) == Written::Whole;
}

bool replaceTextFile(const std::string& path, const std::string& text) {
  std::error_code error;
  fs::path target = toPath(path);
  // Through a link the file it names is replaced, not the link. No other path may be made
  // canonical: that would take one of the two separators from the path of a Windows share.
  if (fs::is_symlink(target, error))
    if (const fs::path real = fs::canonical(target, error); !error)
      target = real;
  const fs::file_status before = fs::status(target, error);
  if (fs::exists(before)) {
    if (!fs::is_regular_file(before))
      return writeTextFile(path, text);
    // A rename would pass over the write protection of the earlier file.
    if (put(target, {}, std::ios::app) != Written::Whole)
      return false;
  }

  const fs::path temporary = temporaryBeside(target);
  const Written written = put(temporary, text, std::ios::trunc);
  if (written == Written::Whole) {
    if (fs::exists(before))
      fs::permissions(temporary, before.permissions(), error);
    fs::rename(temporary, target, error);
    if (!error)
      return true;
  }
  // A full disk must not cost the earlier file; only a folder that takes no new name is written
  // past.
  std::error_code ignored;
  fs::remove(temporary, ignored);
  return written != Written::Failed && writeTextFile(path, text);
}

bool makeFolder(const std::string& path) {
  std::error_code error;
  return fs::create_directory(toPath(path), error) && !error;
}

std::string_view ItemReader::next() {
  const auto cut = [this](std::size_t count) {
    rest_.remove_prefix(std::min(count, rest_.size()));
  };
  cut(std::min(rest_.find_first_not_of(" \t"), rest_.size()));
  std::string_view item;
  if (!rest_.empty() && rest_.front() == '"') {
    cut(1);
    item = rest_.substr(0, rest_.find('"'));
    cut(item.size() + 1);
    cut(std::min(rest_.find_first_of(",\n"), rest_.size()) + 1);
    return item;
  }
  item = rest_.substr(0, rest_.find_first_of(",\n"));
  const bool lineEnd = item.size() < rest_.size() && rest_[item.size()] == '\n';
  cut(item.size() + 1);
  if (lineEnd && !item.empty() && item.back() == '\r')
    item.remove_suffix(1);
  return item;
}

} // namespace forms
