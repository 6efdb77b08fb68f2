// Every colour that a window of the game asks for, by what it is on. What the screen draws on its
// own account, such as the frame around the keyboard's square, is coloured in src/desktop/qt/.
#pragma once

#include "forms/element.h"

namespace falanges {

constexpr forms::Color FrameGround{0xC0, 0xFF, 0xC0};
constexpr forms::Color DeploymentGround{0, 192, 0};
constexpr forms::Color PlayGround = FrameGround;
constexpr forms::Color OptionsGround{0xC0, 0xC0, 0xFF};
constexpr forms::Color CheckBoxGround{255, 255, 255};
constexpr forms::Color ButtonGround{128, 255, 128};
constexpr forms::Color UnitGround{255, 255, 255}; // seen where a unit's picture is missing
constexpr forms::Color MarkerColor = OptionsGround;
constexpr forms::Color Player1Text{0, 0, 255};
constexpr forms::Color Player2Text{255, 0, 0};

} // namespace falanges
