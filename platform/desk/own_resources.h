#pragma once

#include <span>

#include "platform/values.h"

namespace strandline::desk {

// One of the library's own numbered images: the bytes of its file, which live as long as the program.
struct OwnImage {
  Long id = 0;
  std::span<const Byte> bytes;
};

// The images of resources/images, by number. resources/embed.cmake puts them into the program.
std::span<const OwnImage> OwnImages();

}  // namespace strandline::desk
