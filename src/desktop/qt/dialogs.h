// The program's message boxes and its dialog for opening and saving files, in Spanish on every
// system.
#pragma once

#include <optional>
#include <string>

#include "forms/desktop.h"

class QIcon;
class QWidget;

namespace forms::qt {

// Both wait until the person has closed them. `parent` may be nullptr.
Answer showMessageBox(const MessageBox& box, const QIcon& icon, QWidget* parent);
// The full path with the system's separators; nothing when cancelled.
std::optional<std::string> showFileDialog(const FileDialog& dialog, QWidget* parent);

} // namespace forms::qt
