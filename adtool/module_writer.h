#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace strandline::adtool {

// What an ad library carries.
struct ModuleContent {
  std::map<int, std::vector<std::uint8_t>> pictures;  // the files, as resources of the type "CUSTOM", by number
  std::map<int, std::string> strings;                 // in UTF-8, by number
};

// A module of resources alone, which Windows maps and the desk reads: a DLL for 32 bits, without code. The same content
// gives the same bytes. Throws std::invalid_argument for what no module can carry: a picture's number outside of 1 to
// 65535, a string's outside of 0 to 65535, a string above 65535 UTF-16 characters; std::length_error for 2 GB and more.
std::vector<std::uint8_t> WriteModule(const ModuleContent& content);

}  // namespace strandline::adtool
