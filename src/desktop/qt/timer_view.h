// The clock behind a timer element.
#pragma once

#include <QTimer>

#include "desktop/qt/element_view.h"
#include "forms/elements.h"

namespace forms::qt {

class TimerView final : public ElementView {
public:
  TimerView(Timer& timer, Services services, QObject* parent);
  void sync() override;

protected:
  void takeOff() override;

private:
  QTimer clock_;
};

} // namespace forms::qt
