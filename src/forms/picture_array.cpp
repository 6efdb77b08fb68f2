#include "forms/picture_array.h"

#include "forms/forms.h"

namespace forms {

PictureArray::PictureArray(Window& window, std::string_view name) : pattern(window, name, 0) {
  pattern.Visible = false;
  window.enter(*this);
}

bool PictureArray::Load(int i) {
  if (i < 1 || i > Last || slot(i))
    return false;
  auto made = std::make_unique<Picture>(pattern.window(), pattern.arrayName(), i);
  // First of all, for the desktop hears of the element with the first assignment.
  made->Visible = false;
  made->Width = pattern.Width.get();
  made->Height = pattern.Height.get();
  made->BackColor = pattern.BackColor;
  made->Border = pattern.Border;
  // Only what can be clicked says so to a screen reader.
  if (Click)
    made->Click = [this, i] { Click(i); };
  if (inviting)
    made->inviting = [this, i] { return inviting(i); };
  made->MouseDown = [this, i](MouseButton button) {
    if (MouseDown)
      MouseDown(i, button);
  };
  made->MouseMove = [this, i](float, float) {
    if (MouseMove)
      MouseMove(i);
  };
  slot(i) = std::move(made);
  ++loaded_;
  return true;
}

bool PictureArray::Unload(int i) {
  if (i < 1 || i > Last || !slot(i))
    return false;
  const std::unique_ptr<Picture> gone = std::move(slot(i));
  --loaded_;
  Window& window = gone->window();
  if (window.isOpen()) {
    window.forms().focus().vanishes(*gone);
    window.forms().desktop().removed(*gone);
  }
  return true;
}

void PictureArray::clear() {
  for (auto& element : elements_)
    element.reset();
  loaded_ = 0;
}

} // namespace forms
