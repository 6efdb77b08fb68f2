#include <gtest/gtest.h>

#include "scripted/player.h"
#include "shell/form1.h"

namespace falanges {

TEST(Coordinates, FollowThePointerOverTheLargestPicture) {
  const auto player = scripted::makePlayer();
  forms::Forms forms(*player);
  Form1 form(forms);
  forms.startUp(form);
  player->moveOver(form.Picture1, 1500, 30);
  EXPECT_EQ(form.Picture1.ToolTipText.get(), "X: 1500 - Y: 30");
  player->click(form.Picture3);
  EXPECT_EQ(form.Picture3.Appearance, 1);
  EXPECT_TRUE(player->closeWindow(form));
}

} // namespace falanges
