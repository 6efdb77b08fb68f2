#include "desktop/qt/zoom.h"

#include <algorithm>
#include <array>

namespace forms::qt {

namespace {

constexpr int Whole = 100;
constexpr std::array Steps{50,  55,  60,  65,  70,  75,  80,  85,  90,  95,  100,
                           110, 125, 150, 175, 200, 250, 300, 350, 400, 450, 500};

} // namespace

void Zoom::chooseBeside(int percent, bool larger) {
  const auto* const step = std::lower_bound(Steps.begin(), Steps.end(), percent);
  if (larger)
    chosen_ = step + 1 == Steps.end() ? percent : *(step + 1);
  else
    chosen_ = step == Steps.begin() ? percent : *(step - 1);
}

void Zoom::fit(UpTo largest) {
  chosen_.reset();
  largest_ = largest;
}

int Zoom::percent(const std::function<bool(int percent)>& fits) const {
  if (chosen_)
    return *chosen_;
  const int most = largest_ == UpTo::Whole ? Whole : Steps.back();
  const auto* step = std::find(Steps.begin(), Steps.end(), most);
  while (step != Steps.begin() && !fits(*step))
    --step;
  return *step;
}

} // namespace forms::qt
