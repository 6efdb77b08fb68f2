// The seam between the program and the screen it runs on: all that the logic cannot do by itself.
#pragma once

#include <optional>
#include <string>

namespace forms {

class Element;
class Window;

// Style of a message box; the numbers are part of the program's texts about boxes.
enum class BoxStyle {
  Information = 64,       // information symbol, OK
  WarningYesNo = 308,     // warning symbol, Yes and No, No is the default
  InformationYesNo = 324, // information symbol, Yes and No, No is the default
};

enum class Answer { Ok = 1, Yes = 6, No = 7 };

struct MessageBox {
  std::string text; // lines end in CR LF
  BoxStyle style = BoxStyle::Information;
  std::string title;
  std::string icon; // path of the file; empty: that of the frame
};

struct FileDialog {
  bool save = false;
  std::string title;
  std::string folder;   // where it starts; need not exist
  std::string fileName; // shown as the proposed name
  std::string filter;   // pairs "description|pattern", joined by "|"
};

// Pixels of a picture at 96 dpi.
struct PictureSize {
  int width = 0;
  int height = 0;
};

struct DateTime {
  int year = 0, month = 0, day = 0;
  int hour = 0, minute = 0, second = 0; // hours 0 to 23
};

// A desktop shows what the elements' properties say and reports to Forms what the person did.
// It decides nothing: which event an action raises is the forms layer's business. All texts are
// UTF-8, all measures twips unless said otherwise. The program owns every element and window.
class Desktop {
public:
  virtual ~Desktop() = default;

  // The window's opening steps have run: show it with all its elements.
  virtual void windowOpened(Window& window) = 0;
  // Take the window off the screen. After the frame has gone, the process ends. May be called
  // from inside an event of the very window.
  virtual void windowClosed(Window& window) = 0;
  // Handle the person's actions until `window`, which is open, has closed.
  virtual void waitModal(Window& window) = 0;
  // A property of an element, or of a window itself, has another value; or the element is new.
  // Called only while the window is on the screen. It must not report a person's action for it.
  virtual void changed(Element& element) = 0;
  // The element is about to be destroyed. May be called from inside its own event.
  virtual void removed(Element& element) = 0;
  // Give the keyboard focus to the element; a child window: make it the active one.
  virtual void focusAsked(Element& element) = 0;
  // Show the box and wait for the answer; closing it by other means is Ok or No. The timer goes on.
  virtual Answer messageBox(const MessageBox& box) = 0;
  // Ask for a file and wait. The full path; nothing when cancelled. The dialog adds no extension
  // and does not care whether the file exists. The timer goes on.
  virtual std::optional<std::string> fileDialog(const FileDialog& dialog) = 0;
  // Size of a picture or icon file; nothing when it cannot be shown.
  virtual std::optional<PictureSize> pictureSize(const std::string& path) = 0;
  // The local time of the system's clock.
  virtual DateTime now() = 0;
  // Folder of the program file, with the system's separators and none at its end. Empty when it is
  // not known, for its path is not UTF-8, and for the root of the disk.
  virtual std::string programFolder() = 0;
};

} // namespace forms
