#pragma once

// The names under which the journal knows windows: a kind and a number, counted from 1 in the order of making.

#include <map>
#include <string>
#include <vector>

#include "platform/values.h"

namespace strandline::wordsim {

class WindowNames {
 public:
  void Add(Long hwnd, const char* kind) {
    mNames.push_back({hwnd, std::string(kind) + " " + std::to_string(++mCounts[kind])});
  }
  // A window keeps its name when it is gone. Where the system uses a handle again, the later window is meant.
  std::string NameOf(Long hwnd) const {
    for (auto named = mNames.rbegin(); named != mNames.rend(); ++named) {
      if (named->hwnd == hwnd) return named->name;
    }
    return {};
  }
  Long WindowOf(const std::string& name) const {
    for (const auto& named : mNames) {
      if (named.name == name) return named.hwnd;
    }
    return 0;
  }

 private:
  struct NamedWindow {
    Long hwnd;
    std::string name;
  };
  std::vector<NamedWindow> mNames;
  std::map<std::string, int> mCounts;
};

}  // namespace strandline::wordsim
