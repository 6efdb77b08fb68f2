#include "forms/element.h"

#include <algorithm>

#include "forms/forms.h"

namespace forms {

PropertyBase::PropertyBase(Element& owner) : owner_(owner), next_(owner.properties_) {
  owner.properties_ = this;
}

void PropertyBase::tellOwner() {
  owner_.tellDesktop();
}

Element::Element(Kind kind, Window* window, std::string_view name, int index)
    : kind_(kind), window_(window), name_(name), index_(index) {
  if (window_)
    window_->elements_.push_back(this);
}

Element::~Element() {
  if (window_)
    std::erase(window_->elements_, this);
}

std::string Element::name() const {
  std::string text(name_);
  if (index_ >= 0)
    text += "(" + std::to_string(index_) + ")";
  return text;
}

Window& Element::window() const {
  return *window_;
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
  return window().forms().takeFocus(*this);
}

bool Element::takesFocus() const {
  return kind_ == Kind::Picture || kind_ == Kind::TextBox || kind_ == Kind::CheckBox ||
         kind_ == Kind::DropList || kind_ == Kind::Button;
}

bool Element::isReachable() const {
  return window().isOpen() && Visible && Enabled;
}

void Element::restoreAsMade() {
  for (PropertyBase* p = properties_; p; p = p->next())
    p->restoreAsMade();
}

void Element::keepAsMade() {
  for (PropertyBase* p = properties_; p; p = p->next())
    p->keepAsMade();
}

void Element::tellDesktop() {
  Window& owner = window();
  if (owner.isOpen())
    owner.forms().desktop().changed(*this);
}

} // namespace forms
