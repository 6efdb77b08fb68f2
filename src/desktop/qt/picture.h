// Pictures on a form, and the frames that mark a place in front of them.
#pragma once

#include <QColor>
#include <QWidget>

#include "desktop/qt/accessibility.h"
#include "forms/picture.h"

namespace forms::qt {

class ElementView;
class PictureStore;
class QtDesktop;

ElementView* makePictureView(Picture& picture, QtDesktop& desktop, QWidget* form);

// Draws a picture element: picture, frame, raised look.
class PictureWidget final : public QWidget, public Pressable {
public:
  PictureWidget(PictureStore& pictures, QWidget* form);

  struct Looks {
    QString path; // empty: no picture
    bool raised = false;
    bool border = false; // one pixel on each side
    QColor background;   // where there is no picture
    bool operator==(const Looks&) const = default;
  };
  void setLooks(Looks looks);

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  PictureStore& pictures_;
  Looks looks_;
};

// Marks a place for who plays with the keyboard: lies in front of everything on its form and lets
// the mouse through.
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
