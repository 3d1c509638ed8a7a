#pragma once

#include <cstdint>
#include <span>

namespace strandline::desk {

/// Whether the compressed codes of a GIF frame all mean something: each must stand for a run of pixels already defined,
/// or for the one it defines itself. `blocks` begins at the frame's first data block; `codeSize` is the bits of a
/// pixel.
///
/// The GIF library turns a code that means nothing into pixels of its own making and reports no error. Whether the
/// codes give enough pixels, and whether the blocks end properly, the library does check.
bool AreGifCodesSound(std::span<const std::uint8_t> blocks, unsigned codeSize);

}  // namespace strandline::desk
