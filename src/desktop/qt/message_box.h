// The program's message boxes, in Spanish on every system.
#pragma once

#include "forms/desktop.h"

class QIcon;
class QWidget;

namespace forms::qt {

// Waits until the person has closed the box. Without an icon of its own it has the application's.
// `parent` may be nullptr.
Answer showMessageBox(const MessageBox& box, const QIcon& icon, QWidget* parent);

} // namespace forms::qt
