// What the winner's box says.
#pragma once

#include <string>

#include "play/victory.h"

namespace falanges {

// The text of the box for one of the three ways in which JugadorActual has won.
std::string victoryText(Victory victory, int JugadorActual);

} // namespace falanges
