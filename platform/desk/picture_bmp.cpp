#include <SDL_surface.h>

#include <climits>
#include <memory>

#include "platform/desk/bmp_checks.h"
#include "platform/desk/picture_formats.h"

namespace strandline::desk {
namespace {

struct FreeSurface {
  void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};
using Surface = std::unique_ptr<SDL_Surface, FreeSurface>;

// An index beyond the palette has no colour: such a picture is damaged.
bool CopyIndexedRows(const SDL_Surface& surface, const SDL_Palette& palette, DecodedImage& image) {
  const auto* row = static_cast<const std::uint8_t*>(surface.pixels);
  std::uint32_t* pixel = image.pixels.data();
  for (int y = 0; y < image.height; ++y, row += surface.pitch) {
    for (int x = 0; x < image.width; ++x) {
      if (row[x] >= palette.ncolors) return false;
      const SDL_Color& color = palette.colors[row[x]];
      *pixel++ = PackRgb(color.r, color.g, color.b);
    }
  }
  return true;
}

bool CopyTrueColorRows(const SDL_Surface& surface, DecodedImage& image) {
  if (SDL_ConvertPixels(image.width, image.height, surface.format->format, surface.pixels, surface.pitch,
                        SDL_PIXELFORMAT_RGB888, image.pixels.data(), image.width * 4) != 0) {
    return false;
  }
  // The fourth byte of a pixel is the library's to fill as it likes.
  for (std::uint32_t& pixel : image.pixels) pixel &= 0xFFFFFFu;
  return true;
}

}  // namespace

std::optional<DecodedImage> DecodeBmp(std::span<const std::uint8_t> bytes) {
  if (bytes.size() > INT_MAX || !IsBmpSound(bytes)) return std::nullopt;
  const Surface surface(SDL_LoadBMP_RW(SDL_RWFromConstMem(bytes.data(), static_cast<int>(bytes.size())), 1));
  if (!surface || !IsDecodableSize(surface->w, surface->h)) return std::nullopt;
  const SDL_PixelFormat& format = *surface->format;
  // The library widens the narrower indexed pictures to a byte a pixel; a version that kept them narrow is refused.
  if (format.BitsPerPixel < 8) return std::nullopt;

  DecodedImage image{surface->w, surface->h, {}};
  image.pixels.resize(PixelCount(image.width, image.height));
  const bool copied =
      format.palette ? CopyIndexedRows(*surface, *format.palette, image) : CopyTrueColorRows(*surface, image);
  if (!copied) return std::nullopt;
  return image;
}

}  // namespace strandline::desk
