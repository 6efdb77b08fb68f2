// The views of all open windows and their elements, to be found from either side.
#pragma once

#include <QHash>

#include "forms/window.h"

class QWidget;

namespace forms::qt {

class ElementView;
class WindowView;

class Views {
public:
  void enter(const Element& element, ElementView* view) { elements_.insert(&element, view); }
  void enter(const Window& window, WindowView* view) { windows_.insert(&window, view); }
  // The view, from now on no longer entered. nullptr when there is none.
  ElementView* take(const Element& element) { return elements_.take(&element); }
  WindowView* take(const Window& window) { return windows_.take(&window); }

  // nullptr when there is none.
  ElementView* of(const Element& element) const { return elements_.value(&element); }
  WindowView* of(const Window& window) const { return windows_.value(&window); }
  QWidget* widgetOf(const Element& element) const;
  QList<ElementView*> elements() const { return elements_.values(); }
  QList<WindowView*> windows() const { return windows_.values(); }

private:
  QHash<const Element*, ElementView*> elements_;
  QHash<const Window*, WindowView*> windows_;
};

} // namespace forms::qt
