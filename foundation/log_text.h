#pragma once

// The text of a message. It refers to its pieces, which stand on the caller's stack until the call is over: composing
// takes no memory, and whoever wants it as one text asks.

#include <array>

#include "foundation/reporter.h"

namespace strandline {

// A number as a piece of a message, in upper-case hexadecimal.
struct Hex {
  Long value;
};

class LogPiece {
 public:
  LogPiece(const char16_t* text) : mKind(Kind::kText), mText(text) {}
  LogPiece(const String& text) : mKind(Kind::kText), mText(text) {}
  LogPiece(Hex hex) : mKind(Kind::kHex), mNumber(hex.value) {}
  LogPiece(Long number) : mKind(Kind::kDecimal), mNumber(number) {}
  LogPiece(Integer number) : mKind(Kind::kDecimal), mNumber(number) {}
  LogPiece(Boolean flag) : mKind(Kind::kFlag), mNumber(flag) {}

  String Text() const;

 private:
  enum class Kind : std::uint8_t { kText, kHex, kDecimal, kFlag };
  Kind mKind;
  Long mNumber = 0;
  TextView mText;
};

template <std::size_t kCount>
using LogPieces = std::array<LogPiece, kCount>;

// The pieces of one message, in order.
template <class... Piece>
LogPieces<sizeof...(Piece)> Joined(const Piece&... piece) {
  return {LogPiece(piece)...};
}

class LogText {
 public:
  LogText(const char16_t* text) : mConstant(text) {}
  template <std::size_t kCount>
  LogText(const LogPieces<kCount>& pieces) : mPieces(pieces.data()), mCount(kCount) {}

  String Text() const;
  operator Variant() const { return Text(); }

 private:
  const char16_t* mConstant = nullptr;
  const LogPiece* mPieces = nullptr;
  std::size_t mCount = 0;
};

}  // namespace strandline
