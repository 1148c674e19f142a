#pragma once

#include <utility>

namespace dialwright {

/// A plain property of a control: assigned and read like a variable; a value that really changes is
/// told to the control.
template <class T, class Owner>
class Property {
 public:
  Property(Owner& propertyOwner, T initial) : owner(propertyOwner), value(std::move(initial)) {}
  Property(const Property&) = delete;
  Property& operator=(const Property&) = delete;

  Property& operator=(T next) {
    if (next != value) {
      value = std::move(next);
      owner.PropertyChanged();
    }
    return *this;
  }
  operator const T&() const { return value; }
  const T& operator()() const { return value; }

 private:
  Owner& owner;
  T value;
};

}  // namespace dialwright
