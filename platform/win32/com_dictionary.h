#pragma once

#include <array>
#include <utility>

#include "platform/dictionary.h"
#include "platform/win32/com_object.h"

namespace strandline::win32 {

// The system's dictionary behind the seam. Whoever it is handed to gets that object itself.
class ComDictionary final : public ComBackedAs<Dictionary> {
 public:
  // Raises 429 where the system has none.
  static Ref<Dictionary> Make();

  Long Count() const override { return Do(Use::kGet, "Count").ToLong(); }
  bool Exists(const Variant& key) const override { return Do(Use::kCall, "Exists", key).ToBoolean(); }
  void Add(const Variant& key, const Variant& item) override { Do(Use::kCall, "Add", key, item); }
  Variant Item(const Variant& key) override { return Do(Use::kGet, "Item", key); }
  void SetItem(const Variant& key, const Variant& item) override { Do(Use::kLet, "Item", key, item); }
  void Remove(const Variant& key) override { Do(Use::kCall, "Remove", key); }
  void RemoveAll() override { Do(Use::kCall, "RemoveAll"); }
  Array<Variant> Keys() const override { return List("Keys"); }
  Array<Variant> Items() const override { return List("Items"); }

 private:
  using ComBackedAs::ComBackedAs;

  // What comes by reference goes as its value: a dictionary keeps values.
  template <class... Given>
  Variant Do(Use use, Name member, const Given&... given) const {
    const Ref<const ComDictionary> alive(this);  // an item's end may let go of it
    const std::array<Variant, sizeof...(Given)> positional{given.Resolved()...};
    return Com().Invoke(use, member, Arguments{positional, {}});
  }
  Array<Variant> List(Name member) const;
};

}  // namespace strandline::win32
