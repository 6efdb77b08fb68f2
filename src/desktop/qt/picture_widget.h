// Draws a picture on a form, with its frame and its raised edge.
#pragma once

#include <QColor>
#include <QString>
#include <QWidget>

#include "desktop/qt/accessibility.h"

namespace forms::qt {

class PictureStore;

class PictureWidget final : public QWidget, public Pressable {
public:
  PictureWidget(PictureStore& pictures, QWidget* form);

  struct Content {
    QString path;             // empty: no picture
    QRect inner;              // pixels of the picture in the widget
    int raised = 0;           // width of the slanted edge in pixels; 0: flat
    bool border = false;      // what is left around the picture, and a pixel at least
    QColor background;        // where there is no picture
    bool plainButton = false; // a click does something, and no picture shows what
    bool operator==(const Content&) const = default;
  };
  void show(Content content);

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  PictureStore& pictures_;
  Content content_;
};

} // namespace forms::qt
