#include "play/scene_file.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace strandline::play {

SceneFile LoadScene(const std::string& path) {
  SceneFile loaded;
  std::string text;
  std::FILE* file = std::fopen(path.c_str(), "rb");
  char block[4096];
  for (std::size_t length = 1; file && length > 0;) {
    length = std::fread(block, 1, sizeof block, file);
    text.append(block, length);
  }
  if (!file || std::ferror(file)) {
    loaded.error = path + ":0: can't read the scene (" + std::strerror(errno) + "); give the path of a scene";
  }
  if (file) std::fclose(file);
  if (!loaded.error.empty()) return loaded;
  loaded.scene = ParseScene(text);
  if (!loaded.scene.error.empty()) {
    loaded.error = path + ":" + std::to_string(loaded.scene.errorLine) + ": " + loaded.scene.error;
  }
  return loaded;
}

}  // namespace strandline::play
