#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/values.h"

namespace strandline::desk {

// Bytes of a file, asked by offsets and counts that may be anything, since the file itself tells them. Numbers are
// little-endian; one that isn't there whole is 0, and so is no reason to stop by itself: ask Holds first.
class ByteView {
 public:
  ByteView() = default;
  explicit ByteView(std::span<const Byte> bytes) : mBytes(bytes) {}

  std::span<const Byte> Bytes() const { return mBytes; }
  std::uint64_t Size() const { return mBytes.size(); }
  bool Holds(std::uint64_t at, std::uint64_t count) const { return at <= Size() && count <= Size() - at; }

  std::uint16_t Number16(std::uint64_t at) const { return static_cast<std::uint16_t>(Number(at, 2)); }
  std::uint32_t Number32(std::uint64_t at) const { return Number(at, 4); }

  // As much of the bytes from there on as is held, at most `count`.
  ByteView Part(std::uint64_t at, std::uint64_t count) const {
    if (at >= Size()) return {};
    const std::uint64_t rest = Size() - at;
    return ByteView(
        mBytes.subspan(static_cast<std::size_t>(at), static_cast<std::size_t>(count < rest ? count : rest)));
  }
  ByteView From(std::uint64_t at) const { return Part(at, Size()); }

 private:
  std::uint32_t Number(std::uint64_t at, unsigned count) const {
    if (!Holds(at, count)) return 0;
    std::uint32_t value = 0;
    for (unsigned i = 0; i < count; ++i) {
      value |= static_cast<std::uint32_t>(mBytes[static_cast<std::size_t>(at) + i]) << (8 * i);
    }
    return value;
  }

  std::span<const Byte> mBytes;
};

}  // namespace strandline::desk
