#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "platform/desk/picture_decoder.h"

namespace strandline::desk {

/// One picture format: each decoder may be handed any bytes and gives nullopt unless the whole picture is sound.
/// Running out of memory is the only thing a decoder may throw.
std::optional<DecodedImage> DecodeGif(std::span<const std::uint8_t> bytes);
std::optional<DecodedImage> DecodeJpeg(std::span<const std::uint8_t> bytes);
std::optional<DecodedImage> DecodeBmp(std::span<const std::uint8_t> bytes);

/// The size a picture may have. Asked before anything is allocated, since a header of a few bytes may claim gigabytes.
constexpr bool IsDecodableSize(std::int64_t width, std::int64_t height) {
  constexpr std::int64_t kMaxPixels = std::int64_t{16} << 20;
  return width > 0 && height > 0 && width <= kMaxPixels && height <= kMaxPixels / width;
}

constexpr std::size_t PixelCount(int width, int height) {
  return static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
}

constexpr std::uint32_t PackRgb(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
  return red << 16 | green << 8 | blue;
}

}  // namespace strandline::desk
