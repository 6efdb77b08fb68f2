#include <QDir>

#include "desktop/qt/qt_player.h"

using namespace scripted;

namespace {

TEST(TheFileDialog, StartsInTheNearestFolderThatTheShellCanShow) {
  QtPlayer player;
  const TemporaryFolder folder;
  const std::string above = folder.file(std::string(120, 'a'));
  const std::string tooLong = above + "\\" + std::string(120, 'b');
  ASSERT_TRUE(QDir().mkpath(QString::fromStdString(tooLong)));
  player.expectFile("Guardar", "partida.txt");
  EXPECT_EQ(player.fileDialog({true, "Guardar", tooLong, "", "Textos|*.txt|Todos|*.*"}),
            above + "\\partida.txt");
}

} // namespace
