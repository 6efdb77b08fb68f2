// The screen that the shared cases of the forms layer act on in this test program.
#include "scripted/scripted_desktop.h"

namespace scripted {

std::unique_ptr<Player> makePlayer() {
  return std::make_unique<ScriptedDesktop>();
}

} // namespace scripted
