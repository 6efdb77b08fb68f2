// The screen that the shared cases of the forms layer act on in this test program.
#include "scripted/player.h"

namespace scripted {

std::unique_ptr<Player> makePlayer() {
  return std::make_unique<Player>();
}

} // namespace scripted
