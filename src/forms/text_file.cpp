#include "forms/text_file.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <thread>

#include "forms/system_file.h"

namespace forms {

namespace fs = std::filesystem;

namespace {

fs::path toPath(const std::string& utf8) {
  return fs::path(std::u8string(utf8.begin(), utf8.end()));
}

// A larger file is no game of ours, and nothing to keep in memory.
constexpr std::size_t LargestKept = 16 * 1024 * 1024;

// What a virus scanner or a cloud client holds for a moment is asked for again, for half a second.
template <class Attempt> Outcome patiently(Attempt attempt) {
  constexpr int MostAttempts = 10;
  constexpr std::chrono::milliseconds Pause{50};
  Outcome outcome = attempt();
  for (int attempts = 1; outcome == Outcome::Held && attempts < MostAttempts; ++attempts) {
    std::this_thread::sleep_for(Pause);
    outcome = attempt();
  }
  return outcome;
}

// Opens a file beside the target under a name that no file has. Two copies of the program that save
// at the same time get one each.
Outcome openTemporary(SystemFile& file, const fs::path& target, fs::path& name) {
  constexpr int MostNames = 1000;
  Outcome outcome = Outcome::Taken;
  for (int i = 0; outcome == Outcome::Taken && i < MostNames; ++i) {
    name = target.parent_path() / ("falanges-" + std::to_string(i) + ".tmp");
    outcome = file.open(name, Opening::New);
  }
  return outcome;
}

// NotAllowed where no other file may take the target's name; the target is then as it was.
Outcome putInPlaceOf(const fs::path& target, const std::string& text, Sync sync) {
  SystemFile earlier;
  const Outcome found = patiently([&] { return earlier.open(target, Opening::ToChange); });
  // A new name would pass over the write protection of the earlier file.
  if (found != Outcome::Done && found != Outcome::Missing)
    return Outcome::Failed;

  SystemFile temporary;
  fs::path name;
  Outcome outcome = openTemporary(temporary, target, name);
  if (outcome != Outcome::Done)
    return outcome;
  if (earlier.isOpen())
    temporary.takeRightsOf(earlier);
  const bool written = temporary.fill(text) && (sync == Sync::No || temporary.sync());
  // Windows renames no open file, and none over an open one.
  earlier.close();
  outcome = Outcome::Failed;
  if (temporary.close() && written)
    outcome = patiently([&] { return takeName(name, target); });
  if (outcome != Outcome::Done) {
    std::error_code ignored;
    fs::remove(name, ignored);
  } else if (sync == Sync::Yes && !syncName(target)) {
    outcome = Outcome::Failed;
  }
  return outcome;
}

// For a folder that takes no new name. What does not go in whole is undone: the earlier text still
// has its place on the disk, for the file is cut only behind a text that stands.
bool writeOver(const fs::path& target, const std::string& text, Sync sync) {
  SystemFile file;
  if (patiently([&] { return file.open(target, Opening::ToChange); }) != Outcome::Done)
    return false;
  const auto earlier = file.read(LargestKept + 1);
  if (!earlier || earlier->size() > LargestKept)
    return false;
  const auto put = [&](const std::string& content) {
    return file.fill(content) && (sync == Sync::No || file.sync());
  };
  if (put(text))
    return true;
  put(*earlier);
  return false;
}

// Opens the file, or makes it, changes it and waits for the disk. False on failure.
template <class Change> bool changeInPlace(const fs::path& path, Change change) {
  SystemFile file;
  Outcome outcome = file.open(path, Opening::ToChange);
  // Linux lets nobody offer to make what is another's in a folder that all may write.
  const bool isNew = outcome == Outcome::Missing;
  if (isNew)
    outcome = file.open(path, Opening::ToWrite);
  return outcome == Outcome::Done && change(file) && file.sync() && file.close() &&
         (!isNew || syncName(path));
}

} // namespace

std::string programPath(const std::string& programFolder, std::string_view literal) {
  std::string path(literal);
  std::replace(path.begin(), path.end(), '\\', static_cast<char>(fs::path::preferred_separator));
  return programFolder + path;
}

std::optional<std::string> readTextFile(const std::string& path, std::size_t limit) {
  SystemFile file;
  if (file.open(toPath(path), Opening::ToRead) != Outcome::Done)
    return std::nullopt;
  return file.read(limit);
}

bool isMissing(const std::string& path) {
  const fs::path file = toPath(path);
  std::error_code error;
  return fs::status(file, error).type() == fs::file_type::not_found &&
         fs::is_directory(file.parent_path(), error);
}

// Emptied first: who reads meanwhile must not take a new beginning and an old end for one text.
bool writeTextFile(const std::string& path, const std::string& text) {
  return changeInPlace(toPath(path),
                       [&](SystemFile& file) { return file.fill({}) && file.fill(text); });
}

bool appendTextFile(const std::string& path, const std::string& text) {
  return changeInPlace(toPath(path), [&](SystemFile& file) { return file.append(text); });
}

bool replaceTextFile(const std::string& path, const std::string& text, Sync sync) {
  // Through a link the file it names is replaced, not the link; where it names none, that file is
  // made.
  const auto target = throughLinks(toPath(path));
  if (!target)
    return false;
  const Outcome outcome = putInPlaceOf(*target, text, sync);
  return outcome == Outcome::NotAllowed ? writeOver(*target, text, sync) : outcome == Outcome::Done;
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
