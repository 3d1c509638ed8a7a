#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace strandline {

// Which of the coming calls are to fail, by the name of the call; letters A to Z are taken without case.
class Faults {
 public:
  // So many more of the next calls; a count below 1 adds none.
  void Arm(std::string call, int count);
  // Whether this call is to fail, which uses that up.
  bool Take(std::string_view call) { return !mArmed.empty() && TakeArmed(call); }
  void Clear() { mArmed.clear(); }

 private:
  bool TakeArmed(std::string_view call);

  std::map<std::string, std::int64_t> mArmed;  // lower case; counts above 0 only
};

}  // namespace strandline
