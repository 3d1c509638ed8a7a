#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace strandline::desk {

/// A decoded picture: rows from the top, each pixel 0x00RRGGBB.
struct DecodedImage {
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> pixels;
};

/// Decodes a GIF, JPEG or BMP, told apart by content.
///
/// A GIF gives its first frame, laid on its logical screen; what the frame leaves uncovered has the background colour.
/// Transparency is ignored: a transparent index keeps its palette colour, because the pictures here are keyed by
/// colour.
///
/// nullopt for anything damaged, truncated, larger than 16 megapixels, or no picture at all. Forgiven is only a loss
/// after which the picture is still whole: a GIF that ends after a complete frame without its trailer byte, a BMP whose
/// last row lacks its padding. Bytes after the picture are ignored. Never throws, prints nothing, keeps no state: any
/// thread may call it.
std::optional<DecodedImage> DecodePicture(std::span<const std::uint8_t> bytes);

}  // namespace strandline::desk
