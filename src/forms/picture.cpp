#include "forms/picture.h"

#include "forms/forms.h"

namespace forms {

namespace {
constexpr int TwipsPerPixel = 15; // at 96 dpi
}

bool Picture::LoadPicture(const std::string& path) {
  Forms& forms = window().forms();
  const auto size = forms.desktop().pictureSize(path);
  if (!size) {
    if (forms.missingPicture.empty())
      forms.missingPicture = path;
    return false;
  }
  path_ = path;
  if (AutoSize) {
    const int frame = Border ? 2 : 0;
    Width = (size->width + frame) * TwipsPerPixel;
    Height = (size->height + frame) * TwipsPerPixel;
  }
  tellDesktop();
  return true;
}

void Picture::ZOrder() {
  zOrderRank = ++window().topmost_;
}

void Picture::restoreAsMade() {
  Element::restoreAsMade();
  path_.clear();
}

} // namespace forms
