#pragma once

#include <vector>

#include "platform/dictionary.h"

namespace strandline::desk {

// The dictionary of a world without Windows, with the members and errors of the one there: by name it has Add, Exists,
// Item, Key, Keys, Items, Count, CompareMode, Remove and RemoveAll, and going through it yields its keys.
class DeskDictionary final : public Dictionary {
 public:
  Long Count() const override { return static_cast<Long>(mEntries.size()); }
  bool Exists(const Variant& key) const override { return Find(key) != kAbsent; }
  void Add(const Variant& key, const Variant& item) override;
  Variant Item(const Variant& key) override { return FindOrAdd(key).item; }
  void SetItem(const Variant& key, const Variant& item) override;
  void Remove(const Variant& key) override;
  void RemoveAll() override;
  Array<Variant> Keys() const override { return All(&Entry::key); }
  Array<Variant> Items() const override { return All(&Entry::item); }

  Variant Invoke(Use use, Name member, const Arguments& arguments) override;
  Long Identity() const override;
  Ref<Enumerator> Elements() override;

 private:
  struct Entry {
    Variant key;
    std::size_t hash;
    Variant item;
  };
  class KeyEnumerator;
  static constexpr std::size_t kAbsent = static_cast<std::size_t>(-1);

  std::size_t HashOf(const Variant& key) const;
  bool AreSame(const Variant& a, const Variant& b) const;
  std::size_t Find(const Variant& key) const;
  std::size_t Required(const Variant& key) const;
  Entry& FindOrAdd(const Variant& key);
  // The entry keeps its place and its item.
  void Rename(const Variant& key, const Variant& newKey);
  void SetCompareMode(Long mode);
  Array<Variant> All(Variant Entry::*part) const;

  std::vector<Entry> mEntries;
  Long mCompareMode = 0;  // 0: texts with case
};

}  // namespace strandline::desk
