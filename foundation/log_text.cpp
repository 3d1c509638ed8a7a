#include "foundation/log_text.h"

#include "platform/convert.h"

namespace strandline {

String LogPiece::Text() const {
  switch (mKind) {
    case Kind::kHex:
      return HexText(mNumber);
    case Kind::kDecimal:
      return DecimalText(mNumber);
    case Kind::kFlag:
      return TextFromBoolean(mNumber != 0);
    default:
      return mText;
  }
}

String LogText::Text() && {
  if (mConstant) return mConstant;
  std::u16string text;
  for (std::size_t i = 0; i < mCount; ++i) text += mPieces[i].Text().View();
  return String(text);
}

}  // namespace strandline
