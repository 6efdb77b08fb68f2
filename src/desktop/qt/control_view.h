// The common part of all elements that are widgets on a form.
#pragma once

#include <QPalette>

#include "desktop/qt/accessibility.h"
#include "desktop/qt/element_view.h"
#include "desktop/qt/form.h"
#include "desktop/qt/screen.h"

class QMouseEvent;

namespace forms::qt {

// Place, visibility, names, and the mouse's way to the forms layer.
class ControlView : public WidgetView {
public:
  void remove() override;
  QRect placeAt(const Scale& scale) const final { return placeFor(scale.pixels(*element())); }

protected:
  ControlView(Element& element, Screen& screen, QWidget* widget);
  Screen& screen() const { return screen_; }

  // Gives the widget the element's colours in the two roles that its kind is drawn with.
  void setColors(QPalette::ColorRole background, QPalette::ColorRole foreground);

  void syncWidget() final;
  // Brings the kind's own properties into line.
  virtual void syncKind() = 0;
  // Text that names the element when it has no AccessibleName.
  virtual QString caption() const { return {}; }
  // What screen readers say after the name.
  virtual QString description() const;
  // Where the widget stands.
  Form& form() const { return static_cast<Form&>(*widget().parentWidget()); }
  const Scale& scale() const { return form().scale(); }
  // Pixels on the form for the element's own place and size.
  virtual QRect placeFor(const QRect& wanted) const { return wanted; }

  bool eventFilter(QObject* watched, QEvent* event) override;
  // Reports what the person did with the widget, and shows what has come of it: the forms layer may
  // have refused it or changed it.
  template <class Tell> void reportUse(Tell tell) {
    if (reporter().isQuiet() || !element())
      return;
    reporter().report(tell);
    if (element())
      sync();
  }
  // Reports that the left button, a key or a screen reader clicked the element.
  void click();
  // Whether a screen reader's press clicks the element, whose widget must be Pressable.
  void offerPress(bool offered);

private:
  void syncNames();
  void syncReach();
  // Whether the widget shall handle the press.
  bool pressed(const QMouseEvent& event);
  void released(const QMouseEvent& event);

  Screen& screen_;
  Scale fontScale_{0}; // of the font that the widget has
  // The widget, if it signals no clicks: a press and a release over it make one.
  Pressable* pressable_;
  bool armed_ = false; // pressed and not yet let go
};

// The view of one kind of element by one kind of widget.
template <class Shown, class Widget> class ViewOf : public ControlView {
public:
  Widget& widget() const { return static_cast<Widget&>(ControlView::widget()); }

protected:
  ViewOf(Shown& element, Screen& screen, Widget* widget) : ControlView(element, screen, widget) {}
  // To be asked only while there is an element.
  Shown& shown() const { return elementAs<Shown>(); }
};

ElementView* makePictureView(Picture& picture, Screen& screen, QWidget* form);

} // namespace forms::qt
