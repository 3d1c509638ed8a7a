#pragma once

// What the product's verifier asks about an ad library. Where the world has such a check, the simulated verifier really
// verifies; a scene may lay the answer down instead.

#include "platform/text.h"

namespace strandline::wordsim {

class LibraryCheck {
 public:
  // The highest ad index of the library in that file, above 0, where its signature is good, else 0 or less;
  // `signature` becomes the text of the file's signature, empty where it has none.
  virtual Long Verify(const String& path, String& signature) = 0;

 protected:
  ~LibraryCheck() = default;
};

}  // namespace strandline::wordsim
