// What stands on the screen for one element.
#pragma once

#include <QObject>

#include "desktop/qt/services.h"
#include "forms/element.h"

class QWidget;

namespace forms::qt {

class ElementView : public QObject {
public:
  ElementView(Element& element, Services services, QObject* parent)
      : QObject(parent), services_(services), element_(&element) {}

  // Shows what the element's properties say now. Reports nothing.
  virtual void sync() = 0;
  // The widget that shows the element, if it has one.
  virtual QWidget* widget() const { return nullptr; }
  // The element goes: takes it off the screen and never looks at it again.
  void leave();
  // As leave, when the whole window goes with it.
  void forget() { element_ = nullptr; }

protected:
  virtual void takeOff() = 0;

  const Services& services() const { return services_; }
  // nullptr once the element has gone.
  Element* element() const { return element_; }
  template <class T> T* elementAs() const { return static_cast<T*>(element_); }

private:
  Services services_;
  Element* element_;
};

} // namespace forms::qt
