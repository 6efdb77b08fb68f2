// Text files where POSIX decides: permissions, links, a full disk.
#include "forms/text_file.h"

#include <csignal>

#include <sys/fsuid.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "scripted/temporary_folder.h"

namespace {

using namespace forms;
namespace fs = std::filesystem;

class TextFilePosixTest : public testing::Test {
protected:
  void SetUp() override { ASSERT_TRUE(writeTextFile(path, "partida")); }

  scripted::TemporaryFolder folder;
  const std::string path = folder.file("juego número 1.txt");
};

TEST_F(TextFilePosixTest, AReplacementKeepsPermissionsAndLinks) {
  fs::permissions(path, fs::perms(0640));
  const std::string link = folder.file("enlace");
  fs::create_symlink(path, link);
  EXPECT_TRUE(replaceTextFile(link, "otro") && fs::is_symlink(link));
  EXPECT_EQ(readTextFile(path, 100), "otro");
  EXPECT_EQ(fs::status(path).permissions(), fs::perms(0640));
  EXPECT_EQ(folder.entries(), 2);
}

TEST_F(TextFilePosixTest, AFullDiskCostsNoEarlierFile) {
  // No file may grow beyond so many bytes: what a full disk looks like to the writer.
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit full{10, before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &full);
  const std::string large(5000, 'x');
  EXPECT_FALSE(replaceTextFile(path, large) || writeTextFile(folder.file("directo"), large));
  setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_EQ(readTextFile(path, 100), "partida");
  EXPECT_EQ(folder.entries(), 2);
}

TEST_F(TextFilePosixTest, AProtectedFileStaysAndAFolderThatTakesNoNewNameIsWrittenPast) {
  const std::string common = folder.file("común");
  ASSERT_TRUE(writeTextFile(common, "partida"));
  fs::permissions(path, fs::perms(0444));
  fs::permissions(common, fs::perms(0666));
  setfsuid(65534); // a stranger to the folder, if root: permissions count for root too
  EXPECT_TRUE(!replaceTextFile(path, "x") && replaceTextFile(common, "x"));
  setfsuid(geteuid());
  prctl(PR_SET_DUMPABLE, 1); // or the leak check could not look into this process any more
  EXPECT_EQ(readTextFile(path, 100).value() + readTextFile(common, 100).value(), "partidax");
}

} // namespace
