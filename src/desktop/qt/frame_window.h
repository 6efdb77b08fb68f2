// The frame on the screen: menu bar and area of child windows.
#pragma once

#include <QMainWindow>

#include "desktop/qt/services.h"
#include "desktop/qt/window_view.h"
#include "forms/window.h"

class QMdiArea;

namespace forms::qt {

class FrameWindow final : public QMainWindow, public WindowView {
public:
  FrameWindow(Window& window, Services services);

  QMdiArea& area() const { return *area_; }

  QWidget* widget() override { return this; }
  Form* form() override { return nullptr; }
  void sync() override;
  void appear() override;
  void leave() override;

protected:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

private:
  Services services_;
  Window* window_; // nullptr once it has gone
  QMdiArea* area_;
};

} // namespace forms::qt
