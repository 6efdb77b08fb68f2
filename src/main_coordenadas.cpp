// The coordinate tool: a small program of its own beside the game.
#include "desktop/qt/qt_desktop.h"
#include "shell/form1.h"

int main(int argc, char** argv) {
  forms::qt::QtDesktop desktop(argc, argv);
  forms::Forms forms(desktop);
  falanges::Form1 form(forms);
  desktop.connect(forms);
  forms.startUp(form);
  return desktop.run();
}
