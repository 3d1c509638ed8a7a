#pragma once

// The pixels that stand in a window now.

#include <cstdint>
#include <vector>

#include "platform/values.h"

namespace strandline::wordhost {

struct WindowPixels {
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> pixels;  // 0x00RRGGBB, row by row from the top
};

// Without pixels where there is no such window or it can't be read.
WindowPixels ReadWindow(Long hwnd);

}  // namespace strandline::wordhost
