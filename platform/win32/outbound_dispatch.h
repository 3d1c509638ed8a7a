#pragma once

#include "platform/variant.h"

struct IDispatch;

namespace strandline::win32 {

// An object of ours as the automation world sees it (face.h), counted for the caller; the same one as long as it is
// held there.
IDispatch* OutboundOf(Dispatch& target);
// The object of ours behind it, if this module made its face; null for one of the world's own or of another module.
Ref<Dispatch> TargetOf(IDispatch* object);

}  // namespace strandline::win32
