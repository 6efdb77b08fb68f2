// The views of the windows, the frame, a child window inside it, one of its own, and of what stands
// on them.
#pragma once

#include "desktop/qt/element_view.h"
#include "desktop/qt/form.h"
#include "desktop/qt/screen.h"
#include "forms/window.h"

class QEventLoop;

namespace forms::qt {

// What all windows have in common: title and icon, size and place.
class WindowView : public WidgetView {
public:
  void detach() override;
  void remove() override;
  QWidget& focusHolder() const override { return form(); }
  // The area that holds the elements. Only the frame has none.
  Form& form() const { return *form_; }
  // The frame has all its room filled with child windows; menu and timer need none.
  bool hasPlaceFor(const Element& element) const {
    return form_ || element.kind() == Kind::MenuEntry || element.kind() == Kind::Timer;
  }
  // Shows the window once all its elements are there.
  virtual void appear() = 0;
  // Handles the person's actions until the window has been removed.
  void waitUntilRemoved();

protected:
  // `form` may be nullptr.
  WindowView(Window& window, Screen& screen, QWidget* widget, Form* form);
  Screen& screen() const { return screen_; }

  // To be asked only while there is a window.
  Window& window() const { return elementAs<Window>(); }
  void syncWidget() final;
  virtual void syncPlace() {}
  // Pixels around a form of this scale and a decoration of this size: as the window wants it, and
  // more where an element would be cut.
  QSize sizeAround(QSize decoration, const Scale& scale = Scale()) const;
  QSize neededSize(const Scale& scale) const;
  void moveToPlace();
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  Screen& screen_;
  Form* form_;
  QPointer<QEventLoop> waiting_; // set while somebody waits for the window to close
};

WindowView* makeView(Window& window, Screen& screen);
// To be made while the frame is on the screen.
WindowView* makeChildView(Window& window, Screen& screen);
// Of an element that stands on `window`, which must have a place for it.
ElementView* makeView(Element& element, WindowView& window, Screen& screen);

} // namespace forms::qt
