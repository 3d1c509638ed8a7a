#pragma once

#include "platform/values.h"

namespace strandline {

// What an ad panel sees of the strip on which it stands.
class AdStrip {
 public:
  virtual void PaintAd(Boolean forceEraseBackground) = 0;

 protected:
  ~AdStrip() = default;
};

}  // namespace strandline
