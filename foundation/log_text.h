#pragma once

// The text of a message. It refers to its pieces, which stand on the caller's stack until the call is over: composing
// takes no memory, and whoever wants it as one text asks.
//
// What is composed is used in the statement that composes it: Log(Joined(u"Reveal ", hwnd)). Kept in a variable, it
// would refer to what is gone, so that a use of such a variable doesn't compile.

#include <array>

#include "foundation/reporter.h"

namespace strandline {

// A number as a piece of a message, in upper-case hexadecimal.
struct Hex {
  Long value;
};

class LogPiece {
 public:
  LogPiece(const LogPiece&) = delete;
  LogPiece& operator=(const LogPiece&) = delete;
  LogPiece(const char16_t* text) : mKind(Kind::kText), mText(text) {}
  LogPiece(const String& text) : mKind(Kind::kText), mText(text) {}
  LogPiece(Hex hex) : mKind(Kind::kHex), mNumber(hex.value) {}
  LogPiece(Long number) : mKind(Kind::kDecimal), mNumber(number) {}
  LogPiece(Integer number) : mKind(Kind::kDecimal), mNumber(number) {}
  LogPiece(Boolean flag) : mKind(Kind::kFlag), mNumber(flag) {}

 private:
  friend class LogText;

  String Text() const;

  enum class Kind : std::uint8_t { kText, kHex, kDecimal, kFlag };
  Kind mKind;
  Long mNumber = 0;
  TextView mText;
};

template <std::size_t kCount>
class LogPieces {
 public:
  LogPieces(const LogPieces&) = delete;
  LogPieces& operator=(const LogPieces&) = delete;

 private:
  friend class LogText;
  template <class... Piece>
  friend LogPieces<sizeof...(Piece)> Joined(const Piece&... piece);

  template <class... Piece>
  explicit LogPieces(const Piece&... piece) : mPieces{LogPiece(piece)...} {}

  std::array<LogPiece, kCount> mPieces;
};

// The pieces of one message, in order.
template <class... Piece>
[[nodiscard]] LogPieces<sizeof...(Piece)> Joined(const Piece&... piece) {
  return LogPieces<sizeof...(Piece)>(piece...);
}

class LogText {
 public:
  LogText(const char16_t* text) : mConstant(text) {}
  template <std::size_t kCount>
  LogText(LogPieces<kCount>&& pieces) : mPieces(pieces.mPieces.data()), mCount(kCount) {}
  LogText(const LogText&) = delete;
  LogText& operator=(const LogText&) = delete;

  String Text() &&;

 private:
  const char16_t* mConstant = nullptr;
  const LogPiece* mPieces = nullptr;
  std::size_t mCount = 0;
};

}  // namespace strandline
