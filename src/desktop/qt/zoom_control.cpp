#include "desktop/qt/zoom_control.h"

#include <cstdlib>
#include <utility>

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QShortcut>
#include <QWheelEvent>

#include "desktop/qt/form.h"
#include "desktop/qt/scrolling.h"

namespace forms::qt {

ZoomControl::ZoomControl(QMdiSubWindow& child, Form& form, QMdiArea& area, Zoom& zoom,
                         std::function<void()> layOut)
    : QObject(&child), form_(form), area_(area), zoom_(zoom), layOut_(std::move(layOut)) {
  const auto onKeys = [this](const QList<QKeySequence>& keys, auto choose) {
    auto* const shortcut = new QShortcut(&form_);
    shortcut->setKeys(keys);
    connect(shortcut, &QShortcut::activated, this, choose);
  };
  onKeys({QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal)},
         [this] { chooseBeside(true); });
  onKeys({QKeySequence(Qt::CTRL | Qt::Key_Minus)}, [this] { chooseBeside(false); });
  onKeys({QKeySequence(Qt::CTRL | Qt::Key_0)}, [this] { fit(Zoom::UpTo::Whole); });
  onKeys({QKeySequence(Qt::CTRL | Qt::Key_9)}, [this] { fit(Zoom::UpTo::Last); });
  child.installEventFilter(this);
  area.viewport()->installEventFilter(this);
}

bool ZoomControl::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize && watched == area_.viewport())
    layOut_();
  if (event->type() != QEvent::Wheel || watched == area_.viewport())
    return false;
  const auto& wheel = *static_cast<QWheelEvent*>(event);
  if (!wheel.modifiers().testFlag(Qt::ControlModifier))
    return false;
  turned(wheel);
  return true;
}

void ZoomControl::fit(Zoom::UpTo largest) {
  zoom_.fit(largest);
  layOut_();
}

void ZoomControl::chooseBeside(bool larger) {
  zoom_.chooseBeside(form_.scale().percent(), larger);
  layOut_();
}

void ZoomControl::turned(const QWheelEvent& event) {
  turned_ += event.angleDelta().y(); // fine wheels tell a part of a notch
  const int notches = turned_ / QWheelEvent::DefaultDeltasPerStep;
  turned_ %= QWheelEvent::DefaultDeltasPerStep;
  const QPointF under = form_.mapFromGlobal(event.globalPosition()) / form_.scale().percent();
  for (int i = 0; i < std::abs(notches); ++i)
    chooseBeside(notches > 0);
  // What lies under the pointer stays there, as far as the window can be scrolled.
  const QPointF now = form_.mapToGlobal(under * form_.scale().percent());
  scrollBy(area_, (now - event.globalPosition()).toPoint());
}

} // namespace forms::qt
