#pragma once

// The associative container of scripts: keys in the order of their adding, texts compared with case, and *reading an
// absent key adds it with Empty*. Components::CreateDictionary makes one. On Windows it is the system's own object, so
// that whoever is handed it (a formatter that fills one, the store that keeps others) has all members and interfaces
// that such an object has there.

#include "platform/variant.h"

namespace strandline {

namespace errors {
inline constexpr Long kElementNotFound = 32811;
}

class Dictionary : public Dispatch {
 public:
  virtual Long Count() const = 0;
  virtual bool Exists(const Variant& key) const = 0;
  // Raises 457 for a key that is there.
  virtual void Add(const Variant& key, const Variant& item) = 0;
  // An absent key is added with Empty.
  virtual Variant Item(const Variant& key) = 0;
  virtual void SetItem(const Variant& key, const Variant& item) = 0;
  // Raises 32811 for an absent key.
  virtual void Remove(const Variant& key) = 0;
  virtual void RemoveAll() = 0;
  // As they are now, from 0 on.
  virtual Array<Variant> Keys() const = 0;
  virtual Array<Variant> Items() const = 0;

  // One of them, by its position. Each call makes them all: who wants several asks for Keys or Items once. Raises 9
  // outside of 0 to Count - 1.
  Variant KeyAt(Long position) const { return Keys()(position); }
  Variant ItemAt(Long position) const { return Items()(position); }
};

// The dictionary, which must be there: Nothing raises 91.
inline Dictionary& Required(const Ref<Dictionary>& dictionary) {
  if (!dictionary) Raise(errors::kObjectNotSet);
  return *dictionary;
}

}  // namespace strandline
