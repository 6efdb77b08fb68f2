// The dialog for opening and saving files: the system's own on Windows, where it knows the way to
// the network; elsewhere Qt's, in Spanish.
#pragma once

#include <optional>
#include <string>

#include "forms/desktop.h"

class QWidget;

namespace forms::qt {

// Waits until the person has closed the dialog, which starts in its folder or the nearest one above
// it that there is. The full path with the system's separators; nothing when cancelled. `parent`
// may be nullptr.
std::optional<std::string> showFileDialog(const FileDialog& dialog, QWidget* parent);

} // namespace forms::qt
