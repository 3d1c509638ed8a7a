#pragma once

#include "platform/variant.h"

namespace strandline::win32 {

inline constexpr TextView kBlenderName = u"AlphaBlender.Main2";

// The object that mixes pictures, where none is installed: its members are Create(width, height) and
// AlphaBlend(dest, 0, 0, from, to, percentage), all by position. A mix before Create raises 5; arguments that aren't
// numbers raise 13, and another count of them 450.
Object NewBuiltInBlender();

}  // namespace strandline::win32
