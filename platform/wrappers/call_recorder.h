#pragma once

#include <span>
#include <string_view>

#include "platform/wrappers/call_argument.h"

namespace strandline {

// Whoever wants to know the calls across the seam.
class CallRecorder {
 public:
  virtual ~CallRecorder() = default;
  // After the call has returned, so that calls which it brought about come before it. Arguments by reference are as
  // they are then. A call that raises isn't recorded.
  virtual void Record(std::string_view call, std::span<const CallArgument> arguments, const CallArgument& result) = 0;
};

}  // namespace strandline
