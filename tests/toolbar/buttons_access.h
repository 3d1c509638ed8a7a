#pragma once

#include "toolbar/Buttons.h"

namespace strandline {

struct ButtonsAccess {
  // As when there was no memory for the painter when the strip was made.
  static void LosePainter(Buttons& strip) { strip.mPainter = nullptr; }
  static void LoseMenu(Buttons& strip) { strip.mMenu = nullptr; }
};

}  // namespace strandline
