// The real screen: Qt Widgets behind the seam that the forms layer works on.
#pragma once

#include "desktop/qt/application.h"
#include "desktop/qt/screen.h"
#include "forms/desktop.h"

namespace forms::qt {

// One per process. First make it, then connect the forms layer to it, open the first window, and
// run. Owns the views of all windows and elements that stand on the screen.
class QtDesktop final : public Desktop {
public:
  // argc and argv are main's and must live as long as the desktop. Ends the process with a line on
  // the standard error stream when there is no display.
  QtDesktop(int& argc, char** argv);
  // Takes what is left off the screen; its windows and elements may be gone by then.
  ~QtDesktop() override;

  void connect(Forms& forms) { screen_.reporter.connect(forms); }
  // Handles the person's actions until the last window has closed. The process's exit code.
  int run();

  // --- What the forms layer asks -----------------------------------------------------------------

  void windowOpened(Window& window) override;
  void windowClosed(Window& window) override;
  void waitModal(Window& window) override;
  void changed(Element& element) override;
  void removed(Element& element) override;
  void focusAsked(Element& element) override;
  Answer messageBox(const MessageBox& box) override;
  std::optional<std::string> fileDialog(const FileDialog& dialog) override;
  std::optional<PictureSize> pictureSize(const std::string& path) override;
  DateTime now() override;
  std::string programFolder() override;

private:
  // The window that a box belongs to; nullptr when there is none yet.
  QWidget* front() const;

  Application application_;
  Screen screen_;
};

} // namespace forms::qt
