// Properties: members that read and assign like plain values and tell their owner when they are assigned.
#pragma once

#include <type_traits>
#include <utility>

namespace stage {

template <class Hook>
struct OwnerOf;
template <class Owner, class... Values>
struct OwnerOf<void (Owner::*)(Values...)> {
  using type = Owner;
};

/// `OnSet` is a member function of the owner, called before the value is stored. If it takes the coming value
/// it is called at every assignment, and what it raises leaves the old value in place; if it takes none it is
/// called only when the value changes. Reading gives a `Read`: a Single reads as Double, so that sums run in
/// double precision and are rounded where they are stored.
template <class Value, auto OnSet, class Read = Value>
class Property {
  using Owner = typename OwnerOf<decltype(OnSet)>::type;

 public:
  Property(Owner* owner, Value value) : value_(std::move(value)), owner_(owner) {}
  Property(const Property&) = delete;

  Property& operator=(const Property& other) { return *this = other.value_; }  // NOLINT: assigns the value
  Property& operator=(const Value& value) {
    if constexpr (std::is_invocable_v<decltype(OnSet), Owner*, const Value&>) {
      (owner_->*OnSet)(value);
    } else if (!(value_ == value)) {
      (owner_->*OnSet)();
    }
    value_ = value;
    return *this;
  }
  operator Read() const { return value_; }  // NOLINT: reads like a plain member
  const Value& Get() const { return value_; }

 private:
  Value value_;
  Owner* owner_;
};

}  // namespace stage
