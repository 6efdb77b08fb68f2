// What the play screen tells the network game that may be played on it.
#pragma once

namespace falanges {

// Nothing comes of any of them while no network game runs.
class NetworkPlay {
public:
  // A move has passed the turn.
  virtual void turnPassed() = 0;
  // The move that has just been made would win. True when it does: then the other copy is told.
  virtual bool moveWins() = 0;
  // The play window is to close. False when the player stays, so that the other copy is told.
  virtual bool mayLeave() = 0;

protected:
  ~NetworkPlay() = default;
};

} // namespace falanges
