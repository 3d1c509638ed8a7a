#pragma once

// What Word keeps of the pictures that it is given for its buttons. It keeps copies: a picture may be used up by
// whoever gave it, and what is on the clipboard is the clipboard's.

#include "platform/platform.h"

namespace strandline::wordsim {

// Nothing of Nothing. Raises 481 for a picture without a bitmap.
Picture CopyOfPicture(const Platform& platform, const Picture& picture);

// A copy of the picture on the system's clipboard; Nothing when there is none or somebody else has it open.
Picture PictureOnClipboard(const Platform& platform);

// The picture with the colour that a face leaves open (kFaceKey) wherever the mask is white.
Picture FaceThroughMask(const Platform& platform, const Picture& picture, const Picture& mask);

}  // namespace strandline::wordsim
