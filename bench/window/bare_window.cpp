// What any Qt program of this kind costs before it does anything: a frame with a menu and one empty
// child window. The measuring script starts it in turn with the game.
#include <QApplication>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QApplication::setStyle(QStringLiteral("Fusion"));
  QMainWindow frame;
  frame.setWindowTitle(QStringLiteral("Bare window"));
  frame.menuBar()->addMenu(QStringLiteral("&Menu"))->addAction(QStringLiteral("&Entry"));
  auto* const area = new QMdiArea;
  area->setBackground(QColor(0xC0, 0xFF, 0xC0));
  frame.setCentralWidget(area);
  QMdiSubWindow* const child = area->addSubWindow(new QWidget);
  child->setWindowTitle(QStringLiteral("Child"));
  child->setFixedSize(720, 700);
  frame.showMaximized();
  return QApplication::exec();
}
