// What is painted rather than set: whole windows, held by the pictures in golden/.
// FALANGES_GOLDEN=write in the environment makes the pictures anew.
//
// `run` does steps of the person at the screen one by one: "menu ENTRY", "click ELEMENT", "close
// WINDOW", a key (Tab, Space, Up), or "paint WINDOW NAME", which holds the window against
// golden/NAME.png. `screen` is that person: `screen.expectBox(TEXT, ANSWER, painted(NAME))`
// announces a box with this text, or a modal window of this name: it is held against its picture,
// then answered. `app` is the program, `frame` its window around the others, `principal` what it
// knows of the game; `widgetOf(X)` is what shows X.
#include <QApplication>
#include <QDateTime>
#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QTreeView>

#include "desktop/qt/on_screen.h"

using namespace scripted;
using namespace falanges;

namespace {

// The widget is painted as golden/NAME.png shows it, but for 9 of the 256 levels of a colour.
void expectPainted(const char* name, QWidget& shown) {
  for (int i = 0; i < 2; ++i) { // Qt lays out and paints when timers of five milliseconds run out
    QTest::qSleep(6);
    QCoreApplication::processEvents();
  }
  QWidget& top = *shown.window();
  const QRect place(shown.mapTo(&top, QPoint()), shown.size());
  // Coarse levels make files of a third: the wood of the boards is all shades.
  const QImage seen = onScreen(top).copy(place).convertToFormat(QImage::Format_RGB555);
  const QString file = QString(name) + ".png", golden = QT_TESTCASE_SOURCEDIR "/desktop/qt/golden/";
  EXPECT_TRUE(qgetenv("FALANGES_GOLDEN") != "write" || seen.save(golden + file, nullptr, 0));
  const QImage known(golden + file);
  bool same = known.size() == seen.size();
  for (int y = 0; y < seen.height(); ++y)
    for (int x = 0; same && x < seen.width(); ++x) // decoders may differ by a step of the levels
      same = isNear(seen.pixel(x, y), known.pixel(x, y), 9);
  if (same)
    return;
  const QString beside = QCoreApplication::applicationDirPath() + "/seen-" + file;
  EXPECT_TRUE(seen.save(beside));
  ADD_FAILURE() << name << " differs; seen: " << beside.toStdString();
}

class Golden : public Game {
protected:
  void SetUp() override {
    if (!QLatin1String(qVersion()).startsWith(QLatin1String("6.4.")) ||
        QGuiApplication::platformName() != "offscreen")
      GTEST_SKIP() << "golden pictures are of Qt 6.4 on the screen without a display";
    QApplication::setCursorFlashTime(0);
    screen.verbs["paint"] = [this](auto& window, auto& name) {
      expectPainted(name.c_str(), widgetOf(screen.get<Window>(window)));
    };
  }
  static Meanwhile painted(const char* name) {
    return [name] { expectPainted(name, *QApplication::activeModalWidget()); };
  }
};

TEST_F(Golden, TheWindowsAndBoxesOfTheGame) {
  // Symbol, title, text and button of a box that tells something.
  screen.expectBox(informationBox().text, Answer::Ok, painted("informacion"));
  app.start();
  // The lower tick box is ticked and marked for the keyboard.
  run("menu mnuOpciones, Tab, Space, paint frmOpciones opciones");
  // The flag in the palette was raised, then the infantry; both armies in their colours, each the
  // other's mirror image; the keyboard's frame on square 19, right of the last unit, faint while
  // the keyboard is on the button, which is framed.
  run("menu mnuNuevoJuego, click picBAN, Tab, Tab, Left, Enter, Right, 1, Enter,"
      "Right, Enter, Up, Enter, Right, Shift+Tab, paint frmNuevoJuego nuevo-juego");
  // Lines one below the other, one of them too long for this window of its own.
  principal.TextoVolcado = "Uno\r\nDos " + std::string(200, 'x');
  screen.expectBox("frmMsgBox", Answer::Ok, [&] { run("paint frmMsgBox datos, Escape"); });
  app.msgBox.showModal();
  // The entries of the deployment with their letters, the one that is grey, the list of windows.
  QWidget& shownFrame = widgetOf(frame);
  QMenu& menu = *shownFrame.findChild<QMenuBar*>()->actions().constFirst()->menu();
  for (int i = 0; i < 2; ++i) { // that list is made anew each time
    menu.popup({});
    expectPainted("menu", menu);
    menu.close();
  }
  // A question: No is the default.
  screen.expectBox("DEBE colocar al menos 1 Unidad de cada tipo\r\n" + StartQuestion, Answer::Yes,
                   painted("pregunta"));
  // The selected unit raised, markers where it may go, who is in turn, the keyboard's frame.
  run("click btnIniciar, click picUnidad(18), Up, paint frmEnJuego en-juego");
  // A frame too small for the board has scroll bars.
  shownFrame.showNormal();
  const QRect place(0, 0, qRound(frame.Width / 15.0), qRound(frame.Height / 15.0)); // in pixels
  EXPECT_EQ(shownFrame.frameGeometry(), place) << "with its edge";
  shownFrame.resize(300, 200);
  expectPainted("marco", shownFrame);
  shownFrame.showMaximized();
  shownFrame.showNormal();
  EXPECT_EQ(shownFrame.size(), QSize(300, 200)) << "as the person has left it";
  // The question with the warning's symbol.
  screen.expectBox(LeaveQuestion, Answer::No, painted("aviso"));
  run("close frmPrincipal");
}

// Proposed name, kinds of files, columns and buttons in the program's language, a saved game with
// its size and day; in the nearest folder that there is. Where that lies differs from run to run
// and is not painted.
TEST_F(Golden, TheFileDialog) {
  const TemporaryFolder folder;
  QFile game(QString::fromStdString(folder.file("partida.txt")));
  ASSERT_TRUE(writeTextFile(folder.file("partida.sav"), "")); // left out: no text file
  ASSERT_TRUE(game.open(QIODevice::WriteOnly) && game.resize(1234) &&
              game.setFileTime(QDateTime({2005, 3, 9}, {8, 5}), QFileDevice::FileModificationTime));
  screen.expectFile("Guardar Juego", std::nullopt, [] {
    QWidget& dialog = *QApplication::activeModalWidget();
    for (const char* part : {"lookInCombo", "sidebar"})
      dialog.findChild<QWidget*>(part)->hide();
    const auto& files = *dialog.findChild<QTreeView*>();
    const auto cell = [&](int column) {
      return files.model()->index(0, column, files.rootIndex()).data().toString();
    };
    EXPECT_TRUE(QTest::qWaitFor([&] { return cell(0) == "partida.txt" && !cell(3).isEmpty(); }));
    expectPainted("archivo", dialog);
  });
  // To save; title, folder, proposed name, kinds of files.
  screen.fileDialog({true, "Guardar Juego", folder.file("no") + "/hay", "uno.txt",
                     "Archivos de texto|*.txt|Todos los archivos|*.*"});
}

} // namespace
