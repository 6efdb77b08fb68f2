// Names that Qt's own file dialog would read otherwise than they are typed: several names in
// quotes. `expectFile(title, path, meanwhile)` is what the person at the dialog does: something,
// then types this path. `fileDialog({save, title, folder, name, kinds of files})` opens it and
// gives back the path that the program gets.
#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "desktop/qt/on_screen.h"

using namespace scripted;

namespace {

// No file system takes a name of 300 letters. A box has to say so, and the dialog has to stay open
// for another name.
void tryTooLongAName() {
  QTimer::singleShot(0, [] {
    QWidget& box = *QApplication::activeModalWidget();
    EXPECT_EQ(box.findChild<QLabel*>("qt_msgbox_label")->text(),
              "El nombre del archivo es demasiado largo.");
    QTest::keyClick(&box, Qt::Key_Escape);
  });
  QWidget& dialog = *QApplication::activeModalWidget();
  dialog.findChild<QLineEdit*>()->setText(QString(300, 'x'));
  auto* const save = dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save);
  QTest::mouseClick(save, Qt::LeftButton);
}

TEST(TheFileDialog, TakesANameAsItIsTyped) {
  const auto player = makePlayer();
  for (const std::string name : {"partida", "la \"otra\".txt", "\""}) {
    const std::string path = player->programFolder() + "/" + name;
    player->expectFile("Guardar", path, tryTooLongAName);
    EXPECT_EQ(player->fileDialog({true, "Guardar", player->programFolder(), "", "Todos|*.*"}),
              path);
  }
}

} // namespace
