#include "desktop/qt/views.h"

#include "desktop/qt/element_view.h"

namespace forms::qt {

QWidget* Views::widgetOf(const Element& element) const {
  ElementView* const view = of(element);
  return view ? view->widget() : nullptr;
}

} // namespace forms::qt
