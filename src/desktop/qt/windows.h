// What stands on the screen for one window: the frame, a child window inside it, or one of its own.
#pragma once

#include "desktop/qt/element_view.h"
#include "forms/window.h"

class QEventLoop;

namespace forms::qt {

class Form;

// The common part of all windows. The view watches the widget's events; the widget owns the view.
class WindowView : public ElementView {
public:
  // Title and icon, size and place.
  void sync() final;
  void detach() final;
  void remove() override;
  QWidget& widget() const { return widget_; }
  // The area that holds the elements. Only a frame with a menu has none.
  Form& form() const;
  // A frame with a menu has all its room filled with child windows; menu and timer need none.
  bool hasPlaceFor(const Element& element) const {
    return form_ || element.kind() == Kind::MenuEntry || element.kind() == Kind::Timer;
  }
  // Shows the window once all its elements are there.
  virtual void appear() = 0;
  // Scrolls the window until this place of the form is seen, as far as the place is not larger than
  // the room for it.
  virtual void showInSight(const QRect& /*place*/) {}
  // Handles the person's actions until the window has been removed.
  void waitUntilRemoved();

protected:
  // `form` may be nullptr.
  WindowView(Window& window, QtDesktop& desktop, QWidget* widget, Form* form);

  // To be asked only while there is a window.
  Window& window() const { return elementAs<Window>(); }
  virtual void syncPlace() {}
  // Pixels around a form of this scale and a decoration of this size: as the window wants it, and
  // more where an element would be cut.
  QSize sizeAround(QSize decoration, const Scale& scale = Scale()) const;
  QSize neededSize(const Scale& scale) const;
  void moveToPlace();
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  QWidget& widget_;
  Form* form_;
  QPointer<QEventLoop> waiting_; // set while somebody waits for the window to close
};

WindowView* makeView(Window& window, QtDesktop& desktop);

} // namespace forms::qt
