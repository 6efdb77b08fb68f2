#include "desktop/qt/timer_view.h"

#include "desktop/qt/reporter.h"

namespace forms::qt {

TimerView::TimerView(Timer& timer, Services services, QObject* parent)
    : ElementView(timer, services, parent) {
  connect(&clock_, &QTimer::timeout, this, [this] {
    if (element())
      this->services().reporter.report([this](Forms& forms) { forms.ticked(*elementAs<Timer>()); });
  });
}

// A clock that runs already keeps its beat.
void TimerView::sync() {
  const Timer& timer = *elementAs<Timer>();
  if (clock_.interval() != timer.Interval)
    clock_.setInterval(timer.Interval);
  if (!timer.Enabled)
    clock_.stop();
  else if (!clock_.isActive())
    clock_.start();
}

void TimerView::takeOff() {
  clock_.stop();
  services().reporter.bury(this);
}

} // namespace forms::qt
