#pragma once

// What another program has put on the system's clipboard when a scene begins, and whether it holds the clipboard open.

#include <string>
#include <thread>

#include "play/scene_settings.h"

namespace strandline::wordhost {

class ClipboardFiller {
 public:
  ClipboardFiller() = default;
  // Lets go of what it holds.
  ~ClipboardFiller();
  ClipboardFiller(const ClipboardFiller&) = delete;
  ClipboardFiller& operator=(const ClipboardFiller&) = delete;

  // In place of everything. What is wrong where that can't be done; empty otherwise.
  std::string Fill(const play::SceneSettings& settings);

 private:
  void Hold();

  std::thread mHolder;  // the other program, which a thread is as good as
  void* mEnough = nullptr;
};

}  // namespace strandline::wordhost
