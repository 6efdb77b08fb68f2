// The forms layer's heart: open windows, active child, focus, and which events an action raises.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>

#include "forms/desktop.h"
#include "forms/elements.h"
#include "forms/focus.h"
#include "forms/picture.h"
#include "forms/window.h"

namespace forms {

// One per program run. All of it happens on one thread, one event at a time.
class Forms {
public:
  explicit Forms(Desktop& desktop) : desktop_(desktop) {}
  Forms(const Forms&) = delete;
  Forms& operator=(const Forms&) = delete;

  // --- What the program asks ---------------------------------------------------------------

  Desktop& desktop() { return desktop_; }
  // Blocks the calling handler until the person has closed the box; ticks go on meanwhile.
  Answer messageBox(const std::string& text, BoxStyle style = BoxStyle::Information);
  Answer messageBox(const MessageBox& box);
  std::optional<std::string> fileDialog(const FileDialog& dialog);
  // Opens the program's frame window, as an event of its own.
  void startUp(Window& frame);
  Window* activeChild() const { return focus_.activeChild(); }
  const std::vector<Window*>& openWindows() const { return focus_.open(); }
  Focus& focus() { return focus_; }
  struct PictureFile {
    std::string path; // full
    PictureSize size;
  };
  // A picture or icon file, by its literal below the program folder; nothing when it cannot be
  // shown.
  std::optional<PictureFile> findPicture(std::string_view literal, OnFailure onFailure);

  // Title of every box without one of its own.
  std::string applicationTitle;
  // Runs when an event that the desktop reported has been handled to its end.
  std::function<void()> afterEvent;
  // Notes a failure that must not stop the event: `text` for the player, with the path behind it.
  void failed(const std::string& text, const std::string& path) {
    failures.try_emplace(text, path);
  }
  // The text for a picture that cannot be loaded.
  static constexpr const char* PictureFailure = "No se puede cargar la imagen:\r\n";
  // What has been noted since afterEvent last took it, the first path of each text: in a network
  // game days may pass behind a box.
  std::map<std::string, std::string> failures;

  // --- What the desktop reports: what a person did, or the clock ----------------------------
  // Actions on elements that are hidden, disabled or closed off by a box are passed over.

  // A mouse button went down. False: the action ends here, as the focus was not let go.
  bool pressed(Element& element, MouseButton button);
  // The left button was pressed and let go over the element, or a key did the same. Buttons, check
  // boxes, pictures, labels, menu entries.
  void clicked(Element& element);
  // A screen reader pressed the element: a click, and on a board what Enter does at the cursor, for
  // no pointer stands anywhere.
  void invoked(Element& element);
  // A button's Shortcut was pressed in its window.
  void shortcutPressed(Button& button);
  // The pointer stands at X, Y (twips) of the picture. This comes too often to be an event that
  // something waits for.
  void moved(Picture& picture, float X, float Y);
  // The text box holds this text now.
  void typed(TextBox& box, const std::string& text);
  // The person chose this item, perhaps the one that was chosen before.
  void chosen(DropList& list, int index);
  // Another child window shall be the active one. False: the one that was did not let it happen.
  bool activated(Window& child);
  // The focus went to the element by other means than a click. False: it was not let go.
  bool focusMoved(Element& element);
  // The Tab key: the next reachable element in the tab order, or the one before.
  void tabbed(Window& window, bool forwards);
  // A key that the focused element itself has no use for; `digit` (0 to 9) with Key::Digit.
  // False: it means nothing here.
  bool keyPressed(Window& window, Key key, int digit = 0);
  // The person asks to close the window.
  void closeRequested(Window& window);
  void ticked(Timer& timer);
  // The system asks whether the person's session may end. Asks what the first window's closing
  // asks, and closes nothing: another program may still hold the session up. False also while a
  // box waits for its answer.
  bool sessionMayEnd();
  // The session has ended. What a handler still does comes to its end without a window or a box.
  void sessionEnded() { ended_ = true; }
  bool hasEnded() const { return ended_; }

private:
  class EventScope; // from the report to the end of its handlers

  bool personMayUse(const Element& element) const;

  Desktop& desktop_;
  Focus focus_{desktop_};
  int boxes_ = 0; // message boxes and file dialogs on the screen
  int events_ = 0;
  bool ended_ = false; // the session, and with it the program
};

} // namespace forms
