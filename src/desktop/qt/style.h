// How windows and boxes are drawn, the same on every system.
#pragma once

namespace forms::qt {

// Gives the whole application its style, light colours and icons. Menus and boxes keep the system's
// font.
void applyStyle();

} // namespace forms::qt
