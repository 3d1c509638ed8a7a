#include "tests/support/golden.h"

#include <png.h>

#include <cstdlib>
#include <filesystem>

#include "platform/desk/png_writer.h"

namespace strandline {

namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t kSame = 0x202020;
constexpr std::uint32_t kDifferent = 0xFF00FF;

bool IsUpdating() {
  const char* const update = std::getenv("STRANDLINE_UPDATE_GOLDEN");
  return update != nullptr && std::string(update) == "1";
}

std::string Extent(const desk::Surface& surface) {
  return std::to_string(surface.width) + " by " + std::to_string(surface.height);
}

// Pink where the two differ or only one has a pixel.
desk::Surface Difference(const desk::Surface& a, const desk::Surface& b, int& count, std::string& first) {
  desk::Surface difference(std::max(a.width, b.width), std::max(a.height, b.height));
  count = 0;
  for (int y = 0; y < difference.height; ++y) {
    for (int x = 0; x < difference.width; ++x) {
      const bool inBoth = x < a.width && x < b.width && y < a.height && y < b.height;
      const bool isSame = inBoth && *a.At(x, y) == *b.At(x, y);
      *difference.At(x, y) = isSame ? kSame : kDifferent;
      if (!isSame && count++ == 0) first = "(" + std::to_string(x) + ", " + std::to_string(y) + ")";
    }
  }
  return difference;
}

}  // namespace

std::optional<desk::Surface> ReadPng(const std::string& path) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  if (!png_image_begin_read_from_file(&image, path.c_str())) return {};
  image.format = PNG_FORMAT_BGRA;
  desk::Surface surface(static_cast<int>(image.width), static_cast<int>(image.height));
  if (surface.pixels.empty() || !png_image_finish_read(&image, nullptr, surface.pixels.data(), 0, nullptr)) {
    png_image_free(&image);
    return {};
  }
  for (std::uint32_t& pixel : surface.pixels) pixel &= surface.PixelMask();
  return surface;
}

testing::AssertionResult IsGolden(const desk::Surface& actual, const std::string& name) {
  const std::string path = STRANDLINE_SOURCE_DIR "/tests/golden/" + name + ".png";
  if (IsUpdating()) {
    if (!desk::WritePng(path, actual)) return testing::AssertionFailure() << "can't write " << path;
    return testing::AssertionSuccess();
  }
  const std::optional<desk::Surface> expected = ReadPng(path);
  if (expected && *expected == actual) return testing::AssertionSuccess();

  const fs::path folder = fs::path(STRANDLINE_DESK_PROGRAM).parent_path() / "golden-failures";
  std::error_code ignored;
  fs::create_directories(folder, ignored);
  desk::WritePng((folder / (name + "-actual.png")).string(), actual);
  if (!expected) return testing::AssertionFailure() << "no picture " << path << "; the actual one is in " << folder;
  int count = 0;
  std::string first;
  const desk::Surface difference = Difference(*expected, actual, count, first);
  desk::WritePng((folder / (name + "-expected.png")).string(), *expected);
  desk::WritePng((folder / (name + "-difference.png")).string(), difference);
  return testing::AssertionFailure() << name << ": " << count << " pixels differ, the first at " << first
                                     << "; expected " << Extent(*expected) << ", actual " << Extent(actual)
                                     << "; the pictures are in " << folder;
}

}  // namespace strandline
