// What is painted rather than set: whole windows, held by the pictures in golden/.
// FALANGES_GOLDEN=write in the environment makes the pictures anew.
#include <QApplication>
#include <QComboBox>
#include <QDateTime>
#include <QFile>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QTreeView>
#include <gtest/gtest.h>

#include "desktop/qt/agrees.h"
#include "desktop/qt/qt_player.h"
#include "scripted/test_windows.h"
#include "shell/app.h"
#include "shell/form1.h"
#include "shell/information_box.h"

using namespace scripted;
using forms::Key;

namespace {

// What holds all pixels that differ by more than a step of the coarse levels, as decoders may.
QRect difference(const QImage& a, const QImage& b) {
  if (a.size() != b.size())
    return a.rect() | b.rect();
  QRect all;
  for (int y = 0; y < a.height(); ++y)
    for (int x = 0; x < a.width(); ++x)
      if (!isNear(a.pixel(x, y), b.pixel(x, y), 9))
        all |= QRect(x, y, 1, 1);
  return all;
}

void expectPainted(const char* name, QWidget& shown) {
  QCoreApplication::processEvents();
  QWidget& top = *shown.window();
  const QRect place(shown.mapTo(&top, QPoint()), shown.size());
  // Coarse levels make files of a third: the wood of the boards is all shades.
  const QImage seen = onScreen(top).copy(place).convertToFormat(QImage::Format_RGB555);
  const QString file = QString(name) + ".png", golden = QT_TESTCASE_SOURCEDIR "/desktop/qt/golden/";
  EXPECT_TRUE(qgetenv("FALANGES_GOLDEN") != "write" || seen.save(golden + file, nullptr, 0));
  const QRect where = difference(seen, QImage(golden + file));
  if (where.isNull())
    return;
  const QString beside = QCoreApplication::applicationDirPath() + "/seen-" + file;
  seen.save(beside);
  ADD_FAILURE() << name << " differs from x " << where.left() << ", y " << where.top() << " to x "
                << where.right() << ", y " << where.bottom() << "; seen: " << beside.toStdString();
}

class Golden : public testing::Test {
protected:
  void SetUp() override {
    if (!QLatin1String(qVersion()).startsWith(QLatin1String("6.4.")))
      GTEST_SKIP() << "golden pictures are of Qt 6.4, this is " << qVersion();
    if (QGuiApplication::platformName() != "offscreen" || qApp->devicePixelRatio() != 1)
      GTEST_SKIP() << "golden pictures are of the screen without a display, at scale 1";
    QApplication::setCursorFlashTime(0);
  }
  static Meanwhile painted(const char* name) {
    return [name] { expectPainted(name, *QApplication::activeModalWidget()); };
  }
  void keys(std::initializer_list<Key> pressed) {
    for (const Key key : pressed)
      player.key(key);
  }

  QtPlayer player;
};

TEST_F(Golden, TheGame) {
  falanges::App app(player);
  player.expectBox(falanges::informationBox().text, forms::Answer::Ok, painted("informacion"));
  app.start();
  player.menu(app.frame.mnuOpciones);
  player.tab();
  player.key(Key::Space);
  expectPainted("opciones", player.widget(app.opciones));
  player.menu(app.frame.mnuNuevoJuego);
  player.click(app.nuevoJuego.picBAN);
  player.tab(), player.tab(); // to the board
  keys({Key::Left, Key::Enter, Key::Right});
  player.key(Key::Digit, 1);
  keys({Key::Enter, Key::Right, Key::Enter, Key::Up, Key::Enter, Key::Right});
  expectPainted("nuevo-juego", player.widget(app.nuevoJuego));
  app.principal.TextoVolcado = "Uno\r\nDos";
  player.expectBox("frmMsgBox", forms::Answer::Ok, [&] {
    expectPainted("datos", player.widget(app.msgBox));
    player.key(Key::Escape);
  });
  app.msgBox.showModal();
  QWidget& frame = player.widget(app.frame);
  QMenu& menu = *frame.findChild<QMenuBar*>()->actions().constFirst()->menu();
  for (int i = 0; i < 2; ++i) { // the list of windows is made anew each time
    menu.popup({});
    expectPainted("menu", menu);
    menu.close();
  }
  player.expectBox("DEBE colocar al menos 1 Unidad de cada tipo\r\n"
                   "¿Iniciar el juego con la disposición actual de Unidades en el Tablero?",
                   forms::Answer::Yes, painted("pregunta"));
  player.click(app.nuevoJuego.btnIniciar);
  player.click(*app.enJuego.picUnidad(18));
  player.key(Key::Up);
  expectPainted("en-juego", player.widget(app.enJuego));
  frame.showNormal();
  frame.resize(300, 200);
  expectPainted("marco", frame);
  player.expectBox("¿Está seguro de salir y cerrar todo?", forms::Answer::No, painted("aviso"));
  EXPECT_FALSE(player.closeWindow(app.frame));
}

// In the nearest folder that there is. Where that lies differs from run to run and is not painted.
TEST_F(Golden, TheFileDialog) {
  TestProgram program(player);
  const TemporaryFolder folder;
  QFile game(QString::fromStdString(folder.file("partida.txt")));
  ASSERT_TRUE(game.open(QIODevice::WriteOnly) && game.resize(1234) &&
              game.setFileTime(QDateTime({2005, 3, 9}, {8, 5}), QFileDevice::FileModificationTime));
  player.expectFile("Guardar Juego", std::nullopt, [] {
    QWidget& dialog = *QApplication::activeModalWidget();
    dialog.findChild<QComboBox*>("lookInCombo")->hide();
    dialog.findChild<QListView*>("sidebar")->hide();
    const auto& files = *dialog.findChild<QTreeView*>();
    EXPECT_TRUE(QTest::qWaitFor([&] { return files.model()->rowCount(files.rootIndex()) == 1; }));
    expectPainted("archivo", dialog);
  });
  program.forms.fileDialog({true, "Guardar Juego", folder.file("no") + "/hay", "uno.txt",
                            "Archivos de texto|*.txt|Todos los archivos|*.*"});
}

TEST_F(Golden, TheCoordinateTool) {
  forms::Forms layer(player);
  falanges::Form1 tool(layer);
  layer.startUp(tool);
  player.click(tool.Picture3);
  expectPainted("coordenadas", player.widget(tool));
}

} // namespace
