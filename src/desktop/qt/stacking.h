// Which of two widgets on a form lies in front of the other.
#pragma once

#include <limits>

class QWidget;

namespace forms::qt {

// Rank of what lies in front of every element.
constexpr int FrontRank = std::numeric_limits<int>::max();

// Moves the widget behind all of its form that have a higher rank and in front of all others. A
// widget that was never given a rank has rank 0.
void setStackingRank(QWidget& widget, int rank);

} // namespace forms::qt
