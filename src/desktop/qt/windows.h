// A child window inside the frame: fixed in size, with a close box.
#pragma once

#include <QMdiSubWindow>

#include "desktop/qt/services.h"
#include "desktop/qt/window_view.h"
#include "forms/window.h"

class QMdiArea;

namespace forms::qt {

class ChildWindow final : public QMdiSubWindow, public WindowView {
public:
  ChildWindow(Window& window, Services services, QMdiArea& area);

  QWidget* widget() override { return this; }
  Form* form() override { return form_; }
  void sync() override;
  void appear() override;
  void leave() override;

protected:
  void closeEvent(QCloseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void moveEvent(QMoveEvent* event) override;

private:
  void makeSystemMenu();
  // Gives the window its size, and more where its frame would cut an element.
  void fit();
  // Top and Left follow where the window stands.
  void tellPlace();

  Services services_;
  Window* window_; // nullptr once it has gone
  QMdiArea& area_;
  Form* form_;
  bool tellingPlace_ = false;
};

} // namespace forms::qt
