#pragma once

#include "platform/array.h"
#include "platform/text.h"

namespace strandline {

// Goes through the pieces of a text between separators. The empty text has none; any other may have empty ones. The
// text outlives this.
class Pieces {
 public:
  Pieces(TextView text, char16_t separator) : mRest(text), mSeparator(separator), mIsOver(text.empty()) {}

  // False, and the piece as it was, at the end.
  bool Next(TextView& piece) {
    if (mIsOver) return false;
    const std::size_t end = mRest.find(mSeparator);
    piece = mRest.substr(0, end);
    mIsOver = end == TextView::npos;
    if (!mIsOver) mRest.remove_prefix(end + 1);
    return true;
  }

 private:
  TextView mRest;
  char16_t mSeparator;
  bool mIsOver;
};

// All of them, from 0; sized and empty for the empty text.
inline Array<String> Split(TextView text, char16_t separator) {
  Long count = 0;
  TextView piece;
  for (Pieces counted(text, separator); counted.Next(piece);) ++count;
  Array<String> all(0, count - 1);
  Pieces pieces(text, separator);
  for (Long i = 0; pieces.Next(piece); ++i) all(i) = piece;
  return all;
}

}  // namespace strandline
