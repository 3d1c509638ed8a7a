#include "play/ad_library_file.h"

#include <filesystem>
#include <fstream>

namespace strandline::play {

namespace {

constexpr std::uintmax_t kLargest = std::uintmax_t{256} << 20;  // bytes, far beyond any library

}  // namespace

std::string ReadAdLibrary(const std::string& scene, const std::string& name, AdLibraryFile& file) {
  const std::filesystem::path path = std::filesystem::path(scene).parent_path() / name;
  const std::string what = "the ad library " + path.string();
  std::error_code failure;
  if (!std::filesystem::is_regular_file(path, failure)) {
    return what + " is no file; name one, relative to the scene's folder, or none";
  }
  const std::uintmax_t size = std::filesystem::file_size(path, failure);
  if (failure || size > kLargest) return what + " is too large; 256 MiB are allowed";
  std::ifstream stream(path, std::ios::binary);
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(size));
  if (size > 0) stream.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(size));
  if (!stream) return what + " can't be read; name a file that can";
  file = {path.string(), std::move(bytes)};
  return "";
}

}  // namespace strandline::play
