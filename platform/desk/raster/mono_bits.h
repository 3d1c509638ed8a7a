#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace strandline::desk {

// Rows of 1-bit pixels: 32 in an element, the leftmost in its lowest bit.

inline constexpr std::size_t kBitsOfAnElement = 32;

// `count` pixels, 1 to 32, from `at` on: the first one in the lowest bit, zeros above the last.
inline std::uint32_t BitsAt(const std::uint32_t* row, std::size_t at, std::size_t count) {
  const std::size_t element = at / kBitsOfAnElement;
  const std::size_t shift = at % kBitsOfAnElement;
  std::uint32_t bits = row[element] >> shift;
  if (shift + count > kBitsOfAnElement) bits |= row[element + 1] << (kBitsOfAnElement - shift);
  return count == kBitsOfAnElement ? bits : bits & ((std::uint32_t{1} << count) - 1);
}

// Writes `count` pixels from `at` on, which lie in one element.
inline void PutBits(std::uint32_t* row, std::size_t at, std::size_t count, std::uint32_t bits) {
  const std::size_t shift = at % kBitsOfAnElement;
  const std::uint32_t all = count == kBitsOfAnElement ? ~std::uint32_t{0} : (std::uint32_t{1} << count) - 1;
  std::uint32_t& element = row[at / kBitsOfAnElement];
  element = (element & ~(all << shift)) | (bits & all) << shift;
}

// Goes over the pixels from `left` to `right` in pieces of one element each, with `use(at, count)`.
template <typename Use>
void ForPiecesOfARow(std::size_t left, std::size_t right, Use use) {
  for (std::size_t at = left; at < right;) {
    const std::size_t count = std::min(kBitsOfAnElement - at % kBitsOfAnElement, right - at);
    use(at, count);
    at += count;
  }
}

}  // namespace strandline::desk
