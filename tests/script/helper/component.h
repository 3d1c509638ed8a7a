#pragma once

// A component that a script plays: from its making to its end, creating the ProgID in this process gives the script's
// object, each time the same one.

#include "platform/variant.h"

namespace strandline::script {

class Component {
 public:
  // Raises 429 when the system refuses it.
  Component(const String& progId, const Object& object);
  Component(const Component&) = delete;
  Component& operator=(const Component&) = delete;
  ~Component();

  const String& ProgId() const { return mProgId; }

 private:
  String mProgId;
  std::uint32_t mRegistration = 0;
};

}  // namespace strandline::script
