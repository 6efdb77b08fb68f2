// A picture on a window: board, unit, marker.
#pragma once

#include <functional>
#include <string>

#include "forms/element.h"
#include "forms/grid_cursor.h"

namespace forms {

enum class MouseButton { Left, Right, Other };

class Picture : public Element {
public:
  Picture(Window& window, std::string_view name, int index = -1)
      : Element(Kind::Picture, &window, name, index) {}

  // Takes the picture from a file, given by its full path. On failure the element keeps the picture
  // it has, the path is noted (Forms::missingPicture) and false comes back. With AutoSize the
  // element takes the size of its picture and frame at once.
  [[nodiscard]] bool LoadPicture(const std::string& path);
  // Path of the file shown; empty: none.
  const std::string& picturePath() const { return path_; }
  // Brings the element to the front of its window.
  void ZOrder();

  void restoreAsMade() override;

  // 1 is a raised look with a frame, 0 flat. The rules use it as data.
  Property<int> Appearance{*this, 0};
  Property<int> zOrderRank{*this, 0}; // higher is nearer to the front
  // The square that the keyboard's cursor marks, drawn in front of everything; 0: none.
  Property<int> cursorSquare{*this, 0};
  GridCursor grid{*this}; // of a picture that shows a grid
  bool AutoSize = false;
  bool Border = false; // a frame of one pixel on each side, part of Width and Height

  // X to the right and Y downwards in twips, from the inner top left corner.
  std::function<void(float X, float Y)> MouseMove;
  std::function<void(MouseButton)> MouseDown;
  std::function<void()> Click;

private:
  std::string path_;
};

} // namespace forms
