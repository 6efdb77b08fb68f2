// Text files where Windows decides: files that others hold open, all forms of a path.
#include "forms/text_file.h"

#include <algorithm>

#include <windows.h>

#include <gtest/gtest.h>

#include "scripted/temporary_folder.h"

namespace {

using namespace forms;

// A file that another program has open, as long as this lives.
class HeldFile {
public:
  // `sharing` is what others may do meanwhile: 0 for nothing, or FILE_SHARE_ flags.
  HeldFile(const std::string& path, DWORD sharing)
      : file_(CreateFileW(scripted::toPath(path).c_str(), GENERIC_READ, sharing, nullptr,
                          OPEN_EXISTING, 0, nullptr)) {
    EXPECT_NE(file_, INVALID_HANDLE_VALUE);
  }
  ~HeldFile() { CloseHandle(file_); }
  HeldFile(const HeldFile&) = delete;
  HeldFile& operator=(const HeldFile&) = delete;

private:
  HANDLE file_;
};

class TextFileWindowsTest : public testing::Test {
protected:
  void SetUp() override { ASSERT_TRUE(writeTextFile(path, "partida\r\n")); }
  std::string bytes() const { return readTextFile(path, 10000).value_or("-"); }

  scripted::TemporaryFolder folder;
  const std::string path = folder.file("juego número 1.txt");
};

TEST_F(TextFileWindowsTest, AFileThatAnotherProgramHoldsIsNotToBeHadForNow) {
  {
    const HeldFile closed(path, 0);
    EXPECT_EQ(readTextFile(path, 100), std::nullopt);
    EXPECT_FALSE(writeTextFile(path, "x"));
    EXPECT_FALSE(appendTextFile(path, "x"));
    EXPECT_FALSE(replaceTextFile(path, "x"));
  }
  EXPECT_EQ(bytes(), "partida\r\n");
  {
    const HeldFile readersOnly(path, FILE_SHARE_READ);
    EXPECT_EQ(bytes(), "partida\r\n");
    EXPECT_FALSE(writeTextFile(path, "x"));
    EXPECT_FALSE(replaceTextFile(path, "x"));
  }
  EXPECT_EQ(bytes(), "partida\r\n");
  {
    // It may be written, but not change its name: in place.
    const HeldFile reader(path, FILE_SHARE_READ | FILE_SHARE_WRITE);
    EXPECT_TRUE(writeTextFile(path, "uno"));
    EXPECT_TRUE(replaceTextFile(path, "dos"));
  }
  EXPECT_EQ(bytes(), "dos");
  EXPECT_EQ(folder.entries(), 1);
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
