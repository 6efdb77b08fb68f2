// The network game over a file that Windows does not hand out for now.
#include "network/copies.h"
#include "windows/held_file.h"

namespace falanges {

using HeldFile = Network;

TEST_F(HeldFile, IsAskedForAtEachTickUntilItIsLetGo) {
  begin();
  {
    const scripted::HeldFile held(path, 0);
    follow({"A move 23 18, AB tick => ?? 12! 01p!", "AB tick 20 => ?? 12! 01p!"});
  }
  follow({"AB tick 1 => 12 12p. 12.", "B move 3 8, BA look => 21 21. 21p."});
}

} // namespace falanges
