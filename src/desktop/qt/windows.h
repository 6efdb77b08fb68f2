// The views of the windows: the frame, a child window inside it, one of its own.
#pragma once

namespace forms {
class Window;
}

namespace forms::qt {

class WindowView;
struct Screen;

WindowView* makeView(Window& window, Screen& screen);

} // namespace forms::qt
