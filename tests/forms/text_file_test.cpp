// Text files as the program meets them on every system: odd texts, odd paths.
#include "forms/text_file.h"

#include <vector>

#include <gtest/gtest.h>

#include "scripted/temporary_folder.h"

namespace {

using namespace forms;

class TextFileTest : public testing::Test {
protected:
  scripted::TemporaryFolder folder;
  const std::string path = folder.file("juego número 1.txt");
};

TEST_F(TextFileTest, WhatIsWrittenIsReadByteForByte) {
  const std::string text("1;\r\n\0\xFF\x1A\n,", 9);
  EXPECT_TRUE(writeTextFile(path, text + text) && writeTextFile(path, text));
  EXPECT_EQ(readTextFile(path, 100), text);
  EXPECT_EQ(readTextFile(path, 4), "1;\r\n");
  EXPECT_TRUE(appendTextFile(path, "más") && appendTextFile(folder.file("nuevo"), "x"));
  EXPECT_EQ(readTextFile(path, 100), text + "más");
  EXPECT_EQ(readTextFile(folder.file("nuevo"), 100), "x");
  EXPECT_TRUE(writeTextFile(folder.file("falanges-0.tmp"), "de otro"));
  for (const std::string shorter : {"más largo", "corto", ""}) {
    EXPECT_TRUE(replaceTextFile(path, shorter));
    EXPECT_EQ(readTextFile(path, 100), shorter);
  }
  EXPECT_EQ(readTextFile(folder.file("falanges-0.tmp"), 100), "de otro");
  EXPECT_EQ(folder.entries(), 3);
}

TEST_F(TextFileTest, WhatIsNoFileFailsAtOnce) {
  const std::string inside = folder.file("carpeta"), nowhere = folder.file("no/juego");
  EXPECT_TRUE(makeFolder(inside));
  EXPECT_FALSE(makeFolder(inside) || makeFolder(nowhere));
  for (const std::string& target : {inside, nowhere, std::string()})
    EXPECT_FALSE(writeTextFile(target, "x") || appendTextFile(target, "x") ||
                 replaceTextFile(target, "x") || readTextFile(target, 10))
        << target;
}

TEST(ItemReaderTest, ATextFallsIntoItems) {
  const std::pair<std::string, std::vector<std::string>> table[] = {
      {"a,b\r\nc\nd", {"a", "b", "c", "d"}},
      {"\r\n\n,x", {"", "", "", "x"}},
      {" \t a b \r\n", {"a b "}},
      {"a\rb\r", {"a\rb\r"}},
      {"\"a,b\r\nc\" rest , \"b\"\r\nc", {"a,b\r\nc", "b", "c"}},
      {"  \"\"\n\"open, to the end", {"", "open, to the end"}},
      {"a\"b\",c", {"a\"b\"", "c"}},
  };
  for (const auto& [text, expected] : table) {
    std::vector<std::string> items;
    for (ItemReader reader(text); !reader.atEnd();)
      items.emplace_back(reader.next());
    EXPECT_EQ(items, expected) << text;
  }
}

} // namespace
