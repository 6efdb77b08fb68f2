// Lets screen readers find the pictures and press them.
#pragma once

namespace forms::qt {

// Once per run, before the first window.
void installAccessiblePictures();

} // namespace forms::qt
