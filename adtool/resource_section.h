#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace strandline::adtool {

struct Resource {
  std::size_t id = 0;
  std::vector<std::uint8_t> bytes;
};

// Resources of one type, by number upwards.
struct ResourcesOfType {
  std::u16string name;     // in capitals, as the system asks for it; empty where the type has a number
  std::size_t number = 0;  // where it has no name
  std::vector<Resource> resources;
};

// The section of a module's resources, all in the neutral language. `types` has those with names first, both kinds
// upwards; `address` is where the section stands in the module.
std::vector<std::uint8_t> WriteResourceSection(const std::vector<ResourcesOfType>& types, std::size_t address);

}  // namespace strandline::adtool
