// Text files as the program meets them on every system. `write` and `append` go into the file
// itself; `replace` makes a temporary file, which then takes the name. The number behind a path is
// the most bytes that are read.
#include "forms/text_file.h"

#include <gtest/gtest.h>

#include "scripted/temporary_folder.h"

namespace {

using namespace forms;

TEST(TextFileTest, WhatIsWrittenIsReadByteForByte) {
  const scripted::TemporaryFolder folder;
  const std::string path = folder.file("juego número 1 de Đorđe.txt");
  // Nine bytes, among them what ends a text elsewhere.
  const std::string text("1;\r\n\0\xFF\x1A\n,", 9);
  // Nothing is left of the longer text when the shorter one is written.
  EXPECT_TRUE(writeTextFile(path, text + text));
  EXPECT_TRUE(writeTextFile(path, text));
  EXPECT_TRUE(appendTextFile(path, "más"));
  EXPECT_EQ(readTextFile(path, 100), text + "más");
  EXPECT_EQ(readTextFile(path, 4), "1;\r\n");
}

// "falanges-0.tmp" is the first name that a temporary file of the program's own would take.
TEST(TextFileTest, AReplacementLeavesATemporaryFileOfAnotherAlone) {
  const scripted::TemporaryFolder folder;
  EXPECT_TRUE(writeTextFile(folder.file("falanges-0.tmp"), "de otro"));
  EXPECT_TRUE(replaceTextFile(folder.file("partida"), "nueva"));
  EXPECT_EQ(readTextFile(folder.file("partida"), 100), "nueva");
  EXPECT_EQ(readTextFile(folder.file("falanges-0.tmp"), 100), "de otro");
  EXPECT_EQ(folder.entries(), 2); // files, these two: none is left over
}

// At commas and line ends, but not inside quotes. Blanks before an item are skipped, and a carriage
// return alone ends none. What follows a closing quote up to the comma is dropped. Each item is put
// between "<" and ">" to be compared; "<>" is an empty one.
TEST(ItemReaderTest, ATextFallsIntoItems) {
  std::string items;
  for (ItemReader reader(" \t a b \r\n\n,\"c,\nd\" rest ,e\rf\"g\" , \"\"\nh\n\"open, to the end");
       !reader.atEnd();)
    items += "<" + std::string(reader.next()) + ">";
  EXPECT_EQ(items, "<a b ><><><c,\nd><e\rf\"g\" ><><h><open, to the end>");
}

} // namespace
