#include "desktop/qt/element_view.h"

namespace forms::qt {

void ElementView::leave() {
  takeOff();
  forget();
}

} // namespace forms::qt
