// What the system tells a person who ends the session while the program waits for an answer.
#pragma once

#include <memory>

class QWidget;

namespace forms::qt {

// While the result lives, Windows says in Spanish why the session does not end. `asking` waits for
// the answer, on behalf of the window that it belongs to. Other systems ask for no reason.
[[nodiscard]] std::shared_ptr<void> sessionEndReason(const QWidget& asking);

} // namespace forms::qt
