#include "desktop/qt/session_end.h"

#include <QWidget>

#include <windows.h>

namespace forms::qt {

std::shared_ptr<void> sessionEndReason(const QWidget& asking) {
  const auto window = reinterpret_cast<HWND>(asking.window()->winId());
  ShutdownBlockReasonCreate(window, L"El juego espera la respuesta a una pregunta.");
  return {window, [](HWND named) { ShutdownBlockReasonDestroy(named); }};
}

} // namespace forms::qt
