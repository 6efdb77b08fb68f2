// Pictures that are made and destroyed by index at run time, such as the units on the squares.
#pragma once

#include <functional>
#include <map>
#include <string_view>

#include "forms/picture.h"

namespace forms {

// Indices run from 1 to 64; element 0 is the hidden pattern, which always exists. The events stand
// at the array, for an element may be destroyed by its own handler.
class PictureArray {
public:
  static constexpr int Last = 64;

  PictureArray(Window& window, std::string_view name);
  PictureArray(const PictureArray&) = delete;
  PictureArray& operator=(const PictureArray&) = delete;

  // Makes element i with the size and look of the pattern, invisible. False, and nothing changes,
  // when it exists or i is outside 1 to 64.
  [[nodiscard]] bool Load(int i);
  // Destroys element i. False, and nothing changes, when it does not exist.
  [[nodiscard]] bool Unload(int i);
  // Element i, or nullptr when it does not exist.
  Picture* operator()(int i);
  // The number of elements, the pattern included.
  int count() const { return static_cast<int>(elements_.size()) + 1; }

  // Destroys all elements but the pattern, whose window has closed.
  void clear() { elements_.clear(); }

  Picture pattern; // element 0
  std::function<void(int Index)> Click;
  std::function<void(int Index, MouseButton)> MouseDown;
  std::function<void(int Index)> MouseMove;
  std::function<bool(int Index)> inviting; // as a picture's

private:
  std::map<int, Picture> elements_;
};

} // namespace forms
