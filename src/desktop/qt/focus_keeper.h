// Keeps Qt's keyboard focus and active child window where the forms layer says that they are.
#pragma once

#include <QObject>
#include <QPointer>

#include "desktop/qt/element_view.h"
#include "desktop/qt/reporter.h"
#include "forms/window.h"

class QMdiArea;
class QWidget;

namespace forms::qt {

class Outline;

// Qt moves the focus by itself, for instance when the frame becomes active again; then it is put
// back. Where it goes to another element by a screen reader's wish, the forms layer is asked.
class FocusKeeper : public QObject {
public:
  // To be made behind the application.
  FocusKeeper(Reporter& reporter, const Views& views);

  // The area of the child windows, from now on watched.
  void watch(QMdiArea& area);

  // The window was laid out anew: if it is the active child, what the keyboard is on is outlined
  // where it is now, and stays in sight.
  void laidOut(Window& window);

  // What the forms layer asks for.
  void give(Element& element);
  void activate(Window& child);

  // The widget is about to vanish: if it has the focus, that goes to the form meanwhile. Left to
  // itself Qt would hand it to any other element.
  void vanishes(QWidget& widget);

  // The widget of an element got the focus.
  void arrived(WidgetView& view);

protected:
  // Sees every event: what is pressed in menus and boxes counts too.
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void childActivated(const QMdiArea& area);
  void settle();
  // nullptr when the widget is none of a window on the screen.
  Window* windowOf(const QWidget* widget) const;
  void later();
  // Puts Qt's focus and active child where the forms layer has them.
  void realign();
  void focus(Window& window);
  void outline(const WidgetView& view);
  void showInSight(const WidgetView& view);

  Reporter& reporter_;
  const Views& views_;
  QPointer<WidgetView> arrived_;
  QPointer<Outline> outline_;
  // Whether the person went on with the keyboard or the mouse: for the keyboard the focus has
  // an outline.
  bool keyboard_ = false;
  bool movedByQt_ = false; // what moves until settle() runs
};

} // namespace forms::qt
