#include "forms/window.h"

#include <algorithm>

#include "forms/forms.h"
#include "forms/picture_array.h"

namespace forms {

Element* Window::focused() const {
  return forms_.focus().of(*this);
}

bool Window::LoadIcon(std::string_view literal) {
  const auto file = forms_.findPicture(literal, OnFailure::Tell);
  if (file)
    Icon = file->path;
  return file.has_value();
}

void Window::open() {
  if (open_ || opening_)
    return;
  const bool first = !std::exchange(made_, true);
  startAnew(first);
  for (Element* element : elements_)
    element->startAnew(first);
  topmost_ = 0;
  opening_ = true;
  Form_Load();
  opening_ = false;
  if (forms_.hasEnded())
    return;
  open_ = true;
  forms_.focus().opened(*this);
}

void Window::showModal() {
  modal_ = true;
  open();
  if (open_)
    forms_.desktop().waitModal(*this);
  modal_ = false;
}

bool Window::mayClose() {
  closing_ = true;
  bool allowed = Form_QueryUnload();
  if (allowed && windowKind_ == WindowKind::Frame) {
    const auto children = forms_.focus().children();
    allowed = std::all_of(children.begin(), children.end(),
                          [](Window* child) { return !child->isOpen() || child->mayClose(); });
  }
  closing_ = false;
  return allowed;
}

bool Window::close() {
  if (!open_)
    return true;
  // A second request from inside the first (a box of the closing check lets the timer run on).
  if (closing_ || !mayClose())
    return false;
  finishClosing();
  return true;
}

void Window::finishClosing() {
  closing_ = true;
  if (windowKind_ == WindowKind::Frame) {
    const auto children = forms_.focus().children();
    for (Window* child : children)
      if (child->isOpen())
        child->finishClosing();
  }
  Form_Unload();
  open_ = false;
  forms_.focus().closed(*this);
  for (PictureArray* array : arrays_)
    array->clear();
  closing_ = false;
}

} // namespace forms
