#include "desktop/qt/check_box_view.h"

#include <QCheckBox>
#include <QStyle>

#include "desktop/qt/look.h"
#include "desktop/qt/reporter.h"

namespace forms::qt {

CheckBoxView::CheckBoxView(CheckBox& box, Services services, QWidget* form)
    : WidgetView(box, services, new QCheckBox(form)) {
  applyColors(this->box(), box, QPalette::Base, QPalette::Text);
  // Not clicked: a screen reader toggles the box without it.
  connect(&this->box(), &QCheckBox::toggled, this, [this] { toggled(); });
}

QCheckBox& CheckBoxView::box() const {
  return *static_cast<QCheckBox*>(widget());
}

void CheckBoxView::syncKind() {
  box().setChecked(elementAs<CheckBox>()->Value != 0);
}

// The style's box may be a little larger than the element; it must not be cut.
QRect CheckBoxView::placeFor(const QRect& wanted) const {
  const QSize drawn(box().style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, &box()),
                    box().style()->pixelMetric(QStyle::PM_IndicatorHeight, nullptr, &box()));
  QRect place(wanted.topLeft(), wanted.size().expandedTo(drawn));
  place.moveCenter(wanted.center());
  return place;
}

void CheckBoxView::toggled() {
  if (services().reporter.isQuiet())
    return;
  click();
  // The forms layer may have refused the click.
  sync();
}

} // namespace forms::qt
