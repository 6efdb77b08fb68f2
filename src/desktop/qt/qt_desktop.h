// The real screen: Qt Widgets behind the seam that the forms layer works on.
#pragma once

#include <memory>

#include "forms/desktop.h"

namespace forms {

class Forms;

namespace qt {

// One per process. First make it, then connect the forms layer to it, open the first window, and
// run.
class QtDesktop final : public Desktop {
public:
  // argc and argv are main's and must live as long as the desktop. Ends the process with a line on
  // the standard error stream when there is no display.
  QtDesktop(int& argc, char** argv);
  ~QtDesktop() override;

  void connect(Forms& forms);
  // Handles the person's actions until the last window has closed. The process's exit code.
  int run();

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
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

} // namespace qt
} // namespace forms
