// What happens by chance: the same for the same seed.
#pragma once

#include <random>
#include <string>
#include <vector>

#include "scripted/game.h"

namespace falanges {

class Chance {
public:
  explicit Chance(unsigned seed) : random_(seed) {}
  // From 0 to one less than the bound.
  int below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }
  template <class T> T anyOf(const std::vector<T>& all) {
    return all[static_cast<std::size_t>(below(static_cast<int>(all.size())))];
  }
  // From crowded to nearly empty.
  std::string board() {
    std::string drawing = blank(5 + below(4));
    const int crowd = 15 + below(80);
    for (char& square : drawing)
      if (const int unit = below(crowd); square == '.' && unit < 10)
        square = "BICEGbiceg"[unit];
    return drawing;
  }

private:
  std::mt19937 random_;
};

} // namespace falanges
