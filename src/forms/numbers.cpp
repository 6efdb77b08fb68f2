#include "forms/numbers.h"

#include <charconv>
#include <cmath>

namespace forms {

double Val(std::string_view text) {
  std::string number;
  bool point = false;
  for (const char c : text) {
    if (c == ' ' || c == '\t')
      continue;
    const bool sign = (c == '-' || c == '+') && number.empty();
    const bool firstPoint = c == '.' && !point;
    if (!sign && !firstPoint && (c < '0' || c > '9'))
      break;
    point = point || firstPoint;
    number += c;
  }
  if (!number.empty() && number.front() == '+')
    number.erase(0, 1);
  double value = 0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value,
                                            std::chars_format::fixed);
  if (error == std::errc::result_out_of_range) {
    // Too many digits in front of the point, or a fraction too small to tell from 0.
    const bool huge = number.find_first_of("123456789") < number.find('.');
    if (!huge)
      return 0;
    return number.front() == '-' ? -HUGE_VAL : HUGE_VAL;
  }
  return value;
}

} // namespace forms
