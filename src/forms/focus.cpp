#include "forms/focus.h"

#include <algorithm>

#include "forms/window.h"

namespace forms {

namespace {

// The elements that the Tab key goes through.
std::vector<Element*> tabOrder(const Window& window) {
  std::vector<Element*> order;
  std::ranges::copy_if(window.elements(), std::back_inserter(order), [](const Element* element) {
    return element->TabIndex >= 0 && element->takesFocus() && element->isReachable();
  });
  std::ranges::stable_sort(order, {}, &Element::TabIndex);
  return order;
}

} // namespace

Element* Focus::of(const Window& window) const {
  const auto found = focused_.find(&window);
  return found == focused_.end() ? nullptr : found->second;
}

void Focus::opened(Window& window) {
  open_.push_back(&window);
  const auto order = tabOrder(window);
  Element* const first = order.empty() ? nullptr : order.front();
  focused_[&window] = first;
  desktop_.windowOpened(window);
  if (window.windowKind() == WindowKind::Child) {
    passOver(activate(window));
  } else if (first) {
    desktop_.focusAsked(*first);
  }
}

void Focus::closed(Window& window) {
  const bool wasActive = activeChild() == &window;
  std::erase(open_, &window);
  std::erase(children_, &window);
  focused_.erase(&window);
  desktop_.windowClosed(window);
  // The child that was active before takes over. Nothing was left by a person's choice here, so
  // no event of departure is raised.
  if (Window* const next = activeChild(); wasActive && next)
    show(*next);
}

void Focus::show(Window& child) {
  desktop_.focusAsked(child);
  if (Element* const element = of(child))
    desktop_.focusAsked(*element);
}

bool Focus::activate(Window& window) {
  Window* const left = activeChild();
  if (window.windowKind() != WindowKind::Child || left == &window)
    return true;
  std::erase(children_, &window);
  children_.push_back(&window);
  if (left && !leaving_) {
    leaving_ = true;
    if (const Element* const element = of(*left))
      raise(element->LostFocus);
    if (activeChild() == &window && left->isOpen())
      left->Form_Deactivate();
    leaving_ = false;
    // A handler took the activation back, or something it did closed the window.
    if (activeChild() != &window)
      return false;
  }
  show(window);
  return true;
}

bool Focus::take(Element& element) {
  Window& window = element.window();
  if (!element.takesFocus() || !element.isReachable() || !activate(window))
    return false;
  Element* const left = std::exchange(focused_[&window], &element);
  // A closing check that points at what is wrong is no departure from where the focus was.
  if (left && left != &element && !leaving_ && !window.isClosing()) {
    leaving_ = true;
    raise(left->LostFocus);
    leaving_ = false;
    if (of(window) != &element)
      return false;
    if (!element.isReachable()) {
      vanishes(element);
      return false;
    }
  }
  desktop_.focusAsked(element);
  return true;
}

void Focus::vanishes(Element& element) {
  Window& window = element.window();
  if (of(window) != &element)
    return;
  const auto order = tabOrder(window);
  const auto next = std::ranges::find_if(order, [](Element* to) { return !to->LostFocus; });
  focused_[&window] = next == order.end() ? nullptr : *next;
  if (next != order.end())
    desktop_.focusAsked(**next);
}

Element* Focus::behind(Window& window, bool forwards) const {
  const auto order = tabOrder(window);
  if (order.empty())
    return nullptr;
  const auto here = std::ranges::find(order, of(window));
  if (here == order.end())
    return forwards ? order.front() : order.back();
  const auto position = static_cast<std::size_t>(here - order.begin());
  return order[(position + (forwards ? 1 : order.size() - 1)) % order.size()];
}

} // namespace forms
