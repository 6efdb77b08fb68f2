// Text files: whole files of single-byte characters in and out, and the reading item by item.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace forms {

// Files are named by UTF-8 paths everywhere, on every system.

// The program folder joined to a literal that starts with "\", in the system's separators.
std::string programPath(const std::string& programFolder, std::string_view literal);

// What is no regular file (a folder, a device, a pipe) can be neither read nor written, and nothing
// waits for it.

// The bytes of the file; nothing when it cannot be opened or read. Reads at most `limit` bytes.
std::optional<std::string> readTextFile(const std::string& path, std::size_t limit);

// True when the folder of the file answers and holds none of that name.
bool isMissing(const std::string& path);

// Empties the file, or makes it, hands it the whole text in one system call, and waits until the
// disk has it. False on failure; what the file then holds is undefined.
[[nodiscard]] bool writeTextFile(const std::string& path, const std::string& text);

// Adds the text behind what the file holds, and waits until the disk has it. False on failure.
[[nodiscard]] bool appendTextFile(const std::string& path, const std::string& text);

// Whether to wait, for some 20 to 100 ms, until the disk has the text: what has been told as done
// then survives a power cut.
enum class Sync { Yes, No };

// As writeTextFile, but an earlier file is lost only once the new one stands whole: the text goes
// to a temporary file in the same folder, which then takes the name. Where the folder does not
// allow that, the file is written over in place, and put back if that fails. Waits half a second
// for a file that another program holds. False on failure; an earlier file is as it was, unless
// all has gone well but the disk's answer.
[[nodiscard]] bool replaceTextFile(const std::string& path, const std::string& text,
                                   Sync sync = Sync::Yes);

// False when the folder exists already or cannot be made.
[[nodiscard]] bool makeFolder(const std::string& path);

// Reads a text item by item. An item ends at a comma or a line end (CR LF, or LF alone); blanks
// before it are skipped; one that starts with a double quote runs to the closing quote.
class ItemReader {
public:
  explicit ItemReader(std::string_view text) : rest_(text) {}
  bool atEnd() const { return rest_.empty(); }
  // The next item, without quotes. Only when not at the end.
  std::string_view next();

private:
  std::string_view rest_;
};

} // namespace forms
