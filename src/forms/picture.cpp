#include "forms/picture.h"

#include "forms/forms.h"

namespace forms {

bool Picture::LoadPicture(std::string_view literal, OnFailure onFailure) {
  const auto file = window().forms().findPicture(literal, onFailure);
  if (!file)
    return false;
  path_ = file->path;
  if (AutoSize) {
    Width = file->size.width * TwipsPerPixel + 2 * frameWidth();
    Height = file->size.height * TwipsPerPixel + 2 * frameWidth();
  }
  tellDesktop();
  return true;
}

void Picture::ZOrder() {
  zOrderRank = window().nextRank();
}

bool Picture::press(MouseButton button) {
  if (!Element::press(button))
    return false;
  raise(MouseDown, button);
  return true;
}

void Picture::startAnew(bool firstTime) {
  Element::startAnew(firstTime);
  path_.clear();
}

} // namespace forms
