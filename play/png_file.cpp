#include "play/png_file.h"

#include <algorithm>
#include <cstdio>
#include <vector>

namespace strandline::play {

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::uint8_t kSignature[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
constexpr std::size_t kLongestStored = 0xFFFF;  // bytes in one block that is stored as it is

void Put32(Bytes& to, std::uint32_t value) {
  for (int shift = 24; shift >= 0; shift -= 8) to.push_back(static_cast<std::uint8_t>(value >> shift));
}

std::uint32_t Crc(std::span<const std::uint8_t> bytes) {
  std::uint32_t remainder = 0xFFFFFFFF;
  for (const std::uint8_t byte : bytes) {
    remainder ^= byte;
    for (int bit = 0; bit < 8; ++bit) remainder = remainder >> 1 ^ (remainder & 1 ? 0xEDB88320u : 0);
  }
  return ~remainder;
}

std::uint32_t Adler(std::span<const std::uint8_t> bytes) {
  std::uint32_t low = 1;
  std::uint32_t high = 0;
  for (const std::uint8_t byte : bytes) {
    low = (low + byte) % 65521;
    high = (high + low) % 65521;
  }
  return high << 16 | low;
}

void PutChunk(Bytes& to, const char (&type)[5], const Bytes& content) {
  Put32(to, static_cast<std::uint32_t>(content.size()));
  const std::size_t begin = to.size();
  to.insert(to.end(), type, type + 4);
  to.insert(to.end(), content.begin(), content.end());
  Put32(to, Crc(std::span(to).subspan(begin)));
}

Bytes Header(int width, int height) {
  Bytes header;
  Put32(header, static_cast<std::uint32_t>(width));
  Put32(header, static_cast<std::uint32_t>(height));
  const std::uint8_t rest[] = {8, 2, 0, 0, 0};  // bits a sample, true colour, the usual methods, not interlaced
  header.insert(header.end(), std::begin(rest), std::end(rest));
  return header;
}

Bytes Rows(int width, std::span<const std::uint32_t> pixels) {
  Bytes rows;
  rows.reserve(pixels.size() * 3 + pixels.size() / static_cast<std::size_t>(width));
  for (std::size_t i = 0; i < pixels.size(); ++i) {
    if (i % static_cast<std::size_t>(width) == 0) rows.push_back(0);  // the row isn't filtered
    for (int shift = 16; shift >= 0; shift -= 8) rows.push_back(static_cast<std::uint8_t>(pixels[i] >> shift));
  }
  return rows;
}

Bytes Stored(const Bytes& content) {
  Bytes stored = {0x78, 0x01};
  for (std::size_t at = 0; at < content.size();) {
    const std::size_t length = std::min(kLongestStored, content.size() - at);
    const bool isLast = at + length == content.size();
    const auto low = static_cast<std::uint8_t>(length);
    const auto high = static_cast<std::uint8_t>(length >> 8);
    const std::uint8_t head[] = {static_cast<std::uint8_t>(isLast), low, high, static_cast<std::uint8_t>(~low),
                                 static_cast<std::uint8_t>(~high)};
    stored.insert(stored.end(), std::begin(head), std::end(head));
    const auto from = content.begin() + static_cast<std::ptrdiff_t>(at);
    stored.insert(stored.end(), from, from + static_cast<std::ptrdiff_t>(length));
    at += length;
  }
  Put32(stored, Adler(content));
  return stored;
}

}  // namespace

bool WritePngFile(const std::string& path, int width, int height, std::span<const std::uint32_t> pixels) {
  if (width <= 0 || height <= 0) return false;
  if (pixels.size() != static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) return false;
  Bytes file(std::begin(kSignature), std::end(kSignature));
  PutChunk(file, "IHDR", Header(width, height));
  PutChunk(file, "IDAT", Stored(Rows(width, pixels)));
  PutChunk(file, "IEND", {});
  std::FILE* out = std::fopen(path.c_str(), "wb");
  if (!out) return false;
  const bool isWritten = std::fwrite(file.data(), 1, file.size(), out) == file.size();
  return std::fclose(out) == 0 && isWritten;
}

}  // namespace strandline::play
