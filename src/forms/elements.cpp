#include "forms/elements.h"

#include <algorithm>

namespace forms {

void TextBox::changed(const PropertyBase& property) {
  Element::changed(property);
  if (&property != &Text)
    return;
  if (std::string held = fitting(Text); held != Text.get())
    Text = std::move(held);
  else
    raise(Change);
}

std::string TextBox::fitting(const std::string& text) const {
  std::size_t end = 0;
  const std::size_t lineEnd = MultiLine ? std::string::npos : text.find_first_of("\r\n");
  for (int count = 0; end < std::min(lineEnd, text.size()); ++end)
    if (MaxLength > 0 && (text[end] & 0xC0) != 0x80 && count++ == MaxLength)
      break;
  return text.substr(0, end);
}

void CheckBox::changed(const PropertyBase& property) {
  Element::changed(property);
  if (&property == &Value)
    raise(Click);
}

void DropList::AddItem(std::string item) {
  items_.push_back(std::move(item));
  tellDesktop();
}

bool DropList::select(int index) {
  if (index < 0 || index >= static_cast<int>(items_.size()))
    return false;
  listIndex_ = index;
  tellDesktop();
  raise(Click);
  return true;
}

std::string DropList::Text() const {
  return listIndex_ < 0 ? std::string() : items_[static_cast<std::size_t>(listIndex_)];
}

bool DropList::setText(const std::string& text) {
  const auto found = std::find(items_.begin(), items_.end(), text);
  return found != items_.end() && select(static_cast<int>(found - items_.begin()));
}

void DropList::startAnew(bool firstTime) {
  Element::startAnew(firstTime);
  items_.clear();
  listIndex_ = -1;
}

} // namespace forms
