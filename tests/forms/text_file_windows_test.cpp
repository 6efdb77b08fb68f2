// Text files where Windows decides: files that others hold open, all forms of a path.
#include "forms/text_file.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "windows/held_file.h"

namespace {

using namespace forms;

class TextFileWindowsTest : public testing::Test {
protected:
  void SetUp() override { ASSERT_TRUE(writeTextFile(path, "partida\r\n")); }
  std::string bytes() const { return readTextFile(path, 10000).value_or("-"); }

  scripted::TemporaryFolder folder;
  const std::string path = folder.file("juego número 1.txt");
};

TEST_F(TextFileWindowsTest, AFileThatAnotherProgramHoldsIsNotToBeHadForNow) {
  {
    const scripted::HeldFile closed(path, 0);
    EXPECT_EQ(readTextFile(path, 100), std::nullopt);
    EXPECT_FALSE(writeTextFile(path, "x"));
    EXPECT_FALSE(appendTextFile(path, "x"));
    EXPECT_FALSE(replaceTextFile(path, "x"));
  }
  EXPECT_EQ(bytes(), "partida\r\n");
  {
    const scripted::HeldFile readersOnly(path, FILE_SHARE_READ);
    EXPECT_EQ(bytes(), "partida\r\n");
    EXPECT_FALSE(writeTextFile(path, "x"));
    EXPECT_FALSE(replaceTextFile(path, "x"));
  }
  EXPECT_EQ(bytes(), "partida\r\n");
  {
    // It may be written, but not change its name: in place.
    const scripted::HeldFile reader(path, FILE_SHARE_READ | FILE_SHARE_WRITE);
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
