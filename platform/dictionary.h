#pragma once

// The associative container of scripts: keys in the order of their adding, texts compared with case, and *reading an
// absent key adds it with Empty*. It is an object of its own, reached by name by whoever it is handed to (a formatter
// fills one, the store keeps others).

#include <vector>

#include "platform/variant.h"

namespace strandline {

class Dictionary final : public Dispatch {
 public:
  Long Count() const { return static_cast<Long>(mEntries.size()); }
  bool Exists(const Variant& key) const { return Find(key) != kAbsent; }
  // Raises 457 for a key that is there.
  void Add(const Variant& key, const Variant& item);
  // An absent key is added with Empty.
  Variant Item(const Variant& key);
  void SetItem(const Variant& key, const Variant& item);
  // Raises for an absent key.
  void Remove(const Variant& key);
  void RemoveAll() { mEntries.clear(); }
  // By position, 0 to Count - 1; raises 9 outside.
  const Variant& KeyAt(Long position) const { return At(position).key; }
  const Variant& ItemAt(Long position) const { return At(position).item; }

  // Item, Exists, Add, Remove, RemoveAll and Count by name; going through one yields its keys.
  Variant Invoke(Use use, Name member, const Arguments& arguments) override;
  Long Identity() const override;
  Ref<Enumerator> Elements() override;

 private:
  struct Entry {
    Variant key;
    std::size_t hash;
    Variant item;
  };
  static constexpr std::size_t kAbsent = static_cast<std::size_t>(-1);
  const Entry& At(Long position) const;
  std::size_t Find(const Variant& key) const;
  Entry& FindOrAdd(const Variant& key);

  std::vector<Entry> mEntries;
};

// The dictionary, which must be there: Nothing raises 91.
inline Dictionary& Required(const Ref<Dictionary>& dictionary) {
  if (!dictionary) Raise(errors::kObjectNotSet);
  return *dictionary;
}

}  // namespace strandline
