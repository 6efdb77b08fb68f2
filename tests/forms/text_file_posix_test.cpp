// Text files where POSIX decides: permissions, links, pipes, a full disk.
#include "forms/text_file.h"

#include <csignal>

#include <sys/fsuid.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
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

TEST_F(TextFilePosixTest, PipesAndDevicesFailAtOnce) {
  const std::string pipe = folder.file("tubería");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(readTextFile(pipe, 10), std::nullopt);
  EXPECT_FALSE(writeTextFile("/dev/full", "x") || appendTextFile("/dev/full", "x"));
}

TEST_F(TextFilePosixTest, AReplacementKeepsPermissionsAndLinks) {
  fs::permissions(path, fs::perms(0640));
  const std::string link = folder.file("enlace");
  fs::create_symlink(path, link);
  EXPECT_TRUE(replaceTextFile(link, "otro"));
  EXPECT_TRUE(fs::is_symlink(link));
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
  EXPECT_FALSE(replaceTextFile(path, large) || replaceTextFile(folder.file("otro"), large));
  EXPECT_FALSE(writeTextFile(folder.file("directo"), large));
  setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_EQ(readTextFile(path, 100), "partida");
  EXPECT_EQ(folder.entries(), 2);
}

TEST_F(TextFilePosixTest, PermissionsDecideHowAFileIsReplaced) {
  const auto replaced = [&](unsigned ofFolder, unsigned ofFile) {
    fs::permissions(path, fs::perms(ofFile));
    fs::permissions(folder.path(), fs::perms(ofFolder));
    setfsuid(geteuid() == 0 ? 65534 : geteuid()); // permissions count for root too
    const bool done = replaceTextFile(path, "x");
    setfsuid(geteuid());
    prctl(PR_SET_DUMPABLE, 1); // or the leak check could not look into this process any more
    fs::permissions(folder.path(), fs::perms(0700));
    return done;
  };
  EXPECT_FALSE(replaced(0777, 0444)) << "the file is protected, though the folder is not";
  EXPECT_EQ(readTextFile(path, 100), "partida");
  EXPECT_TRUE(replaced(0555, 0666)) << "the folder takes no new name: in place";
  EXPECT_EQ(readTextFile(path, 100), "x");
  EXPECT_EQ(folder.entries(), 1);
}

} // namespace
