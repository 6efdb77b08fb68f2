// Elements that are made and destroyed by index at run time, such as the units on the squares.
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string_view>

#include "forms/picture.h"
#include "forms/window.h"

namespace forms {

// Indices run from 1 to 64; element 0 is the hidden pattern, which always exists. The events stand
// at the array, for an element may be destroyed by its own handler.
template <class T> class ElementArray final : public ElementArrayBase {
public:
  static constexpr int Last = 64;

  ElementArray(Window& window, std::string_view name)
      : ElementArrayBase(window), pattern(window, name, 0) {
    pattern.Visible = false;
  }

  // Makes element i with the size and look of the pattern, invisible. False, and nothing changes,
  // when it exists or i is outside 1 to 64.
  [[nodiscard]] bool Load(int i) {
    if (i < 1 || i > Last || slot(i))
      return false;
    auto made = std::make_unique<T>(window(), pattern.arrayName(), i);
    made->Width = pattern.Width.get();
    made->Height = pattern.Height.get();
    made->BackColor = pattern.BackColor;
    made->Border = pattern.Border;
    made->Visible = false;
    made->Click = [this, i] {
      if (Click)
        Click(i);
    };
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

  // Destroys element i. False, and nothing changes, when it does not exist.
  [[nodiscard]] bool Unload(int i) {
    if (i < 1 || i > Last || !slot(i))
      return false;
    const std::unique_ptr<T> gone = std::move(slot(i));
    --loaded_;
    tellRemoved(*gone);
    return true;
  }

  // Element i, or nullptr when it does not exist.
  T* operator()(int i) { return i < 1 || i > Last ? nullptr : slot(i).get(); }

  // The number of elements, the pattern included.
  int count() const { return loaded_ + 1; }

  void clear() override {
    for (auto& element : elements_)
      element.reset();
    loaded_ = 0;
  }

private:
  std::unique_ptr<T>& slot(int i) { return elements_[static_cast<std::size_t>(i - 1)]; }

  std::array<std::unique_ptr<T>, Last> elements_;
  int loaded_ = 0;

public:
  T pattern; // element 0
  std::function<void(int Index)> Click;
  std::function<void(int Index, MouseButton)> MouseDown;
  std::function<void(int Index)> MouseMove;
};

} // namespace forms
