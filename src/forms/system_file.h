// A regular file as the system has it: what a text file is read and written through. How it is
// opened, named and brought to the disk stands in a source for each system.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace forms {

// What the system answers when a file is to be opened or to change its name.
enum class Outcome {
  Done,
  Missing,    // there is none of that name
  Taken,      // there is one of that name already
  NotAllowed, // the person has no right to it
  Held,       // another program has it, perhaps only for a moment
  Failed,     // anything else; also a folder, a device or a pipe
};

enum class Opening {
  ToRead,   // it must be there
  ToChange, // to read and write; it must be there
  ToWrite,  // to read and write; it is made if it is missing
  New,      // to write; it must not be there, and no link either
};

// An open file, which closes at the end of its scope. Opening never waits for what is no file: that
// is seen by what was opened, for a name may stand for something else a moment later.
class SystemFile {
public:
  SystemFile() = default;
  ~SystemFile() { close(); }
  SystemFile(const SystemFile&) = delete;
  SystemFile& operator=(const SystemFile&) = delete;

  // Only when no file is open.
  Outcome open(const std::filesystem::path& path, Opening opening);
  bool isOpen() const { return file_ != None; }

  // Its first bytes, at most `limit`; nothing when they cannot be read.
  std::optional<std::string> read(std::size_t limit);
  // Each hands the text to the system in one call. False when not all of it went in.
  bool append(std::string_view text);
  // Writes over what the file holds and cuts off what is left of it behind the text.
  bool fill(std::string_view text);
  // Waits until the disk has what was written. False when it may not have it.
  bool sync();
  // Takes the permissions of another file, as far as the system lets it.
  void takeRightsOf(const SystemFile& other);
  // False when what was written may not have arrived.
  bool close();

private:
  static constexpr int None = -1;

  bool write(std::string_view text);

  int file_ = None; // the C library's descriptor
};

// Gives the file another name in its folder, over a file that has it.
Outcome takeName(const std::filesystem::path& file, const std::filesystem::path& name);

// Waits until the disk knows the name of the file. False when it may not know it.
bool syncName(const std::filesystem::path& file);

// The file that a link leads to, over several if need be, or the path itself when it is none. On
// Linux that file need not be there. Nothing when the way cannot be found.
std::optional<std::filesystem::path> throughLinks(const std::filesystem::path& path);

} // namespace forms
