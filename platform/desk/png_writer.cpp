#include "platform/desk/png_writer.h"

#include <png.h>

#include <cstdint>
#include <vector>

namespace strandline::desk {

namespace {

std::vector<std::uint8_t> BytesOf(const Surface& surface, const Clip& part) {
  std::vector<std::uint8_t> bytes;
  bytes.reserve(3 * static_cast<std::size_t>(part.right - part.left) *
                static_cast<std::size_t>(part.bottom - part.top));
  for (int y = part.top; y < part.bottom; ++y) {
    for (int x = part.left; x < part.right; ++x) {
      const std::uint32_t value = surface.Get(x, y);
      const std::uint32_t pixel = surface.IsMono() && value != 0 ? 0xFFFFFF : value;
      for (int shift = 16; shift >= 0; shift -= 8) bytes.push_back(static_cast<std::uint8_t>(pixel >> shift));
    }
  }
  return bytes;
}

}  // namespace

bool WritePng(const std::string& path, const Surface& surface, const Clip& area) {
  const Clip part = Intersect(area, surface.Bounds());
  if (IsEmpty(part)) return false;
  const std::vector<std::uint8_t> bytes = BytesOf(surface, part);
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(part.right - part.left);
  image.height = static_cast<png_uint_32>(part.bottom - part.top);
  image.format = PNG_FORMAT_RGB;
  constexpr int kKeepEightBits = 0;
  constexpr png_int_32 kTightRows = 0;
  const bool written = png_image_write_to_file(&image, path.c_str(), kKeepEightBits, bytes.data(), kTightRows, nullptr);
  png_image_free(&image);
  return written;
}

}  // namespace strandline::desk
