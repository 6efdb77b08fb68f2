// A value of a screen element that tells the open screen when it changes.
#pragma once

#include <functional>
#include <utility>

namespace forms {

class Element;

// What an element needs to know of its properties, whatever type they hold.
class PropertyBase {
public:
  explicit PropertyBase(Element& owner);
  PropertyBase(const PropertyBase&) = delete;
  PropertyBase& operator=(const PropertyBase&) = delete;

  // Makes the present value the one that the element is made with.
  virtual void keepAsMade() = 0;
  // Goes back to the value that the element is made with. Raises no event.
  virtual void restoreAsMade() = 0;
  // The owner's properties form a chain.
  PropertyBase* next() const { return next_; }

protected:
  ~PropertyBase() = default;
  void tellOwner();

private:
  Element& owner_;
  PropertyBase* next_;
};

// Assigning another value tells the owner, which tells the desktop if its window is on the screen.
// Where `raised` is set, assigning another value also raises that event, whoever assigns.
template <class T> class Property final : public PropertyBase {
public:
  Property(Element& owner, T initial) : PropertyBase(owner), value_(initial), made_(initial) {}

  Property& operator=(T value) {
    if (value == value_)
      return *this;
    value_ = std::move(value);
    tellOwner();
    if (raised)
      raised();
    return *this;
  }
  Property& operator=(const Property& other) { return *this = other.value_; }
  operator const T&() const { return value_; }
  const T& get() const { return value_; }

  friend bool operator==(const Property& property, const T& value) {
    return property.value_ == value;
  }

  void keepAsMade() override { made_ = value_; }
  void restoreAsMade() override { value_ = made_; }

  std::function<void()> raised;

private:
  T value_;
  T made_;
};

} // namespace forms
