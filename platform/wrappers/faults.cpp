#include "platform/wrappers/faults.h"

#include <algorithm>

namespace strandline {
namespace {

std::string Lower(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; });
  return lower;
}

}  // namespace

void Faults::Arm(std::string call, int count) {
  if (count > 0) mArmed[Lower(call)] += count;
}

bool Faults::TakeArmed(std::string_view call) {
  const auto armed = mArmed.find(Lower(call));
  if (armed == mArmed.end()) return false;
  if (--armed->second == 0) mArmed.erase(armed);
  return true;
}

}  // namespace strandline
