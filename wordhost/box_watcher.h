#pragma once

// Answers the message boxes of this thread in the user's place: each is read when it comes up, told, and closed with
// the answer.

#include <functional>

#include "platform/text.h"
#include "platform/values.h"

namespace strandline::wordhost {

class BoxWatcher {
 public:
  // The title is null for a box that bears no title but that of the window it belongs to. Gives the answer.
  using Handler = std::function<Long(const String& text, Long style, const String* title)>;

  // One watches at a time, on the thread that makes it.
  explicit BoxWatcher(Handler handler);
  ~BoxWatcher();
  BoxWatcher(const BoxWatcher&) = delete;
  BoxWatcher& operator=(const BoxWatcher&) = delete;

 private:
  void* mHook = nullptr;
};

}  // namespace strandline::wordhost
