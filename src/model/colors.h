// The colours that the windows share.
#pragma once

#include "forms/element.h"

namespace falanges {

constexpr forms::Color PaleGreen{0xC0, 0xFF, 0xC0};
constexpr forms::Color PaleBlue{0xC0, 0xC0, 0xFF};
constexpr forms::Color ButtonGreen{128, 255, 128};
constexpr forms::Color White{255, 255, 255};

} // namespace falanges
