// A child window inside the frame: fixed in size, with a close box. One with a board is shown in
// the size that fits, or that the person has chosen.
#pragma once

namespace forms {
class Window;
}

namespace forms::qt {

class WindowView;
struct Screen;

// To be made while the frame is on the screen.
WindowView* makeChildView(Window& window, Screen& screen);

} // namespace forms::qt
