#include <turbojpeg.h>

#include <memory>
#include <type_traits>

#include "platform/desk/picture_formats.h"

namespace strandline::desk {
namespace {

struct DestroyDecompressor {
  void operator()(void* handle) const { tjDestroy(handle); }
};
using Decompressor = std::unique_ptr<std::remove_pointer_t<tjhandle>, DestroyDecompressor>;

// The two other spaces are of four printing inks, which become colours only through the printer's profile.
bool IsScreenColorspace(int colorspace) {
  return colorspace == TJCS_GRAY || colorspace == TJCS_YCbCr || colorspace == TJCS_RGB;
}

}  // namespace

std::optional<DecodedImage> DecodeJpeg(std::span<const std::uint8_t> bytes) {
  const Decompressor handle(tjInitDecompress());
  if (!handle) return std::nullopt;

  DecodedImage image;
  int subsampling = 0;
  int colorspace = 0;
  if (tjDecompressHeader3(handle.get(), bytes.data(), bytes.size(), &image.width, &image.height, &subsampling,
                          &colorspace) != 0 ||
      !IsScreenColorspace(colorspace) || !IsDecodableSize(image.width, image.height)) {
    return std::nullopt;
  }

  // To the library a missing tail or a wrong code is a warning, after which it paints on in grey. Such a picture is
  // refused, so its first warning may as well end the decode.
  // The limit on scans stops a progressive picture made to keep the processor busy for minutes.
  constexpr int kFlags = TJFLAG_STOPONWARNING | TJFLAG_LIMITSCANS | TJFLAG_ACCURATEDCT;
  image.pixels.resize(PixelCount(image.width, image.height));
  if (tjDecompress2(handle.get(), bytes.data(), bytes.size(), reinterpret_cast<unsigned char*>(image.pixels.data()),
                    image.width, 0, image.height, TJPF_BGRX, kFlags) != 0) {
    return std::nullopt;
  }
  // The fourth byte of a pixel is the library's to fill as it likes.
  for (std::uint32_t& pixel : image.pixels) pixel &= 0xFFFFFFu;
  return image;
}

}  // namespace strandline::desk
