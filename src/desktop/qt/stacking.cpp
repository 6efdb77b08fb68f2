#include "desktop/qt/stacking.h"

#include <QVariant>
#include <QWidget>

namespace forms::qt {

namespace {

constexpr const char* RankProperty = "stackingRank";

} // namespace

void setStackingRank(QWidget& widget, int rank) {
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
