// Which windows are open, which child window is active, and where the keyboard's focus is.
#pragma once

#include <map>
#include <vector>

#include "forms/desktop.h"

namespace forms {

// One per program run, part of Forms. What it moves raises the events of departure; putting the
// focus back inside one of those is no departure.
class Focus {
public:
  explicit Focus(Desktop& desktop) : desktop_(desktop) {}

  // In the order of their opening.
  const std::vector<Window*>& open() const { return open_; }
  // The open child windows, the active one last.
  const std::vector<Window*>& children() const { return children_; }
  // The active child window, or nullptr.
  Window* activeChild() const { return children_.empty() ? nullptr : children_.back(); }
  // The element of the window that has the focus, or nullptr.
  Element* of(const Window& window) const;

  // The window stands there now, or no more.
  void opened(Window& window);
  void closed(Window& window);
  // Makes a child window the active one; any other window needs no such thing. False: the one that
  // was did not let it happen.
  bool activate(Window& window);
  // As Element::SetFocus.
  bool take(Element& element);
  // The element goes, or cannot be used any more. Hands the focus on without any event, and to none
  // that would act when it leaves again.
  void vanishes(Element& element);
  // Where the Tab key leads; nullptr when there is nothing.
  Element* behind(Window& window, bool forwards) const;

private:
  // The child with its focus.
  void show(Window& child);

  Desktop& desktop_;
  std::vector<Window*> open_;
  std::vector<Window*> children_;
  std::map<const Window*, Element*> focused_; // of the open windows
  bool leaving_ = false;                      // handlers of departure are under way
};

} // namespace forms
