#pragma once

// Components of the product, each in a file of its own, created by the name under which they are registered; and the
// dictionary of scripts, which is a component of the system's.

#include "platform/dictionary.h"

namespace strandline {

class Components {
 public:
  virtual ~Components() = default;
  // Raises 429 when the component can't be created.
  virtual Object CreateObject(const String& progId) = 0;
  // A new dictionary, without keys. Raises 429 too.
  virtual Ref<Dictionary> CreateDictionary() = 0;
};

}  // namespace strandline
