#include "forms/elements.h"

#include <algorithm>

namespace forms {

TextBox::TextBox(Window& window, std::string_view name) : Element(Kind::TextBox, &window, name) {
  Text.raised = [this] {
    if (std::string held = fitting(Text.get()); held != Text.get())
      Text = std::move(held);
    else if (Change)
      Change();
  };
}

std::string TextBox::fitting(const std::string& text) const {
  std::size_t end = 0;
  for (int count = 0; end < text.size(); ++end)
    if (MaxLength > 0 && (text[end] & 0xC0) != 0x80 && count++ == MaxLength)
      break;
  return text.substr(0, end);
}

CheckBox::CheckBox(Window& window, std::string_view name) : Element(Kind::CheckBox, &window, name) {
  Value.raised = [this] {
    if (Click)
      Click();
  };
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
  if (Click)
    Click();
  return true;
}

std::string DropList::Text() const {
  return listIndex_ < 0 ? std::string() : items_[static_cast<std::size_t>(listIndex_)];
}

bool DropList::setText(const std::string& text) {
  const auto found = std::find(items_.begin(), items_.end(), text);
  return found != items_.end() && select(static_cast<int>(found - items_.begin()));
}

void DropList::restoreAsMade() {
  Element::restoreAsMade();
  items_.clear();
  listIndex_ = -1;
}

Timer::Timer(Window& window, std::string_view name) : Element(Kind::Timer, &window, name) {
  Enabled = false;
}

} // namespace forms
