// Text files as the program meets them: odd texts, odd paths, a disk that refuses.
#include "model/forms/text_file.h"

#include <csignal>
#include <vector>

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

constexpr std::size_t Enough = 100000;

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

class TextFileTest : public testing::Test {
protected:
  // Bytes of the file; "-" when there is none.
  static std::string bytes(const std::string& path) {
    return readTextFile(path, Enough).value_or("-");
  }
  std::size_t filesBeside() const {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()));
  }

  scripted::TemporaryFolder folder;
  const std::string path = folder.file("juego número 1.txt");
};

TEST_F(TextFileTest, WhatIsWrittenIsReadByteForByte) {
  const std::string text("1;\r\n\0\xFF\x1A\n,", 9);
  EXPECT_EQ(readTextFile(path, Enough), std::nullopt);
  EXPECT_TRUE(writeTextFile(path, text + text));
  EXPECT_TRUE(writeTextFile(path, text));
  EXPECT_EQ(bytes(path), text);
  EXPECT_TRUE(appendTextFile(path, "más"));
  EXPECT_EQ(bytes(path), text + "más");
  EXPECT_EQ(readTextFile(path, 4), "1;\r\n");
  EXPECT_TRUE(appendTextFile(folder.file("nuevo"), "x"));
  EXPECT_EQ(bytes(folder.file("nuevo")), "x");
  EXPECT_TRUE(writeTextFile(path, ""));
  EXPECT_EQ(bytes(path), "");
}

TEST_F(TextFileTest, WhatIsNoFileFailsAtOnce) {
  EXPECT_TRUE(makeFolder(folder.file("carpeta")));
  EXPECT_FALSE(makeFolder(folder.file("carpeta")));
  EXPECT_FALSE(makeFolder(folder.file("no/carpeta")));
  ASSERT_EQ(mkfifo(folder.file("tubo").c_str(), 0600), 0);
  EXPECT_EQ(readTextFile(folder.file("tubo"), Enough), std::nullopt);
  for (const std::string& target :
       {folder.file("carpeta"), folder.file("no/juego"), std::string("/dev/full"), std::string()}) {
    EXPECT_FALSE(writeTextFile(target, "x")) << target;
    EXPECT_FALSE(appendTextFile(target, "x")) << target;
    EXPECT_FALSE(replaceTextFile(target, "x")) << target;
    EXPECT_EQ(readTextFile(target, 10), std::nullopt) << target;
  }
  EXPECT_TRUE(fs::is_empty(folder.file("carpeta")));
}

TEST_F(TextFileTest, AReplacementKeepsPermissionsAndLinksAndLeavesNothingBeside) {
  EXPECT_TRUE(replaceTextFile(path, "nuevo"));
  EXPECT_EQ(bytes(path), "nuevo");
  fs::permissions(path, fs::perms(0640));
  const std::string link = folder.file("enlace");
  fs::create_symlink(path, link);
  EXPECT_TRUE(writeTextFile(folder.file("falanges-0.tmp"), "de otro"));
  EXPECT_TRUE(replaceTextFile(link, "más corto"));
  EXPECT_TRUE(replaceTextFile(link, "otro"));
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(bytes(path), "otro");
  EXPECT_EQ(fs::status(path).permissions(), fs::perms(0640));
  EXPECT_EQ(bytes(folder.file("falanges-0.tmp")), "de otro");
  EXPECT_EQ(filesBeside(), 3u);
}

TEST_F(TextFileTest, AFullDiskCostsNoEarlierFile) {
  ASSERT_TRUE(writeTextFile(path, "partida"));
  {
    const FullDisk full(10);
    EXPECT_FALSE(replaceTextFile(path, std::string(5000, 'x')));
    EXPECT_FALSE(replaceTextFile(folder.file("otro"), std::string(5000, 'x')));
    EXPECT_FALSE(writeTextFile(folder.file("directo"), std::string(5000, 'x')));
  }
  EXPECT_EQ(bytes(path), "partida");
  EXPECT_EQ(bytes(folder.file("otro")), "-");
  EXPECT_EQ(filesBeside(), 2u);
}

TEST_F(TextFileTest, PermissionsDecideHowAFileIsReplaced) {
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
  EXPECT_EQ(filesBeside(), 1u);
}

TEST(ItemReaderTest, ATextFallsIntoItems) {
  const struct {
    std::string text;
    std::vector<std::string> items;
  } table[] = {
      {"", {}},
      {"a", {"a"}},
      {"a,b\r\nc\r\n", {"a", "b", "c"}},
      {"a,b\nc\n", {"a", "b", "c"}},
      {"a\r\nb", {"a", "b"}},
      {"\r\n\n,x", {"", "", "", "x"}},
      {" \t a b \r\n", {"a b "}},
      {"a\rb\r", {"a\rb\r"}},
      {"\"a,b\r\nc\",d", {"a,b\r\nc", "d"}},
      {"\"a\" rest , \"b\"\r\nc", {"a", "b", "c"}},
      {"  \"\"\n\"open, to the end", {"", "open, to the end"}},
      {"a\"b\",c", {"a\"b\"", "c"}},
  };
  for (const auto& row : table) {
    std::vector<std::string> items;
    for (ItemReader reader(row.text); !reader.atEnd();)
      items.emplace_back(reader.next());
    EXPECT_EQ(items, row.items) << row.text;
  }
}

TEST(ProgramPathTest, ALiteralGetsTheSystemsSeparators) {
  EXPECT_EQ(fs::path(programPath("/juego de Ana", "\\img\\5x5.jpg")),
            fs::path("/juego de Ana") / "img" / "5x5.jpg");
}

} // namespace
