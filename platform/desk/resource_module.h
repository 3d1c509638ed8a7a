#pragma once

#include <optional>
#include <span>

#include "platform/desk/module_image.h"

namespace strandline::desk {

// Reads a module's file, for 32 or 64 bits, as the system maps it for its resources: those of types with names, and the
// texts. Whatever the bytes are, nothing outside of them is read, and time and memory are bounded by their number.
// Absent where the system would refuse to map the file; where only a part is damaged, that part is missing.
std::optional<ModuleImage> ReadResourceModule(std::span<const Byte> file);

}  // namespace strandline::desk
