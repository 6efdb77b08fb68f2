// The real screen: Qt Widgets behind the seam that the forms layer works on.
#pragma once

#include <QApplication>
#include <QHash>

#include "desktop/qt/focus_keeper.h"
#include "desktop/qt/picture_store.h"
#include "desktop/qt/reporter.h"
#include "forms/desktop.h"

namespace forms::qt {

class ElementView;

// The application, which the system may ask whether the person's session may end.
class Application final : public QApplication {
public:
  Application(int& argc, char** argv, Reporter& reporter);

protected:
  bool event(QEvent* event) override;

private:
  Reporter& reporter_;
};

// One per process. First make it, then connect the forms layer to it, open the first window, and
// run. Owns the views of all windows and elements that stand on the screen.
class QtDesktop final : public Desktop {
public:
  // argc and argv are main's and must live as long as the desktop. Ends the process with a line on
  // the standard error stream when there is no display.
  QtDesktop(int& argc, char** argv);
  // Takes what is left off the screen; its windows and elements may be gone by then.
  ~QtDesktop() override;

  void connect(Forms& forms) { reporter_.connect(forms); }
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

  // --- What the views need -----------------------------------------------------------------------

  Reporter& reporter() { return reporter_; }
  FocusKeeper& focus() { return focus_; }
  PictureStore& pictures() { return pictures_; }
  // The size that the person has chosen for a window until the program ends, however often it is
  // closed and opened; 0: the one that fits.
  int& chosenPercent(const Window& window) { return chosenPercents_[&window]; }
  // nullptr while the frame is not on the screen.
  QWidget* frame() const { return frame_; }
  // The view of an element or a window. That there is none, or one of another kind, is a fault of
  // the program, which ends the process.
  template <class View> View& viewOf(const Element& element) const {
    auto* const view = dynamic_cast<View*>(views_.value(&element));
    if (!view)
      qFatal("%s is not on the screen", element.name().c_str());
    return *view;
  }

private:
  // The window that a box belongs to; nullptr when there is none yet.
  QWidget* front() const;

  Reporter reporter_;
  Application application_;
  PictureStore pictures_;
  FocusKeeper focus_{*this};
  QHash<const Element*, ElementView*> views_; // windows are elements too
  QHash<const Window*, int> chosenPercents_;
  QWidget* frame_ = nullptr;
};

} // namespace forms::qt
