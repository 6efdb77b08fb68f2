// The program's message boxes, in Spanish on every system.
#pragma once

#include <memory>

#include "forms/desktop.h"

class QIcon;
class QWidget;

namespace forms::qt {

// Waits until the person has closed the box. Without an icon of its own it has the application's.
// `parent` may be nullptr.
Answer showMessageBox(const MessageBox& box, const QIcon& icon, QWidget* parent);

// While the result lives, Windows tells a person who ends the session why it does not end. `asking`
// waits for an answer, on behalf of the window that it belongs to. Other systems ask for no reason.
[[nodiscard]] std::shared_ptr<void> sessionEndReason(const QWidget& asking);

} // namespace forms::qt
