#pragma once

#include <map>

#include "platform/values.h"

namespace strandline::win32 {

// Numbers that stand for what needn't fit a Long, handles mostly: 1, 2, 3 and so on, none twice. What is there keeps
// its number. Values have an order.
template <class Value>
class HandleMap {
 public:
  Long Add(const Value& value) {
    const auto [known, isNew] = mNumbers.emplace(value, mLast + 1);
    if (isNew) mValues.emplace(++mLast, value);
    return known->second;
  }
  // Null for a number that stands for nothing; good until the next change.
  const Value* Find(Long number) const {
    const auto found = mValues.find(number);
    return found == mValues.end() ? nullptr : &found->second;
  }
  void Remove(Long number) {
    const auto found = mValues.find(number);
    if (found == mValues.end()) return;
    mNumbers.erase(found->second);
    mValues.erase(found);
  }
  template <class Condition>
  void RemoveIf(Condition condition) {
    std::erase_if(mNumbers, [&](const auto& entry) { return condition(entry.first); });
    std::erase_if(mValues, [&](const auto& entry) { return condition(entry.second); });
  }

 private:
  std::map<Long, Value> mValues;
  std::map<Value, Long> mNumbers;
  Long mLast = 0;
};

}  // namespace strandline::win32
