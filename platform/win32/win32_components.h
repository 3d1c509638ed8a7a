#pragma once

#include "platform/components.h"

namespace strandline::win32 {

// Registered components, made in this process or another one. Pictures can be mixed on a machine without that component
// too: its place is then taken from within.
class Win32Components final : public Components {
 public:
  Object CreateObject(const String& progId) override;
  Ref<Dictionary> CreateDictionary() override;
};

}  // namespace strandline::win32
