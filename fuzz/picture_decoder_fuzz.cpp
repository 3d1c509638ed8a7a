// Feeds any bytes to the picture decoder, which must give a whole picture or none.

#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "platform/desk/picture_decoder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto image = strandline::desk::DecodePicture({data, size});
  if (!image) return 0;

  const bool sized =
      image->width > 0 && image->height > 0 &&
      image->pixels.size() == static_cast<std::size_t>(image->width) * static_cast<std::size_t>(image->height);
  if (!sized) std::abort();
  for (const std::uint32_t pixel : image->pixels) {
    if (pixel > 0xFFFFFFu) std::abort();
  }
  return 0;
}
