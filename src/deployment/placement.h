// Whether a unit may be placed on a square, and in which words it is refused.
#pragma once

#include <optional>
#include <string>

#include "model/principal.h"

namespace falanges {

// Why the unit of TUnidadSeleccionada may not stand on the free square n of the board; nothing
// when it may. The rows are looked at before the flags.
std::optional<std::string> placementRefusal(const Principal& principal, int n);

} // namespace falanges
