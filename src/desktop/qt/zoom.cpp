#include "desktop/qt/zoom.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScrollBar>
#include <QShortcut>
#include <QWheelEvent>

#include "desktop/qt/form.h"

namespace forms::qt {

namespace {

constexpr int Whole = 100;
constexpr std::array Steps{50,  55,  60,  65,  70,  75,  80,  85,  90,  95,  100,
                           110, 125, 150, 175, 200, 250, 300, 350, 400, 450, 500};

} // namespace

void Zoom::chooseBeside(int percent, bool larger) {
  const auto* const step = std::lower_bound(Steps.begin(), Steps.end(), percent);
  if (larger)
    chosen_ = step + 1 == Steps.end() ? percent : *(step + 1);
  else
    chosen_ = step == Steps.begin() ? percent : *(step - 1);
}

void Zoom::fit(UpTo largest) {
  chosen_.reset();
  largest_ = largest;
}

int Zoom::percent(const std::function<bool(int percent)>& fits) const {
  if (chosen_)
    return *chosen_;
  const int most = largest_ == UpTo::Whole ? Whole : Steps.back();
  const auto* step = std::find(Steps.begin(), Steps.end(), most);
  while (step != Steps.begin() && !fits(*step))
    --step;
  return *step;
}

ZoomControl::ZoomControl(QMdiSubWindow& child, Form& form, QMdiArea& area, Zoom& zoom,
                         std::function<void()> layOut)
    : QObject(&child), form_(form), area_(area), zoom_(zoom), layOut_(std::move(layOut)) {
  const auto onKeys = [this](const QList<QKeySequence>& keys, auto choose) {
    auto* const shortcut = new QShortcut(&form_);
    shortcut->setKeys(keys);
    connect(shortcut, &QShortcut::activated, this, [this, choose] {
      choose();
      layOut_();
    });
  };
  onKeys({Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal}, [this] { chooseBeside(true); });
  onKeys({Qt::CTRL | Qt::Key_Minus}, [this] { chooseBeside(false); });
  onKeys({Qt::CTRL | Qt::Key_0}, [this] { zoom_.fit(Zoom::UpTo::Whole); });
  onKeys({Qt::CTRL | Qt::Key_9}, [this] { zoom_.fit(Zoom::UpTo::Last); });
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

void ZoomControl::chooseBeside(bool larger) {
  zoom_.chooseBeside(form_.scale().percent(), larger);
}

void ZoomControl::turned(const QWheelEvent& event) {
  turned_ += event.angleDelta().y(); // fine wheels tell a part of a notch
  const int notches = turned_ / QWheelEvent::DefaultDeltasPerStep;
  turned_ %= QWheelEvent::DefaultDeltasPerStep;
  const QPointF under = form_.mapFromGlobal(event.globalPosition()) / form_.scale().percent();
  for (int i = 0; i < std::abs(notches); ++i) {
    chooseBeside(notches > 0);
    layOut_();
  }
  // What lies under the pointer stays there, as far as the window can be scrolled.
  const QPointF now = form_.mapToGlobal(under * form_.scale().percent());
  const QPoint way = (now - event.globalPosition()).toPoint();
  QScrollBar& across = *area_.horizontalScrollBar();
  QScrollBar& down = *area_.verticalScrollBar();
  across.setValue(across.value() + way.x());
  down.setValue(down.value() + way.y());
}

} // namespace forms::qt
