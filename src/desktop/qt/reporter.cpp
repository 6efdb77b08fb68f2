#include "desktop/qt/reporter.h"

#include <utility>

namespace forms::qt {

void Reporter::bury(QObject* object) {
  buried_.append(object);
  if (reports_ == 0)
    deleteBuried();
}

void Reporter::deleteBuried() {
  for (const auto& object : std::exchange(buried_, {}))
    if (object)
      object->deleteLater();
}

} // namespace forms::qt
