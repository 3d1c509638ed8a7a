#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace strandline::desk {

// The inner part of ColourKeyCopy: rows already clipped to both surfaces, which do not overlap. Strides are in pixels.
struct KeyedRows {
  std::uint32_t* target;
  std::size_t targetStride;
  const std::uint32_t* source;
  std::size_t sourceStride;
  std::size_t width;
  std::size_t height;
  std::uint32_t key;
};

// One loop compiled for several processors.
struct KeyedRowsVariant {
  const char* name;
  void (*copy)(const KeyedRows& rows);
};

// Those this processor can run, the fastest first; the last one runs anywhere. For tests and measurements, which would
// otherwise only meet the first.
std::vector<KeyedRowsVariant> KeyedRowsVariants();

// Copies every pixel but those of the key colour, with the fastest variant.
void CopyKeyedRows(const KeyedRows& rows);

}  // namespace strandline::desk
