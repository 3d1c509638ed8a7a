#pragma once

#include <map>

#include "platform/desk/byte_view.h"
#include "platform/text.h"

namespace strandline::desk {

inline constexpr Long kStringType = 6;  // a module's texts come in resources of this type

// The texts of one such resource, sixteen of them, added by their numbers where none is there yet. The resource's own
// number tells which they are. Empty ones are left out: nobody can tell them from those that aren't there. One that
// runs past the resource's end is left out with all after it.
void ReadStrings(ByteView resource, Long id, std::map<Long, String>& strings);

}  // namespace strandline::desk
