// A value of a screen element that tells the open screen when it changes.
#pragma once

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
  // Goes back to the value that the element is made with, without telling anybody.
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

// Assigning another value tells the owner (Element::changed), whoever assigns.
template <class T> class Property final : public PropertyBase {
public:
  Property(Element& owner, T initial) : PropertyBase(owner), value_(std::move(initial)) {}

  Property& operator=(T value) {
    if (value == value_)
      return *this;
    value_ = std::move(value);
    tellOwner();
    return *this;
  }
  Property& operator=(const Property& other) { return *this = other.value_; }
  operator const T&() const { return value_; }
  const T& get() const { return value_; }
  bool operator==(const T& value) const { return value_ == value; }

  void keepAsMade() override { made_ = value_; }
  void restoreAsMade() override { value_ = made_; }

private:
  T value_;
  T made_{};
};

} // namespace forms
