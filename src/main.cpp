// The game: puts one App on the Qt desktop and runs it.
#include "desktop/qt/qt_desktop.h"
#include "shell/app.h"

int main(int argc, char** argv) {
  forms::qt::QtDesktop desktop(argc, argv);
  falanges::App app(desktop, falanges::network::onOwnThread);
  desktop.connect(app.forms);
  app.start();
  return desktop.run();
}
