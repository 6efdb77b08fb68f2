// Draws a picture element: picture, frame, raised look.
#pragma once

#include <functional>

#include <QColor>
#include <QWidget>

namespace forms::qt {

class PictureStore;

class PictureWidget final : public QWidget {
public:
  PictureWidget(PictureStore& pictures, QWidget* parent);

  struct Looks {
    QString path; // empty: no picture
    bool raised = false;
    bool border = false; // one pixel on each side
    QColor background;   // where there is no picture
    bool operator==(const Looks&) const = default;
  };
  void setLooks(Looks looks);

  // Whether a screen reader finds a thing to press here.
  bool isButton = false;
  // What a screen reader's press does.
  std::function<void()> press;

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  PictureStore& pictures_;
  Looks looks_;
};

} // namespace forms::qt
