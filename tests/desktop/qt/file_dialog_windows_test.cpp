// The file dialog of Windows itself. `expectFile(title, name)` is what the person at it types,
// `fileDialog({save, title, folder, name, kinds of files})` opens it.
#include <QDir>

#include "desktop/qt/on_screen.h"

using namespace scripted;

namespace {

// It shows no folder whose path has more than some 260 characters, and starts in the one above.
TEST(TheFileDialog, StartsInTheNearestFolderThatTheShellCanShow) {
  const auto player = makePlayer();
  const TemporaryFolder folder;
  const std::string above = folder.file(std::string(120, 'a'));
  const std::string tooLong = above + "\\" + std::string(120, 'b');
  ASSERT_TRUE(QDir().mkpath(QString::fromStdString(tooLong)));
  player->expectFile("Guardar", "partida.txt");
  EXPECT_EQ(player->fileDialog({true, "Guardar", tooLong, "", "Textos|*.txt|Todos|*.*"}),
            above + "\\partida.txt");
}

} // namespace
