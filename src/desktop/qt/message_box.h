// The program's message boxes, in Spanish on every system.
#pragma once

#include "forms/desktop.h"

class QWidget;

namespace forms::qt {

// Waits until the person has closed the box. `parent` may be nullptr.
Answer showMessageBox(const MessageBox& box, QWidget* parent);

} // namespace forms::qt
