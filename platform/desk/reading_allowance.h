#pragma once

#include <cstdint>

namespace strandline::desk {

// How much may still be read of a file whose parts tell where others stand. In a sound one no two of them overlap, so
// that reading all costs no more than the file has; one that leads to the same bytes again and again spends its
// allowance and is left where it stands.
class ReadingAllowance {
 public:
  explicit ReadingAllowance(std::uint64_t bytes) : mLeft(bytes) {}

  // False, and nothing is left, where there isn't that much any more.
  bool Take(std::uint64_t bytes) {
    const bool enough = bytes <= mLeft;
    mLeft = enough ? mLeft - bytes : 0;
    return enough;
  }

 private:
  std::uint64_t mLeft;
};

}  // namespace strandline::desk
