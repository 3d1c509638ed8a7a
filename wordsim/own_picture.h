#pragma once

// A picture of the numbered images that come with the program, through the seam's modules and pictures.

#include "platform/platform.h"

namespace strandline::wordsim {

// Null when the image isn't there or can't be decoded.
Picture LoadOwnPicture(const Platform& platform, Long number);

}  // namespace strandline::wordsim
