#pragma once

// Failures that are armed for uses to come: the next so many uses of a member of an object raise a number of choice,
// before anything else happens in them.

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/variant.h"

namespace strandline::wordsim {

inline constexpr Long kDefaultFaultNumber = 1000;

class UseFaults {
 public:
  // The next `count` uses of `member` of the object of that journal name raise `number`. A member written as
  // "Item(19)" fails only with that first argument; "each" stands for the steps of a walk. Names are compared without
  // case.
  void Arm(std::string_view object, std::string_view member, Long count = 1, Long number = kDefaultFaultNumber);

  bool IsArmed() const { return !mArmed.empty(); }
  // The number to raise, when a fault is armed for this use; it is used up by that.
  std::optional<Long> Take(std::string_view object, std::string_view member, std::span<const Variant> arguments);

 private:
  struct Armed {
    std::string object;
    std::string member;
    std::optional<std::string> argument;
    Long count;
    Long number;
  };
  std::vector<Armed> mArmed;
};

}  // namespace strandline::wordsim
