// Text files where Windows decides: files that others hold open, and devices. `write` and `append`
// go into the file itself; `replace` makes a temporary file, which then takes the name. The number
// behind a path is the most bytes that are read.
#include "forms/text_file.h"

#include <windows.h>

#include <gtest/gtest.h>

#include "scripted/temporary_folder.h"

namespace {

using namespace forms;

TEST(TextFileWindowsTest, AFileThatAnotherProgramHoldsIsNotToBeHadForNow) {
  const scripted::TemporaryFolder folder;
  // Begins as the paths of shared folders do, with two separators, neither of which may be lost.
  const std::string path = R"(\\?\)" + folder.file("juego número 1.txt");
  const auto bytes = [&] { return readTextFile(path, 10000).value_or("-"); };
  // What the program that holds the file lets others do meanwhile (nothing, or read and write), and
  // what can be read then ("-": nothing) after "uno" was to be written and "+" added.
  const std::pair<DWORD, const char*> table[] = {{0, "-"},
                                                 {FILE_SHARE_READ | FILE_SHARE_WRITE, "uno+"}};
  for (const auto& [sharing, read] : table) {
    ASSERT_TRUE(writeTextFile(path, "partida"));
    const HANDLE held = CreateFileW(scripted::toPath(path).c_str(), GENERIC_READ, sharing, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    // Whether this program may write meanwhile.
    const bool may = (sharing & FILE_SHARE_WRITE) != 0;
    EXPECT_EQ(writeTextFile(path, "uno"), may);
    // No temporary file can take the name of one that is held open. Then the text is not written
    // over the old one either: if that failed half-way, a saved game would be lost.
    EXPECT_FALSE(replaceTextFile(path, "dos"));
    EXPECT_EQ(appendTextFile(path, "+"), may);
    EXPECT_EQ(bytes(), read);
    CloseHandle(held);
    EXPECT_EQ(bytes(), may ? read : "partida");
    EXPECT_EQ(folder.entries(), 1); // no temporary file is left
  }
}

// NUL would swallow a saved game, CON is the console. Neither is written, by whatever way.
TEST(TextFileWindowsTest, ADeviceIsNoFile) {
  for (const char* device : {R"(\\.\NUL)", R"(\\.\CON)"}) {
    EXPECT_EQ(readTextFile(device, 100), std::nullopt) << device;
    EXPECT_FALSE(writeTextFile(device, "x") || replaceTextFile(device, "x")) << device;
  }
}

} // namespace
