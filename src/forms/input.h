// What a person presses: the keys and the mouse buttons that mean something to the program.
#pragma once

namespace forms {

enum class Key { Left, Right, Up, Down, Enter, Space, Delete, Escape, Digit };

enum class MouseButton { Left, Right, Other };

} // namespace forms
