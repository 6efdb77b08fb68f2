// Pictures whose files cannot be loaded.
#include <gtest/gtest.h>

#include "forms/text_file.h"
#include "scripted/scripted_desktop.h"
#include "scripted/test_windows.h"

namespace {

TEST(PictureTest, AMissingFileLeavesTheOldOneAndTheFirstIsNoted) {
  scripted::ScriptedDesktop screen;
  scripted::TestProgram program(screen);
  const auto path = [&](const std::string& name) {
    return forms::programPath(screen.programFolder(), "\\img\\" + name);
  };
  screen.missingPictures = {"8x8.jpg", "a.ico"};
  EXPECT_TRUE(program.one.pic.LoadPicture(path("6x6.jpg")));
  EXPECT_FALSE(program.one.pic.LoadPicture(path("8x8.jpg")));
  EXPECT_FALSE(program.one.LoadIcon(path("a.ico")));
  EXPECT_EQ(program.forms.missingPicture, path("8x8.jpg"));
  EXPECT_EQ(screen.picture("frmUno.pic") + screen.picture("frmUno"), "6x6.jpg");
}

} // namespace
