// The outline around a place on a form for who plays with the keyboard.
#pragma once

#include <QWidget>

namespace forms::qt {

// Lies in front of everything on its form and lets the mouse through.
class Outline final : public QWidget {
public:
  explicit Outline(QWidget* form);
  // `width` is the line's in pixels, without the two dark lines beside it. A faint one marks where
  // the keyboard was.
  void showAt(const QRect& place, int width, bool faint = false);

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  int width_ = 1;
  bool faint_ = false;
};

} // namespace forms::qt
