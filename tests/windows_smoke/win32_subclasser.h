#pragma once

#include "platform/subclasser.h"

namespace strandline::win32 {

// Hooks by replacing a window's procedure. The hooks of one window are a chain, the newest asked first.
class Win32Subclassers final : public Subclassers {
 public:
  Ref<Subclasser> Create() override;
};

}  // namespace strandline::win32
