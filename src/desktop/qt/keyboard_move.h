// Moves a child window by the arrow keys.
#pragma once

class QMdiSubWindow;

namespace forms::qt {

// Until Enter, or until Escape takes it back or a mouse button is pressed. Qt's own way moves the
// pointer too, which not every system allows.
void moveByKeyboard(QMdiSubWindow& child);

} // namespace forms::qt
