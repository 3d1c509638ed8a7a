#pragma once

// Components of the product, each in a file of its own, created by the name under which they are registered.

#include "platform/variant.h"

namespace strandline {

class Components {
 public:
  virtual ~Components() = default;
  // Raises 429 when the component can't be created.
  virtual Object CreateObject(const String& progId) = 0;
};

}  // namespace strandline
