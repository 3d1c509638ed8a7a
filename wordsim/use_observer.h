#pragma once

// Whoever wants to know what is asked of the simulated objects implements UseObserver: it is told each use of a member
// after the use is complete, so that what arose inside it was told before.

#include <span>
#include <string>
#include <string_view>

#include "platform/variant.h"

namespace strandline::wordsim {

// kEach is one step of going through a collection; it has no member of its own.
enum class UseOp { kGet, kLet, kCall, kEach };

// One complete use. Everything in it is valid during the telling only.
struct ObjectUse {
  std::string object;  // the journal's name of the object
  UseOp op = UseOp::kGet;
  std::string_view member;             // as the caller spells it; empty for kEach
  std::span<const Variant> arguments;  // by-reference ones still refer: Resolved() gives what the callee left there
  std::span<const Named> named;
  const Variant* value = nullptr;  // the result, for kLet what was written; null where the use raised
  const Error* error = nullptr;    // null where it didn't
};

class UseObserver {
 public:
  virtual void OnUse(const ObjectUse& use) = 0;

 protected:
  ~UseObserver() = default;
};

}  // namespace strandline::wordsim
