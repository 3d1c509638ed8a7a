#pragma once

// An array with a lower bound of its own, which knows whether it was ever sized. A subscript outside its bounds raises
// error 9. Copies are copies of the elements.

#include <deque>
#include <optional>
#include <type_traits>
#include <vector>

#include "platform/error.h"

namespace strandline {

template <class T>
class Array {
 public:
  // Flags stand in a deque, where each is a variable of its own that can be referred to.
  using Storage = std::conditional_t<std::is_same_v<T, bool>, std::deque<bool>, std::vector<T>>;

  Array() = default;
  Array(Long lower, Long upper) { Size(lower, upper); }

  // Gives the array new, default elements from `lower` to `upper`; upper may be lower - 1: sized, but empty.
  void Size(Long lower, Long upper) {
    if (upper < lower - 1) Raise(errors::kSubscriptOutOfRange);
    mLower = lower;
    mElements.emplace(static_cast<std::size_t>(static_cast<std::int64_t>(upper) - lower + 1));
  }
  void Erase() { mElements.reset(); }

  bool IsSized() const { return mElements.has_value(); }
  Long Lower() const {
    RequireSized();
    return mLower;
  }
  Long Upper() const { return Lower() + static_cast<Long>(mElements->size()) - 1; }

  T& operator()(Long subscript) { return (*mElements)[Position(subscript)]; }
  const T& operator()(Long subscript) const { return (*mElements)[Position(subscript)]; }

  // The elements in order; none when never sized.
  const Storage& Elements() const {
    static const Storage kNone;
    return mElements ? *mElements : kNone;
  }
  T* Data() { return mElements ? mElements->data() : nullptr; }

  friend bool operator==(const Array&, const Array&) = default;

 private:
  void RequireSized() const {
    if (!mElements) Raise(errors::kSubscriptOutOfRange);
  }
  std::size_t Position(Long subscript) const {
    RequireSized();
    const std::int64_t position = static_cast<std::int64_t>(subscript) - mLower;
    if (position < 0 || position >= static_cast<std::int64_t>(mElements->size())) Raise(errors::kSubscriptOutOfRange);
    return static_cast<std::size_t>(position);
  }

  Long mLower = 0;
  std::optional<Storage> mElements;
};

// A fixed array: bounds known when it is compiled, the same check of subscripts.
template <class T, Long kLower, Long kUpper>
class FixedArray {
 public:
  T& operator()(Long subscript) { return mElements[Position(subscript)]; }
  const T& operator()(Long subscript) const { return mElements[Position(subscript)]; }
  static constexpr Long Lower() { return kLower; }
  static constexpr Long Upper() { return kUpper; }

 private:
  static std::size_t Position(Long subscript) {
    if (subscript < kLower || subscript > kUpper) Raise(errors::kSubscriptOutOfRange);
    return static_cast<std::size_t>(subscript - kLower);
  }
  T mElements[static_cast<std::size_t>(kUpper - kLower + 1)] = {};
};

}  // namespace strandline
