#include "platform/desk/bmp_checks.h"

#include <cstddef>
#include <optional>

#include "platform/desk/picture_formats.h"

namespace strandline::desk {
namespace {

constexpr std::size_t kFileHeaderSize = 14;
constexpr std::uint32_t kCoreHeaderSize = 12;  // The oldest header, with 16-bit width and height and nothing optional.
constexpr std::uint32_t kInfoHeaderSize = 40;  // The header every later one begins with.

enum Packing : std::uint32_t { kPlain = 0, kRuns8 = 1, kRuns4 = 2, kMasks = 3 };

struct Header {
  std::int64_t width = 0;
  std::int64_t height = 0;
  std::uint32_t bitsPerPixel = 0;
  std::uint32_t packing = kPlain;
  std::uint32_t paletteColors = 0;  // 0: as many as the pixels can tell apart.
};

std::uint32_t ReadLittleEndian(std::span<const std::uint8_t> bytes, std::size_t at, std::size_t count) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < count; ++i) value |= static_cast<std::uint32_t>(bytes[at + i]) << (8 * i);
  return value;
}

std::optional<Header> ReadHeader(std::span<const std::uint8_t> bytes) {
  if (bytes.size() < kFileHeaderSize + kCoreHeaderSize) return std::nullopt;
  const std::span<const std::uint8_t> header = bytes.subspan(kFileHeaderSize);
  const std::uint32_t size = ReadLittleEndian(header, 0, 4);
  if (size == kCoreHeaderSize) {
    return Header{ReadLittleEndian(header, 4, 2), ReadLittleEndian(header, 6, 2), ReadLittleEndian(header, 10, 2)};
  }
  if (size < kInfoHeaderSize || header.size() < kInfoHeaderSize) return std::nullopt;
  // A negative height means rows from the top.
  const std::int64_t height = static_cast<std::int32_t>(ReadLittleEndian(header, 8, 4));
  return Header{static_cast<std::int32_t>(ReadLittleEndian(header, 4, 4)), height < 0 ? -height : height,
                ReadLittleEndian(header, 14, 2), ReadLittleEndian(header, 16, 4), ReadLittleEndian(header, 32, 4)};
}

bool IsKnownPacking(const Header& header) {
  switch (header.packing) {
    case kPlain:
      return true;
    case kRuns8:
      return header.bitsPerPixel == 8;
    case kRuns4:
      return header.bitsPerPixel == 4;
    case kMasks:
      return header.bitsPerPixel == 16 || header.bitsPerPixel == 32;
    default:
      return false;
  }
}

// Walks the runs: pairs of a count and the pixel it repeats; after a count of zero, an escape.
bool DoRunsStayInside(std::span<const std::uint8_t> runs, const Header& header) {
  constexpr std::uint8_t kEndOfRow = 0;
  constexpr std::uint8_t kEndOfPicture = 1;
  constexpr std::uint8_t kMove = 2;  // Any higher escape is a count of pixels that follow as they are.
  std::int64_t x = 0;
  std::int64_t y = 0;
  while (runs.size() >= 2) {
    const std::uint8_t count = runs[0];
    const std::uint8_t escape = runs[1];
    runs = runs.subspan(2);
    if (count != 0) {
      x += count;
    } else if (escape == kEndOfRow) {
      x = 0;
      ++y;
      continue;
    } else if (escape == kEndOfPicture) {
      return true;
    } else if (escape == kMove) {
      if (runs.size() < 2) return false;
      x += runs[0];
      y += runs[1];
      runs = runs.subspan(2);
    } else {
      x += escape;
      const std::size_t length = header.packing == kRuns4 ? (escape + 1u) / 2 : escape;
      const std::size_t padded = length + length % 2;
      if (runs.size() < padded) return false;
      runs = runs.subspan(padded);
    }
    if (x > header.width || y >= header.height) return false;
  }
  return false;
}

}  // namespace

bool IsBmpSound(std::span<const std::uint8_t> bytes) {
  const std::optional<Header> header = ReadHeader(bytes);
  if (!header || !IsDecodableSize(header->width, header->height) || !IsKnownPacking(*header)) return false;
  if (header->bitsPerPixel <= 8 && header->paletteColors > 1u << header->bitsPerPixel) return false;
  if (header->packing != kRuns8 && header->packing != kRuns4) return true;
  const std::uint32_t start = ReadLittleEndian(bytes, 10, 4);
  return start <= bytes.size() && DoRunsStayInside(bytes.subspan(start), *header);
}

}  // namespace strandline::desk
