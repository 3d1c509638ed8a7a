#include <gif_lib.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <utility>

#include "platform/desk/gif_codes.h"
#include "platform/desk/picture_formats.h"

namespace strandline::desk {
namespace {

// What the library has read of the picture so far.
struct Source {
  std::span<const std::uint8_t> bytes;
  std::size_t at = 0;

  std::span<const std::uint8_t> Rest() const { return bytes.subspan(at); }
};

int ReadSource(GifFileType* gif, GifByteType* buffer, int wanted) {
  auto& source = *static_cast<Source*>(gif->UserData);
  const std::size_t count = std::min(static_cast<std::size_t>(std::max(wanted, 0)), source.Rest().size());
  if (count != 0) std::memcpy(buffer, source.Rest().data(), count);
  source.at += count;
  return static_cast<int>(count);
}

struct CloseGif {
  void operator()(GifFileType* gif) const { DGifCloseFile(gif, nullptr); }
};
using Gif = std::unique_ptr<GifFileType, CloseGif>;

bool SkipExtension(GifFileType* gif) {
  int code = 0;
  GifByteType* block = nullptr;
  if (DGifGetExtension(gif, &code, &block) == GIF_ERROR) return false;
  while (block) {
    if (DGifGetExtensionNext(gif, &block) == GIF_ERROR) return false;
  }
  return true;
}

bool SkipFrame(GifFileType* gif) {
  int codeSize = 0;
  GifByteType* block = nullptr;
  if (DGifGetImageDesc(gif) == GIF_ERROR || DGifGetCode(gif, &codeSize, &block) == GIF_ERROR) return false;
  while (block) {
    if (DGifGetCodeNext(gif, &block) == GIF_ERROR) return false;
  }
  return true;
}

std::optional<DecodedImage> BlankScreen(const GifFileType& gif) {
  if (!IsDecodableSize(gif.SWidth, gif.SHeight)) return std::nullopt;
  std::uint32_t background = 0;
  if (const ColorMapObject* colors = gif.SColorMap; colors && gif.SBackGroundColor < colors->ColorCount) {
    const GifColorType& color = colors->Colors[gif.SBackGroundColor];
    background = PackRgb(color.Red, color.Green, color.Blue);
  }
  DecodedImage screen{gif.SWidth, gif.SHeight, {}};
  screen.pixels.assign(PixelCount(screen.width, screen.height), background);
  return screen;
}

// The palette index of each pixel of the frame the library stands at, rows from the top; empty if damaged.
std::vector<GifPixelType> ReadFrame(GifFileType* gif) {
  struct Pass {
    int first;
    int step;
  };
  static constexpr std::array<Pass, 4> kInterlaced{{{0, 8}, {4, 8}, {2, 4}, {1, 2}}};
  static constexpr std::array<Pass, 1> kPlain{{{0, 1}}};

  const GifImageDesc& frame = gif->Image;
  std::vector<GifPixelType> indices(PixelCount(frame.Width, frame.Height));
  for (const Pass& pass : frame.Interlace ? std::span<const Pass>(kInterlaced) : std::span<const Pass>(kPlain)) {
    for (int y = pass.first; y < frame.Height; y += pass.step) {
      if (DGifGetLine(gif, indices.data() + PixelCount(frame.Width, y), frame.Width) == GIF_ERROR) return {};
    }
  }
  return indices;
}

// Lays the frame the library stands at on the screen. A frame reaching beyond its screen, or with a pixel beyond its
// palette, is damaged.
bool DrawFrame(GifFileType* gif, const Source& source, DecodedImage& screen) {
  if (DGifGetImageDesc(gif) == GIF_ERROR) return false;
  const GifImageDesc& frame = gif->Image;
  const ColorMapObject* colors = frame.ColorMap ? frame.ColorMap : gif->SColorMap;
  if (!colors || !IsDecodableSize(frame.Width, frame.Height) || frame.Left + frame.Width > screen.width ||
      frame.Top + frame.Height > screen.height) {
    return false;
  }
  // The library has just read the code size, the byte before the codes.
  if (!AreGifCodesSound(source.Rest(), source.bytes[source.at - 1])) return false;
  const std::vector<GifPixelType> indices = ReadFrame(gif);
  if (indices.empty()) return false;

  // The mark of an index beyond the palette is no colour, so one look at all the drawn pixels together finds it.
  constexpr std::uint32_t kNoColor = 0xFF000000u;
  std::array<std::uint32_t, 256> palette;
  palette.fill(kNoColor);
  std::transform(colors->Colors, colors->Colors + colors->ColorCount, palette.begin(),
                 [](const GifColorType& color) { return PackRgb(color.Red, color.Green, color.Blue); });
  std::uint32_t drawn = 0;
  const GifPixelType* index = indices.data();
  for (int y = frame.Top; y < frame.Top + frame.Height; ++y) {
    std::uint32_t* pixel = screen.pixels.data() + PixelCount(screen.width, y) + frame.Left;
    for (int x = 0; x < frame.Width; ++x) {
      pixel[x] = palette[*index++];
      drawn |= pixel[x];
    }
  }
  return (drawn & kNoColor) == 0;
}

}  // namespace

// The frames after the first are not drawn but are walked, since a picture cut short in one of them is damaged too.
std::optional<DecodedImage> DecodeGif(std::span<const std::uint8_t> bytes) {
  Source source{bytes};
  const Gif gif(DGifOpen(&source, ReadSource, nullptr));
  if (!gif) return std::nullopt;
  std::optional<DecodedImage> screen = BlankScreen(*gif);
  if (!screen) return std::nullopt;

  bool drawn = false;
  while (!drawn || !source.Rest().empty()) {
    GifRecordType record = UNDEFINED_RECORD_TYPE;
    if (DGifGetRecordType(gif.get(), &record) == GIF_ERROR) return std::nullopt;
    bool sound = false;
    switch (record) {
      case IMAGE_DESC_RECORD_TYPE:
        sound = drawn ? SkipFrame(gif.get()) : DrawFrame(gif.get(), source, *screen);
        drawn = true;
        break;
      case EXTENSION_RECORD_TYPE:
        sound = SkipExtension(gif.get());
        break;
      case TERMINATE_RECORD_TYPE:
        return drawn ? std::move(screen) : std::nullopt;
      default:
        break;
    }
    if (!sound) return std::nullopt;
  }
  return screen;
}

}  // namespace strandline::desk
