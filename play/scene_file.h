#pragma once

// A scene as a program is given it: the path of a file.

#include <string>

#include "play/scene_command.h"

namespace strandline::play {

struct SceneFile {
  ParsedScene scene;
  std::string error;  // one line, "PATH:LINE: what is wrong and what would be right"; empty when nothing is
};

SceneFile LoadScene(const std::string& path);

}  // namespace strandline::play
