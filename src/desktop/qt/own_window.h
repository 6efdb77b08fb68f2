// A window of its own, beside the frame or without one: fixed in size, with a close box.
#pragma once

#include <QWidget>

#include "desktop/qt/services.h"
#include "desktop/qt/window_view.h"
#include "forms/window.h"

namespace forms::qt {

class OwnWindow final : public QWidget, public WindowView {
public:
  // `frame` is the window that it stays in front of, or nullptr.
  OwnWindow(Window& window, Services services, QWidget* frame);

  QWidget* widget() override { return this; }
  Form* form() override { return form_; }
  void sync() override;
  void appear() override;
  void leave() override;

protected:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

private:
  Services services_;
  Window* window_; // nullptr once it has gone
  Form* form_;
};

} // namespace forms::qt
