#pragma once

#include <cstdint>
#include <vector>

#include "platform/desk/byte_view.h"
#include "platform/desk/reading_allowance.h"
#include "platform/text.h"

namespace strandline::desk {

// A resource as its directory tells it.
struct ResourceEntry {
  Long id = 0;                // 0 to 65535
  std::uint32_t address = 0;  // of its bytes, within the module
  std::uint32_t size = 0;     // bytes
};

struct ResourceType {
  String name;  // empty where the type is a number
  Long number = 0;
  std::vector<ResourceEntry> resources;
};

// The numbered resources of a directory of types, numbers and languages, in its order; of several languages the one
// that an English system takes. Those with a name for a number are left out. A part of the directory that leads
// outside, or that is no directory where one has to be, is as if it weren't there.
std::vector<ResourceType> ReadResourceDirectory(ByteView directory, ReadingAllowance& allowance);

}  // namespace strandline::desk
