#pragma once

// What a scene chooses before `start`: the machine, its user, Word and the product.

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "play/scene_command.h"
#include "wordsim/settings.h"

namespace strandline::play {

struct SceneSettings {
  SceneSettings();

  wordsim::Settings world;
  Long dpi = 96;
  Date now;
  String commandLine;
  std::vector<std::pair<String, String>> initSettings;  // of the store's section "Init"
  // What is on the system's clipboard, put there by another program, which may also hold it open.
  std::optional<String> clipboardText;
  std::optional<String> clipboardRichText;
  bool isClipboardHeld = false;

  // Takes over what a command before `start` chooses. False when the command chooses nothing.
  bool Apply(const Command& command);
};

wordsim::BarPosition BarPositionOf(const std::string& edge);  // one of top, bottom, left, right, floating

}  // namespace strandline::play
