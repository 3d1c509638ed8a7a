#pragma once

// The file of an ad library that a scene names.

#include <cstdint>
#include <string>
#include <vector>

namespace strandline::play {

struct AdLibraryFile {
  std::string path;
  std::vector<std::uint8_t> bytes;
};

// `name` is relative to the folder of the scene, whose path is `scene`. What is wrong with the file, with what would be
// right; empty when nothing is.
std::string ReadAdLibrary(const std::string& scene, const std::string& name, AdLibraryFile& file);

}  // namespace strandline::play
