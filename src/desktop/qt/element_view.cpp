#include "desktop/qt/element_view.h"

#include "desktop/qt/conversions.h"

namespace forms::qt {

void ElementView::remove() {
  detach();
  letGo(*this);
}

WidgetView::WidgetView(Element& element, Reporter& reporter, QWidget* widget)
    : ElementView(element, reporter, widget), widget_(*widget) {
  widget->setObjectName(toQt(element.name()));
  watch(*widget);
}

void WidgetView::sync() {
  const auto quiet = reporter().quiet();
  syncWidget();
}

void WidgetView::remove() {
  const auto quiet = reporter().quiet();
  detach();
  widget_.hide();
  letGo(widget_);
}

} // namespace forms::qt
