// Pictures whose files cannot be loaded.
#include <gtest/gtest.h>

#include "forms/text_file.h"
#include "scripted/scripted_desktop.h"
#include "scripted/test_windows.h"

namespace {

TEST(PictureTest, AMissingFileLeavesTheOldOneAndTheFirstIsNoted) {
  scripted::ScriptedDesktop screen;
  scripted::TestProgram program(screen);
  screen.missingPictures = {"8x8.jpg", "a.ico"};
  EXPECT_TRUE(program.one.pic.LoadPicture("\\img\\6x6.jpg"));
  EXPECT_FALSE(program.one.pic.LoadPicture("\\img\\8x8.jpg"));
  EXPECT_FALSE(program.one.LoadIcon("\\ico\\a.ico"));
  ASSERT_EQ(program.forms.failures.size(), 2U);
  EXPECT_EQ(program.forms.failures.front().path,
            forms::programPath(screen.programFolder(), "\\img\\8x8.jpg"));
  EXPECT_EQ(screen.picture("frmUno.pic") + screen.picture("frmUno"), "6x6.jpg");
}

} // namespace
