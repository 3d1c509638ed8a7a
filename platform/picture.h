#pragma once

// A picture object: a bitmap with its extents. What holds the picture last decides over the bitmap: a picture that owns
// its bitmap deletes it, unless somebody else has deleted it before.

#include "platform/error.h"
#include "platform/ref.h"
#include "platform/values.h"

namespace strandline {

class PictureObject : public RefCounted {
 public:
  // The members by which automation reaches them.
  static constexpr Long kHandleId = 0;
  static constexpr Long kWidthId = 4;
  static constexpr Long kHeightId = 5;

  virtual Long Handle() const = 0;  // the bitmap, the picture's own
  virtual Long Width() const = 0;   // HIMETRIC, hundredths of a millimetre
  virtual Long Height() const = 0;  // HIMETRIC
};

using Picture = Ref<PictureObject>;

// The picture, which must be there: Nothing raises 91.
inline PictureObject& Required(const Picture& picture) {
  if (!picture) Raise(errors::kObjectNotSet);
  return *picture;
}

}  // namespace strandline
