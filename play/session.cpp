#include "play/session.h"

namespace strandline::play {

bool Session::IsBarShown() {
  Windows& windows = *World().Services().windows;
  return windows.IsWindowVisible(World().ActiveBarWindow()) != 0 && windows.IsIconic(World().ActiveTopWindow()) == 0;
}

}  // namespace strandline::play
