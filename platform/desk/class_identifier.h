#pragma once

#include "platform/pictures.h"

namespace strandline::desk {

// An identifier from its text "{8-4-4-4-12}" of hexadecimal digits, braces included. False, and `id` as it was, for any
// other text.
bool ParseGuid(TextView text, Guid& id);

bool SameGuid(const Guid& a, const Guid& b);

}  // namespace strandline::desk
