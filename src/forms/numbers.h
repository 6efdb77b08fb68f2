// Numbers in texts: reading the number that a text begins with, and storing it in a whole item.
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace forms {

// The number that the text begins with, 0 if it begins with none: a sign, digits and one decimal
// point, no exponent. Blanks inside are skipped and the first other character ends it ("12abc" is
// 12). More digits than a double holds give infinity.
double Val(std::string_view text);

// The number as a whole-number item of type T stores it: the nearest whole one, an exact half to
// the even neighbour. Nothing when it does not fit.
template <class T> std::optional<T> stored(double number) {
  const double whole = std::nearbyint(number);
  if (!(whole >= std::numeric_limits<T>::min() && whole <= std::numeric_limits<T>::max()))
    return std::nullopt;
  return static_cast<T>(whole);
}

// As stored, with the nearest value that T holds in place of a refusal.
template <class T> T storedNearest(double number) {
  constexpr double Lowest = std::numeric_limits<T>::min();
  constexpr double Highest = std::numeric_limits<T>::max();
  return static_cast<T>(std::clamp(std::nearbyint(number), Lowest, Highest));
}

} // namespace forms
