#pragma once

#include <map>

#include "platform/values.h"

namespace strandline::win32 {

// Numbers that stand for pointers, which needn't fit a Long: 1, 2, 3 and so on. A pointer that is there keeps its
// number.
class HandleMap {
 public:
  // 0 for null.
  Long Add(void* pointer) {
    if (!pointer) return 0;
    for (const auto& [number, known] : mPointers) {
      if (known == pointer) return number;
    }
    mPointers.emplace(++mLast, pointer);
    return mLast;
  }
  void* Find(Long number) const {
    const auto found = mPointers.find(number);
    return found == mPointers.end() ? nullptr : found->second;
  }
  void Remove(Long number) { mPointers.erase(number); }

 private:
  std::map<Long, void*> mPointers;
  Long mLast = 0;
};

}  // namespace strandline::win32
