#pragma once

#include "platform/subclasser.h"

namespace strandline::win32 {

// Hooks through the system's own chain of them (comctl32), which other programs use too; the newest is asked first.
// A window is hooked by the thread that made it.
class Win32Subclassers final : public Subclassers {
 public:
  Ref<Subclasser> Create() override;
};

// How many hooks a window of this process can still call, those of them included that are being called now. Until there
// are none, this code must not be unloaded. For any thread.
Long LiveHooks();

}  // namespace strandline::win32
