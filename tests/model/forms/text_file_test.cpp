// Text files as the program meets them on every system: odd texts, odd paths.
#include "model/forms/text_file.h"

#include <vector>

#include <gtest/gtest.h>

#include "scripted/temporary_folder.h"

namespace {

using namespace forms;

constexpr std::size_t Enough = 100000;

class TextFileTest : public testing::Test {
protected:
  // Bytes of the file; "-" when there is none.
  static std::string bytes(const std::string& path) {
    return readTextFile(path, Enough).value_or("-");
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
  for (const std::string& target :
       {folder.file("carpeta"), folder.file("no/juego"), std::string()}) {
    EXPECT_FALSE(writeTextFile(target, "x")) << target;
    EXPECT_FALSE(appendTextFile(target, "x")) << target;
    EXPECT_FALSE(replaceTextFile(target, "x")) << target;
    EXPECT_EQ(readTextFile(target, 10), std::nullopt) << target;
  }
}

TEST_F(TextFileTest, AReplacementLeavesNothingBeside) {
  EXPECT_TRUE(writeTextFile(folder.file("falanges-0.tmp"), "de otro"));
  for (const std::string text : {"nuevo", "más largo", "corto"}) {
    EXPECT_TRUE(replaceTextFile(path, text));
    EXPECT_EQ(bytes(path), text);
  }
  EXPECT_EQ(bytes(folder.file("falanges-0.tmp")), "de otro");
  EXPECT_EQ(folder.entries(), 2);
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
  const std::filesystem::path folder = "/juego de Ana";
  EXPECT_EQ(std::filesystem::path(programPath("/juego de Ana", "\\img\\5x5.jpg")).make_preferred(),
            (folder / "img" / "5x5.jpg").make_preferred());
}

} // namespace
