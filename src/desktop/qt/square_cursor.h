// The mark that shows on which square of a board the keyboard's cursor stands.
#pragma once

#include <QWidget>

namespace forms::qt {

// Lies in front of everything on the form and lets the mouse through.
class SquareCursor final : public QWidget {
public:
  explicit SquareCursor(QWidget* form);

protected:
  void paintEvent(QPaintEvent* event) override;
};

} // namespace forms::qt
