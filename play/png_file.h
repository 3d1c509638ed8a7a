#pragma once

// Pictures as PNG files, without compression: they are small and short-lived.

#include <cstdint>
#include <span>
#include <string>

namespace strandline::play {

// Pixels as 0x..RRGGBB, row by row from the top. False when the size is none or the file can't be written.
bool WritePngFile(const std::string& path, int width, int height, std::span<const std::uint32_t> pixels);

}  // namespace strandline::play
