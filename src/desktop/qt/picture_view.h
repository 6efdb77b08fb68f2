// The view of a picture, and of the keyboard's cursor on a board.
#pragma once

#include "forms/picture.h"

class QWidget;

namespace forms::qt {

class ElementView;
struct Screen;

ElementView* makePictureView(Picture& picture, Screen& screen, QWidget* form);

} // namespace forms::qt
