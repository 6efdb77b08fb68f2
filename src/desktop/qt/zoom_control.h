// What changes the size of a child window with a board: keys, the wheel, and the frame around it.
#pragma once

#include <functional>

#include <QObject>

#include "desktop/qt/zoom.h"

class QMdiArea;
class QMdiSubWindow;
class QWheelEvent;

namespace forms::qt {

class Form;

class ZoomControl final : public QObject {
public:
  // Goes with the child window. `layOut` shows it in the size that `zoom` has for it now.
  ZoomControl(QMdiSubWindow& child, Form& form, QMdiArea& area, Zoom& zoom,
              std::function<void()> layOut);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void fit(Zoom::UpTo largest);
  void chooseBeside(bool larger);
  void turned(const QWheelEvent& event);

  Form& form_;
  QMdiArea& area_;
  Zoom& zoom_;
  std::function<void()> layOut_;
  int turned_ = 0; // by the wheel, since the last step
};

} // namespace forms::qt
