#include "forms/picture_array.h"

#include "forms/forms.h"

namespace forms {

PictureArray::PictureArray(Window& window, std::string_view name) : pattern(window, name, 0) {
  pattern.Visible = false;
  window.enter(*this);
}

Picture* PictureArray::operator()(int i) {
  const auto found = elements_.find(i);
  return found == elements_.end() ? nullptr : &found->second;
}

bool PictureArray::Load(int i) {
  if (i < 1 || i > Last || elements_.contains(i))
    return false;
  Picture& made = elements_.try_emplace(i, pattern.window(), pattern.arrayName(), i).first->second;
  // First of all, for the desktop hears of the element with the first assignment.
  made.Visible = false;
  made.Width = pattern.Width.get();
  made.Height = pattern.Height.get();
  made.BackColor = pattern.BackColor;
  made.Border = pattern.Border;
  // Only what can be clicked says so to a screen reader.
  if (Click)
    made.Click = [this, i] { Click(i); };
  if (inviting)
    made.inviting = [this, i] { return inviting(i); };
  made.MouseDown = [this, i](MouseButton button) { raise(MouseDown, i, button); };
  made.MouseMove = [this, i](float, float) { raise(MouseMove, i); };
  return true;
}

bool PictureArray::Unload(int i) {
  const auto gone = elements_.extract(i);
  if (gone.empty())
    return false;
  Window& window = pattern.window();
  if (window.isOpen()) {
    window.forms().focus().vanishes(gone.mapped());
    window.forms().desktop().removed(gone.mapped());
  }
  return true;
}

} // namespace forms
