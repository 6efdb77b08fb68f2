// The area of a window that holds its elements, and the outline of a place on it for who plays with
// the keyboard.
#pragma once

#include <QHash>
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

  // Moves the widget behind all of the form that have a higher rank and in front of all others. A
  // widget that was never given a rank has rank 0.
  void stack(QWidget& widget, int rank);

  // The views ask for it as often as they are brought into line.
  const Scale& scale() const { return scale_; }
  void setScale(const Scale& scale) { scale_ = scale; }

protected:
  void childEvent(QChildEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  // Keys that the focused element had no use for.
  void keyPressEvent(QKeyEvent* event) override;
  bool focusNextPrevChild(bool next) override;

private:
  Reporter& reporter_;
  Window* window_; // nullptr once it has gone
  Scale scale_;
  QHash<const QObject*, int> ranks_;
};

// Lies in front of everything on its form and lets the mouse through.
class Outline final : public QWidget {
public:
  explicit Outline(Form& form);
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
