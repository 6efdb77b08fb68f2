// Names that Qt's own file dialog would read otherwise than they are typed.
#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "desktop/qt/file_dialog.h"
#include "desktop/qt/qt_player.h"

using namespace scripted;

namespace {

// What the box in front says; it is answered.
std::string answeredBox() {
  QWidget& box = *QApplication::activeModalWidget();
  const auto* const text = box.findChild<QLabel*>("qt_msgbox_label");
  QTest::keyClick(&box, Qt::Key_Escape);
  return text ? text->text().toStdString() : "";
}

TEST(TheFileDialog, TakesANameAsItIsTyped) {
  const QtPlayer player;
  const TemporaryFolder folder;
  for (const char* name : {"partida", "la \"otra\".txt", "\""}) {
    const auto saveAs = [](const QString& typed) {
      QWidget& dialog = *QApplication::activeModalWidget();
      dialog.findChild<QLineEdit*>()->setText(typed);
      auto* const save = dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save);
      QTest::mouseClick(save, Qt::LeftButton);
    };
    QTimer::singleShot(0, [&] {
      std::string told;
      QTimer::singleShot(0, [&] { told = answeredBox(); });
      saveAs(QString(300, 'x'));
      EXPECT_EQ(told, "El nombre del archivo es demasiado largo.");
      saveAs(name);
    });
    const forms::FileDialog dialog{true, "Guardar", folder.path(), "", "Todos|*.*"};
    EXPECT_EQ(forms::qt::showFileDialog(dialog, nullptr), folder.file(name));
  }
}

} // namespace
