#pragma once

#include "platform/values.h"

namespace strandline::win32 {

// The mix of the top left parts of two contexts into a third, which may be one of them: `share` of `to` over `from`, by
// the rules of platform/looks/mix.h. What one of the three doesn't have stays as it is, and so does everything where
// one is of one bit, or no context.
void MixContexts(Long dest, Long from, Long to, Long width, Long height, Single share);

}  // namespace strandline::win32
