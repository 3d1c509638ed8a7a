#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "adtool/module_writer.h"

namespace strandline::adtool {

// What an author's list comes to.
struct AdLibrary {
  ModuleContent content;  // ad 1 has picture 2 and string 2; string 1 is for the toolbar's own picture
  int ads = 0;
  std::vector<std::filesystem::path> pictures;  // the files that were read, in the order of the ads
};

// Reads the list, a text in TOML, and the pictures that it names, which lie relative to its folder. Throws Refusal with
// FILE:LINE at the first thing that a library can't hold or the toolbar couldn't use.
AdLibrary ReadAdList(const std::string& path);

}  // namespace strandline::adtool
