// All windows and elements that stand on the screen, made and removed as the forms layer says.
#pragma once

#include <QHash>

#include "desktop/qt/focus_keeper.h"
#include "desktop/qt/picture_store.h"
#include "desktop/qt/reporter.h"
#include "desktop/qt/services.h"
#include "desktop/qt/views.h"

class QEventLoop;

namespace forms::qt {

class FrameWindow;

class Screen {
public:
  Screen() : focus_(reporter_, views_) {}
  // Takes what is left off the screen; its windows and elements may be gone by then.
  ~Screen();
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;

  void connect(Forms& forms) { reporter_.connect(forms); }

  void open(Window& window);
  void close(Window& window);
  void waitUntilClosed(Window& window);
  void change(Element& element);
  void remove(Element& element);
  void giveFocus(Element& element);

  PictureStore& pictures() { return pictures_; }
  // The window that a box belongs to; nullptr when there is none yet.
  QWidget* front() const;

private:
  Services services() { return {reporter_, focus_, pictures_}; }
  WindowView* makeView(Window& window);
  ElementView* makeView(Element& element, WindowView& above);
  ElementView* makeWidget(Element& element, QWidget* form);

  PictureStore pictures_;
  Reporter reporter_;
  Views views_;
  FocusKeeper focus_;
  FrameWindow* frame_ = nullptr;
  QHash<Window*, QEventLoop*> waiting_;
};

} // namespace forms::qt
