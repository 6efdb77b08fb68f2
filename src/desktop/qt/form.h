// The area of a window that holds its elements.
#pragma once

#include <QList>
#include <QWidget>

#include "desktop/qt/reporter.h"
#include "desktop/qt/scale.h"
#include "forms/window.h"

namespace forms::qt {

class Form final : public QWidget {
public:
  Form(Window& window, Reporter& reporter);

  // The window goes: the form never looks at it again.
  void detach() { window_ = nullptr; }
  // The widgets of all visible elements as they are read: row by row, each from left to right.
  QList<QWidget*> elementsInSight() const;

  // The views ask for it as often as they are brought into line.
  const Scale& scale() const { return scale_; }
  void setScale(const Scale& scale) { scale_ = scale; }

protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  // Keys that the focused element had no use for.
  void keyPressEvent(QKeyEvent* event) override;
  bool focusNextPrevChild(bool next) override;

private:
  Reporter& reporter_;
  Window* window_; // nullptr once it has gone
  Scale scale_;
};

} // namespace forms::qt
