#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/desk/byte_view.h"

namespace strandline::desk {

// Where things stand in a module's file: within the module they go by addresses, which its sections turn into places.
struct ModuleLayout {
  struct Section {
    std::uint32_t address = 0;
    ByteView bytes;  // what the file holds of it
  };

  std::vector<Section> sections;
  std::uint32_t resources = 0;  // the address of the resource directory; 0: the module has none

  // The bytes from an address to the end of its section, the first that has it; nothing where none has.
  ByteView From(std::uint32_t address) const;
};

// The headers of a module for 32 or 64 bits. Absent where the file is no module to the system, or is cut before the
// headers' end.
std::optional<ModuleLayout> ReadModuleLayout(ByteView file);

}  // namespace strandline::desk
