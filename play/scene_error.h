#pragma once

// A scene that is wrong in a way that shows only when it plays. It passes through the library's procedures as no error
// of theirs, up to the player.

#include <string>

namespace strandline::play {

struct SceneError {
  int line = 0;
  std::string message;  // what is wrong and what would be right
};

}  // namespace strandline::play
