#include "forms/element.h"

#include "forms/forms.h"

namespace forms {

PropertyBase::PropertyBase(Element& owner) : owner_(owner), next_(owner.enter(*this)) {}

void PropertyBase::tellOwner() {
  owner_.changed(*this);
}

Element::Element(Kind kind, Window& window, std::string_view name, int index)
    : kind_(kind), window_(window), name_(name), index_(index) {
  if (kind_ != Kind::Window)
    window_.enter(*this);
}

Element::~Element() {
  if (kind_ != Kind::Window)
    window_.leave(*this);
}

std::string Element::name() const {
  std::string text(name_);
  if (index_ >= 0)
    text += "(" + std::to_string(index_) + ")";
  return text;
}

void Element::place(int left, int top, int width, int height) {
  moveTo(left, top);
  Width = width;
  Height = height;
}

void Element::moveTo(int left, int top) {
  Left = left;
  Top = top;
}

bool Element::SetFocus() {
  return window_.forms().focus().take(*this);
}

bool Element::press(MouseButton button) {
  return window_.forms().focus().activate(window_) &&
         (button != MouseButton::Left || !takesFocus() || SetFocus());
}

bool Element::isReachable() const {
  return window_.isOpen() && Visible && Enabled;
}

void Element::startAnew(bool firstTime) {
  for (PropertyBase* p = properties_; p; p = p->next())
    if (firstTime)
      p->keepAsMade();
    else
      p->restoreAsMade();
}

void Element::changed(const PropertyBase& /*property*/) {
  tellDesktop();
}

void Element::tellDesktop() {
  if (window_.isOpen())
    window_.forms().desktop().changed(*this);
}

} // namespace forms
