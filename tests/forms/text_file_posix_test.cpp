// Text files where POSIX decides: permissions, links, a full disk, pipes, what the disk is told.
// `write` goes into the file itself; `replace` makes a temporary file, which then takes
// the name. The number behind a path is the most bytes that are read. All tell whether it worked.
#include "forms/text_file.h"

#include <csignal>

#include <sys/fsuid.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "scripted/temporary_folder.h"

namespace {

using namespace forms;
namespace fs = std::filesystem;

// What the disk was told, in order.
std::string& diskCalls() {
  static std::string calls;
  return calls;
}

} // namespace

// These take the place of the C library's in this program, and note it.
int fsync(int file) {
  diskCalls() += "sync ";
  return static_cast<int>(syscall(SYS_fsync, file));
}

int rename(const char* from, const char* to) noexcept {
  diskCalls() += "rename ";
  return static_cast<int>(syscall(SYS_rename, from, to));
}

namespace {

class TextFilePosixTest : public testing::Test {
protected:
  void SetUp() override { ASSERT_TRUE(writeTextFile(path, "partida")); }

  // An empty folder, and in it a file that holds "partida".
  scripted::TemporaryFolder folder;
  const std::string path = folder.file("juego.txt");
};

TEST_F(TextFilePosixTest, AReplacementKeepsPermissionsAndLinks) {
  // Its owner may read and write, the group read; a new file has other rights, as a rule.
  fs::permissions(path, fs::perms(0640));
  const std::string link = folder.file("enlace");
  fs::create_symlink(path, link);
  EXPECT_TRUE(replaceTextFile(link, "otro"));
  EXPECT_EQ(readTextFile(path, 100), "otro");
  EXPECT_EQ(fs::status(path).permissions(), fs::perms(0640));
  fs::remove(path);
  // The link's file is gone: it is made anew where the link leads, and the link stays one.
  EXPECT_TRUE(replaceTextFile(link, "nuevo")) << "it named no file";
  EXPECT_EQ(readTextFile(path, 100), "nuevo");
  EXPECT_TRUE(fs::is_symlink(link));
}

// Each sync tells the disk to keep something: the text, then the folder with its name. A
// replacement takes the name between the two; a new file, "red", has its name from the beginning.
TEST_F(TextFilePosixTest, WhatIsSaidToBeDoneIsOnTheDiskWithItsName) {
  diskCalls().clear();
  EXPECT_TRUE(replaceTextFile(path, "otro"));
  EXPECT_EQ(diskCalls(), "sync rename sync ");
  diskCalls().clear();
  EXPECT_TRUE(writeTextFile(folder.file("red"), "uno"));
  EXPECT_EQ(diskCalls(), "sync sync ");
}

// Whoever opens a pipe waits, as a rule, until another program opens its other end. Nobody does
// here: a case that waits would not end.
TEST_F(TextFilePosixTest, NothingWaitsForAPipeOrTakesItForAFile) {
  const std::string pipe = folder.file("tubería");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0666), 0);
  EXPECT_EQ(readTextFile(pipe, 100), std::nullopt);
  EXPECT_FALSE(writeTextFile(pipe, "x"));
  EXPECT_FALSE(replaceTextFile(pipe, "x"));
  EXPECT_TRUE(fs::is_fifo(pipe));
}

// What a full disk looks like to the writer: no file may grow beyond ten bytes.
void diskIsFull(bool full) {
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  limit.rlim_cur = full ? 10 : limit.rlim_max;
  setrlimit(RLIMIT_FSIZE, &limit);
}

// The system's number of a person. Another one has no rights to the folder, though the tests may
// run as root.
void actAs(uid_t person) {
  setfsuid(person);
  prctl(PR_SET_DUMPABLE, 1); // or the leak check could not look into this process any more
}

// Too many bytes for a full disk.
const std::string Large(5000, 'x');

TEST_F(TextFilePosixTest, AFullDiskCostsNoEarlierFile) {
  diskIsFull(true);
  EXPECT_FALSE(replaceTextFile(path, Large));
  diskIsFull(false);
  EXPECT_EQ(readTextFile(path, 100), "partida");
  // No temporary file is left.
  EXPECT_EQ(folder.entries(), 1);
}

// Another person may write the file in common, but make no temporary one beside it: the text goes
// over the old one. What that person may only read is not replaced. 0444: all may read; 0666: all
// may read and write.
TEST_F(TextFilePosixTest, AFolderThatTakesNoNewNameIsWrittenPastAndAProtectedFileStays) {
  const std::string common = folder.file("común");
  ASSERT_TRUE(writeTextFile(common, "partida"));
  fs::permissions(path, fs::perms(0444));
  fs::permissions(common, fs::perms(0666));
  // Nobody, who owns neither file nor folder.
  actAs(65534);
  EXPECT_FALSE(replaceTextFile(path, "x"));
  diskCalls().clear();
  EXPECT_TRUE(replaceTextFile(common, "x"));
  EXPECT_EQ(diskCalls(), "sync "); // the text alone: no other file has taken the name
  diskIsFull(true);
  EXPECT_FALSE(replaceTextFile(common, Large)); // written over, it would grow beyond the ten bytes
  diskIsFull(false);
  actAs(geteuid()); // again the person who runs the tests
  EXPECT_EQ(readTextFile(path, 100), "partida");
  EXPECT_EQ(readTextFile(common, 100), "x") << "put back after the full disk";
}

} // namespace
