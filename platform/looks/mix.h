#pragma once

// The mix of two pictures, the same in both worlds. A channel becomes from + (to - from) * share, where the share is
// taken as a whole number of 32768ths; the product is rounded to the nearest whole number, ties upwards. A share of 0
// gives the first picture and a share of 1 the second, exactly.

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/values.h"

namespace strandline {

// A share in 32768ths; what is below 0, or no number, counts as 0, and what is above 1 as 1.
inline constexpr int kWholeShare = 32768;
int ShareOf(Single percentage);

// One channel; both values are 0 to 255, the share is 0 to kWholeShare.
constexpr int MixChannel(int from, int to, int share) { return from + (((to - from) * share + kWholeShare / 2) >> 15); }

// Rows of pixels of four channels each, strides in pixels. The target may be one of the two pictures itself, in the
// same place; otherwise it overlaps neither.
struct MixedRows {
  std::uint32_t* target;
  std::size_t targetStride;
  const std::uint32_t* from;
  std::size_t fromStride;
  const std::uint32_t* to;
  std::size_t toStride;
  std::size_t width;
  std::size_t height;
  int share;
};

// One loop written for several processors; all give the same pixels.
struct MixVariant {
  const char* name;
  void (*mix)(const MixedRows& rows);
};

// Those this processor can run, the fastest first; the last one runs anywhere. For tests and measurements, which would
// otherwise only meet the first.
std::vector<MixVariant> MixVariants();

// Mixes with the fastest variant.
void MixRows(const MixedRows& rows);

}  // namespace strandline
