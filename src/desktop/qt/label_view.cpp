#include "desktop/qt/label_view.h"

#include <QLabel>

#include "desktop/qt/conversions.h"
#include "desktop/qt/look.h"

namespace forms::qt {

LabelView::LabelView(Label& label, Services services, QWidget* form)
    : WidgetView(label, services, new QLabel(form)) {
  auto& shown = *static_cast<QLabel*>(widget());
  shown.setTextFormat(Qt::PlainText);
  shown.setAlignment(Qt::AlignLeft | Qt::AlignTop);
  shown.setAutoFillBackground(label.BackColor.has_value());
  applyColors(shown, label, QPalette::Window, QPalette::WindowText);
  setClicks(Clicks::OfMouse);
}

void LabelView::syncKind() {
  auto& shown = *static_cast<QLabel*>(widget());
  shown.setText(caption());
  // Where there is room for one line only, a wrapped word would vanish altogether.
  shown.setWordWrap(shown.height() >= 2 * shown.fontMetrics().lineSpacing());
}

QString LabelView::caption() const {
  return toQt(elementAs<Label>()->Caption);
}

} // namespace forms::qt
