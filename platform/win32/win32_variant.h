#pragma once

#include "platform/variant.h"

struct tagVARIANT;
struct IDispatch;

namespace strandline::win32 {

// The value as the automation world has it, to be cleared by the caller. A reference goes as the value behind it.
// Raises 13 for what that world can't hold.
tagVARIANT ToVARIANT(const Variant& value);
// Looks through references. What becomes of kinds that the seam doesn't have is told at Variant.
Variant FromVARIANT(const tagVARIANT& value);

// An object of that world; the same one gives the same Object as long as it is held. Null is Nothing.
Object Wrap(IDispatch* object);
// The other way round, counted for the caller; null for Nothing.
IDispatch* Unwrap(const Object& object);

}  // namespace strandline::win32
