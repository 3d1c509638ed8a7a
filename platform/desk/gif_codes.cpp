#include "platform/desk/gif_codes.h"

#include <cstddef>

namespace strandline::desk {
namespace {

constexpr unsigned kMaxPixelBits = 8;
constexpr unsigned kMaxCodeBits = 12;

// Follows the growth of the decoder's code table without building it: soundness needs only how far it is filled.
class CodeTable {
 public:
  explicit CodeTable(unsigned pixelBits) : mPixelBits(pixelBits) { Clear(); }

  unsigned CodeBits() const { return mCodeBits; }
  bool IsClear(std::uint32_t code) const { return code == std::uint32_t{1} << mPixelBits; }
  bool IsEnd(std::uint32_t code) const { return code == (std::uint32_t{1} << mPixelBits) + 1; }

  void Clear() {
    mCodeBits = mPixelBits + 1;
    mDefined = (std::uint32_t{1} << mPixelBits) + 2;
    mFollowsClear = true;
  }

  // Takes the next run code; false when it stands for nothing.
  bool Take(std::uint32_t code) {
    if (mFollowsClear) {
      mFollowsClear = false;
      return code < std::uint32_t{1} << mPixelBits;
    }
    // A full table defines no more.
    if (mDefined == std::uint32_t{1} << kMaxCodeBits) return true;
    if (code > mDefined) return false;
    ++mDefined;
    if (mDefined == std::uint32_t{1} << mCodeBits && mCodeBits < kMaxCodeBits) ++mCodeBits;
    return true;
  }

 private:
  unsigned mPixelBits;
  unsigned mCodeBits = 0;
  std::uint32_t mDefined = 0;
  bool mFollowsClear = true;
};

}  // namespace

bool AreGifCodesSound(std::span<const std::uint8_t> blocks, unsigned codeSize) {
  if (codeSize == 0 || codeSize > kMaxPixelBits) return false;
  CodeTable table(codeSize);
  std::uint32_t bits = 0;
  unsigned bitCount = 0;
  while (!blocks.empty() && blocks.front() != 0) {
    const std::size_t length = blocks.front();
    blocks = blocks.subspan(1);
    if (length > blocks.size()) return false;
    for (const std::uint8_t byte : blocks.first(length)) {
      bits |= std::uint32_t{byte} << bitCount;
      bitCount += 8;
      while (bitCount >= table.CodeBits()) {
        const unsigned width = table.CodeBits();
        const std::uint32_t code = bits & ((std::uint32_t{1} << width) - 1);
        bits >>= width;
        bitCount -= width;
        if (table.IsEnd(code)) return true;
        if (table.IsClear(code)) {
          table.Clear();
        } else if (!table.Take(code)) {
          return false;
        }
      }
    }
    blocks = blocks.subspan(length);
  }
  return true;
}

}  // namespace strandline::desk
