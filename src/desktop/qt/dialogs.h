// The program's dialog for opening and saving files, in Spanish on every system.
#pragma once

#include <optional>
#include <string>

#include "forms/desktop.h"

class QWidget;

namespace forms::qt {

// Waits until the person has closed the dialog. The full path with the system's separators; nothing
// when cancelled. `parent` may be nullptr.
std::optional<std::string> showFileDialog(const FileDialog& dialog, QWidget* parent);

} // namespace forms::qt
