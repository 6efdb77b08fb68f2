// A frame that marks a place for who plays with the keyboard.
#pragma once

#include <QWidget>

namespace forms::qt {

// Lies in front of everything on its form and lets the mouse through.
class Mark final : public QWidget {
public:
  // The line's width in pixels, without the two dark lines beside it.
  Mark(QWidget* form, int width);

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  int width_;
};

} // namespace forms::qt
