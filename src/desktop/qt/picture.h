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
    QString path;        // empty: no picture
    QRect inner;         // pixels of the picture in the widget
    int raised = 0;      // width of the slanted edge in pixels; 0: flat
    bool border = false; // what is left around the picture, and a pixel at least
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
  explicit Mark(QWidget* form);
  // `width` is the line's in pixels, without the two dark lines beside it.
  void showAt(const QRect& place, int width);

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  int width_ = 1;
};

} // namespace forms::qt
