// What the player is told of pictures that cannot be loaded.
#pragma once

#include <string>

#include "forms/forms.h"

namespace falanges {

// Looks at all pictures of the game and names each that is missing, or the whole folder. `path` is
// that of the one that was found missing.
std::string missingPicturesText(forms::Forms& forms, const std::string& path);

} // namespace falanges
