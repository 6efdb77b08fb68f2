#include "forms/window.h"

#include <algorithm>

#include "forms/forms.h"
#include "forms/picture_array.h"

namespace forms {

Window::Window(Forms& forms, WindowKind windowKind, std::string_view name)
    : Element(Kind::Window, nullptr, name), forms_(forms), windowKind_(windowKind) {
  window_ = this;
}

Window::~Window() {
  // What is left of this object is no element of a window.
  window_ = nullptr;
}

void Window::made() {
  keepAsMade();
  for (Element* element : elements_)
    element->keepAsMade();
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
  restoreAsMade();
  for (Element* element : elements_)
    element->restoreAsMade();
  focused_ = nullptr;
  topmost_ = 0;
  opening_ = true;
  Form_Load();
  opening_ = false;
  open_ = true;
  forms_.windowOpened(*this);
}

void Window::showModal() {
  modal_ = true;
  open();
  forms_.modal_.push_back(this);
  if (open_)
    forms_.desktop().waitModal(*this);
  std::erase(forms_.modal_, this);
  modal_ = false;
}

bool Window::mayClose() {
  closing_ = true;
  bool allowed = Form_QueryUnload();
  if (allowed && windowKind_ == WindowKind::Frame) {
    const auto children = forms_.children_;
    allowed = std::all_of(children.begin(), children.end(),
                          [](Window* child) { return !child->open_ || child->mayClose(); });
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
    const auto children = forms_.children_;
    for (Window* child : children)
      if (child->open_)
        child->finishClosing();
  }
  Form_Unload();
  open_ = false;
  focused_ = nullptr;
  forms_.windowClosed(*this);
  for (PictureArray* array : arrays_)
    array->clear();
  closing_ = false;
}

} // namespace forms
