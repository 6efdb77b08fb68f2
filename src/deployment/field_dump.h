// The board's records as text, for whoever looks into a board that seems wrong.
#pragma once

#include <string>

#include "model/principal.h"

namespace falanges {

// One line for each square in play, with its number and its six fields.
std::string fieldDump(const Principal& principal);

} // namespace falanges
