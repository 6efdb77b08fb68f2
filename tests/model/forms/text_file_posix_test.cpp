// Text files where POSIX decides: permissions, links, pipes, a full disk.
#include "model/forms/text_file.h"

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

// No file may grow beyond so many bytes: what a full disk looks like to the writer.
class FullDisk {
public:
  explicit FullDisk(rlim_t bytes) {
    std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit full{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &full);
  }
  ~FullDisk() { setrlimit(RLIMIT_FSIZE, &before_); }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

private:
  rlimit before_{};
};

// Permissions count for root too, as long as this lives.
class OrdinaryUser {
public:
  OrdinaryUser() { setfsuid(geteuid() == 0 ? 65534 : geteuid()); }
  ~OrdinaryUser() {
    setfsuid(geteuid());
    prctl(PR_SET_DUMPABLE, 1); // or the leak check could not look into this process any more
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;
};

class TextFilePosixTest : public testing::Test {
protected:
  // Bytes of the file; "-" when there is none.
  static std::string bytes(const std::string& path) {
    return readTextFile(path, 10000).value_or("-");
  }

  scripted::TemporaryFolder folder;
  const std::string path = folder.file("juego número 1.txt");
};

TEST_F(TextFilePosixTest, PipesAndDevicesFailAtOnce) {
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  EXPECT_EQ(readTextFile(path, 10), std::nullopt);
  EXPECT_FALSE(writeTextFile("/dev/full", "x"));
  EXPECT_FALSE(appendTextFile("/dev/full", "x"));
  EXPECT_FALSE(replaceTextFile("/dev/full", "x"));
}

TEST_F(TextFilePosixTest, AReplacementKeepsPermissionsAndLinks) {
  ASSERT_TRUE(writeTextFile(path, "partida"));
  fs::permissions(path, fs::perms(0640));
  const std::string link = folder.file("enlace");
  fs::create_symlink(path, link);
  EXPECT_TRUE(replaceTextFile(link, "otro"));
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(bytes(path), "otro");
  EXPECT_EQ(fs::status(path).permissions(), fs::perms(0640));
  EXPECT_EQ(folder.entries(), 2);
}

TEST_F(TextFilePosixTest, AFullDiskCostsNoEarlierFile) {
  ASSERT_TRUE(writeTextFile(path, "partida"));
  {
    const FullDisk full(10);
    EXPECT_FALSE(replaceTextFile(path, std::string(5000, 'x')));
    EXPECT_FALSE(replaceTextFile(folder.file("otro"), std::string(5000, 'x')));
    EXPECT_FALSE(writeTextFile(folder.file("directo"), std::string(5000, 'x')));
  }
  EXPECT_EQ(bytes(path), "partida");
  EXPECT_EQ(bytes(folder.file("otro")), "-");
  EXPECT_EQ(folder.entries(), 2);
}

TEST_F(TextFilePosixTest, PermissionsDecideHowAFileIsReplaced) {
  ASSERT_TRUE(writeTextFile(path, "partida"));
  const auto replaced = [&](unsigned ofFolder, unsigned ofFile) {
    fs::permissions(path, fs::perms(ofFile));
    fs::permissions(folder.path(), fs::perms(ofFolder));
    const OrdinaryUser user;
    return replaceTextFile(path, "x");
  };
  EXPECT_FALSE(replaced(0777, 0444)) << "the file is protected, though the folder is not";
  EXPECT_EQ(bytes(path), "partida");
  EXPECT_TRUE(replaced(0555, 0666)) << "the folder takes no new name: in place";
  EXPECT_EQ(bytes(path), "x");
  fs::permissions(folder.path(), fs::perms(0700));
  EXPECT_EQ(folder.entries(), 1);
}

} // namespace
