// The views of all elements but the windows: label, text box, check box, list, button, menu entry
// and timer, and of the pictures that stand among them.
#pragma once

#include "forms/element.h"

namespace forms::qt {

class ElementView;
class WindowView;
struct Screen;

// Makes the view of an element that stands on `window`, which must have a place for it.
ElementView* makeView(Element& element, WindowView& window, Screen& screen);

} // namespace forms::qt
