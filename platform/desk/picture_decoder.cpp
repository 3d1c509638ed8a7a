#include "platform/desk/picture_decoder.h"

#include <algorithm>
#include <array>
#include <new>
#include <string_view>

#include "platform/desk/picture_formats.h"

namespace strandline::desk {
namespace {

struct PictureFormat {
  std::string_view name;
  std::string_view signature;  // The first bytes of every picture of this format.
  std::optional<DecodedImage> (*decode)(std::span<const std::uint8_t> bytes);

  bool Sniff(std::span<const std::uint8_t> bytes) const {
    return bytes.size() >= signature.size() &&
           std::equal(signature.begin(), signature.end(), bytes.begin(),
                      [](char expected, std::uint8_t byte) { return static_cast<std::uint8_t>(expected) == byte; });
  }
};

constexpr std::array<PictureFormat, 4> kFormats{{
    {"GIF 89a", "GIF89a", DecodeGif},
    {"GIF 87a", "GIF87a", DecodeGif},
    {"JPEG", "\xFF\xD8\xFF", DecodeJpeg},
    {"BMP", "BM", DecodeBmp},
}};

}  // namespace

std::optional<DecodedImage> DecodePicture(std::span<const std::uint8_t> bytes) {
  const auto format =
      std::find_if(kFormats.begin(), kFormats.end(), [bytes](const PictureFormat& each) { return each.Sniff(bytes); });
  if (format == kFormats.end()) return std::nullopt;
  try {
    return format->decode(bytes);
  } catch (const std::bad_alloc&) {
    return std::nullopt;
  }
}

}  // namespace strandline::desk
