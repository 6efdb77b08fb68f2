// The box with the program's credits, shown at its start and at its end.
#pragma once

#include "forms/desktop.h"

namespace falanges {

forms::MessageBox informationBox();

} // namespace falanges
