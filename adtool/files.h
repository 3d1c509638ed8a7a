#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <stdexcept>
#include <vector>

namespace strandline::adtool {

// Thrown by both: what the system said, for brackets behind the file's name.
class FileFailure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The whole of an ordinary file of at most `limit` bytes.
std::vector<std::uint8_t> ReadWholeFile(const std::filesystem::path& path, std::size_t limit);

// The file holds these bytes, or is as it was: they go to a file beside it, which then takes its name. Anything but an
// ordinary file is left alone.
void ReplaceFile(const std::filesystem::path& path, std::span<const std::uint8_t> bytes);

}  // namespace strandline::adtool
