// A picture on a window: board, unit, marker.
#pragma once

#include <functional>
#include <string>

#include "forms/element.h"

namespace forms {

// Whether the player hears of a picture that cannot be loaded.
enum class OnFailure { Tell, PassOver };

class Picture : public Element {
public:
  Picture(Window& window, std::string_view name, int index = -1)
      : Element(Kind::Picture, window, name, index) {}

  // Takes the picture from a file, given by its path below the program folder: a literal that
  // starts with "\". On failure the element keeps the picture it has, the failure is noted
  // (Forms::failed) and false comes back. With AutoSize the element takes the size of its picture
  // and frame at once.
  [[nodiscard]] bool LoadPicture(std::string_view literal, OnFailure onFailure = OnFailure::Tell);
  // Path of the file shown; empty: none.
  const std::string& picturePath() const { return path_; }
  // Brings the element to the front of its window.
  void ZOrder();

  bool takesFocus() const override { return true; }
  bool press(MouseButton button) override;
  void click() override { raise(Click); }
  void startAnew(bool firstTime) override;

  // 1 is a raised look with a frame, 0 flat. The rules use it as data.
  Property<int> Appearance{*this, 0};
  Property<int> zOrderRank{*this, 0}; // higher is nearer to the front
  bool AutoSize = false;
  bool Border = false; // a frame of one pixel on each side, part of Width and Height
  // Twips that the frame takes on each side.
  int frameWidth() const { return Border ? TwipsPerPixel : 0; }

  // X to the right and Y downwards in twips, from the inner top left corner.
  std::function<void(float X, float Y)> MouseMove;
  std::function<void(MouseButton)> MouseDown;
  std::function<void()> Click;

  // True when a click does something now: the pointer may say so.
  bool invites() const { return isReachable() && Click && (!inviting || inviting()); }
  std::function<bool()> inviting; // what the program says of that; unset: always

private:
  std::string path_;
};

} // namespace forms
