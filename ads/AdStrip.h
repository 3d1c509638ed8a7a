#pragma once

#include "platform/variant.h"

namespace strandline {

// What an ad panel sees of the strip on which it stands.
class AdStrip {
 public:
  virtual void PaintAd(Boolean forceEraseBackground) = 0;

  // As a trace or a dump shows it; a strip that is no object of the automation world is Nothing there.
  operator Variant() const { return Object(Ref<Dispatch>(dynamic_cast<Dispatch*>(const_cast<AdStrip*>(this)))); }

 protected:
  ~AdStrip() = default;
};

}  // namespace strandline
