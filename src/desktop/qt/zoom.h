// The size in which windows with a board are shown, until the program ends.
#pragma once

#include <functional>
#include <optional>

namespace forms::qt {

// In steps, percent of the size at 96 dpi: the one that the person has chosen, or the largest that
// there is room for, up to the whole size or to the last one.
class Zoom {
public:
  // Chooses the step beside this size; the last one itself.
  void chooseBeside(int percent, bool larger);
  enum class UpTo { Whole, Last };
  // Chooses none: what fits.
  void fit(UpTo largest);
  // Asks of one step after another whether it fits; the smallest one counts as fitting.
  int percent(const std::function<bool(int percent)>& fits) const;

private:
  std::optional<int> chosen_;
  UpTo largest_ = UpTo::Whole;
};

} // namespace forms::qt
