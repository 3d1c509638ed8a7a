#pragma once

#include <cstdint>

namespace strandline {

// `step` of `steps` on the way from one colour to the other, each of its three parts rounded to nearest. Both worlds'
// canvases mix by this, so that their pictures can be compared.
constexpr std::uint32_t ColorBetween(std::uint32_t from, std::uint32_t to, std::int64_t step, std::int64_t steps) {
  std::uint32_t color = 0;
  for (int shift = 0; shift <= 16; shift += 8) {
    const std::int64_t first = from >> shift & 0xFF;
    const std::int64_t last = to >> shift & 0xFF;
    const std::int64_t part = steps == 0 ? first : (2 * (first * (steps - step) + last * step) + steps) / (2 * steps);
    color |= static_cast<std::uint32_t>(part) << shift;
  }
  return color;
}

}  // namespace strandline
