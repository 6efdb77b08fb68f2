// What lies in front of what on a form.
#pragma once

#include <limits>

#include <QVariant>
#include <QWidget>

namespace forms::qt {

// Rank of what lies in front of every element.
constexpr int FrontRank = std::numeric_limits<int>::max();

// Moves the widget behind all of its form that have a higher rank and in front of all others. A
// widget that was never given a rank has rank 0.
inline void setStackingRank(QWidget& widget, int rank) {
  constexpr const char* RankProperty = "stackingRank";
  widget.setProperty(RankProperty, rank);
  // From the hindmost to the frontmost.
  for (QObject* sibling : widget.parentWidget()->children()) {
    auto* const other = qobject_cast<QWidget*>(sibling);
    if (other && other != &widget && other->property(RankProperty).toInt() > rank)
      return widget.stackUnder(other);
  }
  widget.raise();
}

} // namespace forms::qt
