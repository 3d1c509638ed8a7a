#pragma once

#include <vector>

#include "platform/values.h"

namespace strandline::win32 {

// As long as this lives, the system's colours are those that the desk has; then they are again what they were. They are
// the whole session's, not the program's alone.
class ClassicColours {
 public:
  ClassicColours();
  ~ClassicColours();
  ClassicColours(const ClassicColours&) = delete;
  ClassicColours& operator=(const ClassicColours&) = delete;

 private:
  std::vector<Long> mFormer;  // COLORREF, by index
};

}  // namespace strandline::win32
