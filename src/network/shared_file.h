// The operations on the shared file of a network game. They know the file alone, so that any thread
// can run them.
#pragma once

#include <optional>
#include <string>

namespace falanges {

// What one look at the file found.
struct FileLook {
  std::optional<std::string> text; // nothing: it cannot be read
  bool missing = false;            // its folder answers and has no such file
  bool operator==(const FileLook&) const = default;
};

FileLook lookAtFile(const std::string& path);

enum class Written { Whole, Failed, Overtaken };

// Empties the file, or makes it, and writes the whole text: never another file in its place, for
// the other copy may hold it open.
Written writeFile(const std::string& path, const std::string& text);

// The same, unless the file is no longer as `seen` found it: then it is Overtaken and stays.
Written writeFileAsSeen(const std::string& path, const FileLook& seen, const std::string& text);

} // namespace falanges
