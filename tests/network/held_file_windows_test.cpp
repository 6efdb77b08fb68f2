// The network game over a file that Windows does not hand out for now.
#include "network/copies.h"
#include "windows/held_file.h"

namespace falanges {

using HeldFile = Network;

TEST_F(HeldFile, IsAskedForAtEachTickUntilItIsLetGo) {
  begin();
  {
    const scripted::HeldFile held(path, 0);
    follow({"move A 23 18, tick AB => ?? 12! 01p!", "tick AB 20 => ?? 12! 01p!"});
  }
  follow({"tick AB 1 => 12 12p. 12.", "move B 3 8, look BA => 21 21. 21p."});
}

} // namespace falanges
