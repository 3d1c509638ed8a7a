#pragma once

#include <cstddef>
#include <cstdint>

#if defined(__GNUC__)
// At -O3 g++ otherwise unrolls a short loop into single pixels before it looks for vectors.
#define STRANDLINE_KEEP_LOOP _Pragma("GCC unroll 1")
#define STRANDLINE_ALWAYS_INLINE inline __attribute__((always_inline))
#define STRANDLINE_RESTRICT __restrict__
#else
#define STRANDLINE_KEEP_LOOP
#define STRANDLINE_ALWAYS_INLINE inline
#define STRANDLINE_RESTRICT
#endif

namespace strandline::desk {

// The inner loop has a constant length because compilers turn such a loop into vector code at -O2 already; a loop of
// unknown length they leave one pixel at a time.
template <std::size_t kBlock, typename Combine>
STRANDLINE_ALWAYS_INLINE std::size_t CombineBlocks(std::uint32_t* STRANDLINE_RESTRICT target,
                                                   const std::uint32_t* STRANDLINE_RESTRICT source, std::size_t begin,
                                                   std::size_t count, Combine combine) {
  for (; begin + kBlock <= count; begin += kBlock) {
    STRANDLINE_KEEP_LOOP
    for (std::size_t i = 0; i < kBlock; ++i) target[begin + i] = combine(target[begin + i], source[begin + i]);
  }
  return begin;
}

// target[i] becomes combine(target[i], source[i]) for each of `count` pixels. The rows must not overlap. It is always
// inlined so that a caller compiled for a newer processor gets that processor's vectors.
template <typename Combine>
STRANDLINE_ALWAYS_INLINE void CombineRow(std::uint32_t* target, const std::uint32_t* source, std::size_t count,
                                         Combine combine) {
  std::size_t done = CombineBlocks<16>(target, source, 0, count, combine);
  done = CombineBlocks<4>(target, source, done, count, combine);
  CombineBlocks<1>(target, source, done, count, combine);
}

}  // namespace strandline::desk
