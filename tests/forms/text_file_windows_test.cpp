// Text files where Windows decides: files that others hold open, all forms of a path.
#include "forms/text_file.h"

#include <algorithm>

#include <windows.h>

#include <gtest/gtest.h>

#include "scripted/temporary_folder.h"

namespace {

using namespace forms;

class TextFileWindowsTest : public testing::Test {
protected:
  std::string bytes() const { return readTextFile(path, 10000).value_or("-"); }

  scripted::TemporaryFolder folder;
  const std::string path = folder.file("juego número 1.txt");
};

TEST_F(TextFileWindowsTest, AFileThatAnotherProgramHoldsIsNotToBeHadForNow) {
  // What others may do meanwhile, and what can be read then.
  const std::pair<DWORD, const char*> table[] = {
      {0, "-"}, {FILE_SHARE_READ, "partida"}, {FILE_SHARE_READ | FILE_SHARE_WRITE, "dos+"}};
  for (const auto& [sharing, read] : table) {
    ASSERT_TRUE(writeTextFile(path, "partida"));
    const HANDLE held = CreateFileW(scripted::toPath(path).c_str(), GENERIC_READ, sharing, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    // It may be written, but not change its name: in place.
    const bool may = (sharing & FILE_SHARE_WRITE) != 0;
    EXPECT_EQ(writeTextFile(path, "uno"), may);
    EXPECT_EQ(replaceTextFile(path, "dos"), may);
    EXPECT_EQ(appendTextFile(path, "+"), may);
    EXPECT_EQ(bytes(), read);
    CloseHandle(held);
    EXPECT_EQ(bytes(), may ? read : "partida");
    EXPECT_EQ(folder.entries(), 1);
  }
}

TEST_F(TextFileWindowsTest, EveryFormOfAPathLeadsToTheFile) {
  ASSERT_EQ(path.substr(1, 2), ":\\");
  std::string forwards = path;
  std::replace(forwards.begin(), forwards.end(), '\\', '/');
  std::string upwards =
      folder.path() + "\\..\\" + path.substr(path.find_last_of("\\", path.rfind('\\') - 1) + 1);
  // The last two begin as the paths of shared folders do, with two separators.
  for (const std::string& form : {forwards, upwards, R"(\\?\)" + path, R"(\\.\)" + path}) {
    EXPECT_TRUE(replaceTextFile(form, form)) << form;
    EXPECT_EQ(bytes(), form);
    EXPECT_TRUE(appendTextFile(form, "\n")) << form;
    EXPECT_EQ(readTextFile(form, 1000), form + "\n");
    EXPECT_FALSE(makeFolder(form)) << form;
  }
  EXPECT_EQ(folder.entries(), 1);
}

} // namespace
