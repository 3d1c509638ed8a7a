#pragma once

// Values that stand in the registry for the time of a run. What was made is taken away at the end, with the keys that
// are empty then; what others put there stays.

#include <mutex>
#include <string>
#include <vector>

#include "platform/text.h"

namespace strandline::wordhost {

// Where a key stands: the user's part of the registry, or the machine's.
enum class Hive { kUser, kMachine };

class RegistryEntries {
 public:
  RegistryEntries() = default;
  ~RegistryEntries() { TakeAway(); }
  RegistryEntries(const RegistryEntries&) = delete;
  RegistryEntries& operator=(const RegistryEntries&) = delete;

  // A text under a key that is made where it isn't there; an empty name is the key's own value. False when it can't be
  // written.
  bool Put(Hive hive, const String& key, const String& name, const String& text);
  // At any time, from any thread, more than once.
  void TakeAway();

 private:
  struct Entry {
    Hive hive;
    String key;
    String name;
  };
  std::mutex mMutex;
  std::vector<Entry> mEntries;
};

}  // namespace strandline::wordhost
