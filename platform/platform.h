#pragma once

// The seam: all that the library needs of Word's world, handed in together when the library is loaded. The interfaces
// belong to whoever loads the library and outlive it.

#include "platform/clipboard.h"
#include "platform/components.h"
#include "platform/graphics.h"
#include "platform/modules.h"
#include "platform/pictures.h"
#include "platform/runtime.h"
#include "platform/subclasser.h"
#include "platform/windows.h"

namespace strandline {

struct Platform {
  Windows* windows = nullptr;
  Graphics* graphics = nullptr;
  Pictures* pictures = nullptr;
  Modules* modules = nullptr;
  Components* components = nullptr;
  RunTime* runTime = nullptr;
  Subclassers* subclassers = nullptr;
  Clipboard* clipboard = nullptr;
};

namespace platform {

// Set for the time that the library is loaded.
inline Platform current;

inline Windows& Windows() { return *current.windows; }
inline Graphics& Graphics() { return *current.graphics; }
inline Pictures& Pictures() { return *current.pictures; }
inline Modules& Modules() { return *current.modules; }
inline Components& Components() { return *current.components; }
inline RunTime& RunTime() { return *current.runTime; }
inline Subclassers& Subclassers() { return *current.subclassers; }
inline Clipboard& Clipboard() { return *current.clipboard; }

}  // namespace platform

}  // namespace strandline
