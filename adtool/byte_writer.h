#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace strandline::adtool {

// Bytes of a file that is being written, numbers in little-endian.
class ByteWriter {
 public:
  std::size_t Size() const { return mBytes.size(); }
  std::vector<std::uint8_t> Take() { return std::move(mBytes); }

  void Number16(std::size_t value) { Number(value, 2); }
  void Number32(std::size_t value) { Number(value, 4); }
  void Append(const std::vector<std::uint8_t>& bytes) { mBytes.insert(mBytes.end(), bytes.begin(), bytes.end()); }
  // With its count of characters before it.
  void CountedText(std::u16string_view text) {
    Number16(text.size());
    for (const char16_t c : text) Number16(c);
  }
  void Zeros(std::size_t count) { mBytes.resize(mBytes.size() + count); }
  // Zeros up to a multiple.
  void Align(std::size_t step) { mBytes.resize((mBytes.size() + step - 1) / step * step); }

 private:
  void Number(std::size_t value, int count) {
    for (int i = 0; i < count; ++i) mBytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
  }

  std::vector<std::uint8_t> mBytes;
};

}  // namespace strandline::adtool
