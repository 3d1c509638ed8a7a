#include "platform/dictionary.h"

#include <functional>

namespace strandline {

namespace {

constexpr Long kKeyNotFound = 32811;

// Numbers are keys by value whatever their width; texts by their characters, objects by identity.
std::size_t HashOf(const Variant& key) {
  if (const String* text = key.If<String>()) return std::hash<TextView>{}(text->View());
  if (const Object* object = key.If<Object>()) return std::hash<const void*>{}(object->Target());
  return std::hash<Double>{}(key.ToDouble());
}

bool IsNumber(const Variant& key) { return !key.If<String>() && !key.If<Object>(); }

bool SameKey(const Variant& a, const Variant& b) {
  if (IsNumber(a) && IsNumber(b)) return a.ToDouble() == b.ToDouble();
  return a == b;
}

class KeyEnumerator final : public Enumerator {
 public:
  explicit KeyEnumerator(Ref<Dictionary> dictionary) : mDictionary(std::move(dictionary)) {}
  bool Next(Variant& element) override {
    if (mAt >= mDictionary->Count()) return false;
    element = mDictionary->KeyAt(mAt++);
    return true;
  }

 private:
  Ref<Dictionary> mDictionary;
  Long mAt = 0;
};

const Variant& Required(const Arguments& arguments, std::size_t position) {
  if (position >= arguments.positional.size()) Raise(errors::kArgumentNotOptional);
  return arguments.positional[position];
}

}  // namespace

std::size_t Dictionary::Find(const Variant& key) const {
  const Variant sought = key.Resolved();
  const std::size_t hash = HashOf(sought);
  for (std::size_t i = 0; i < mEntries.size(); ++i) {
    if (mEntries[i].hash == hash && SameKey(mEntries[i].key, sought)) return i;
  }
  return kAbsent;
}

Dictionary::Entry& Dictionary::FindOrAdd(const Variant& key) {
  const std::size_t at = Find(key);
  if (at != kAbsent) return mEntries[at];
  const Variant resolved = key.Resolved();
  mEntries.push_back({resolved, HashOf(resolved), Variant()});
  return mEntries.back();
}

void Dictionary::Add(const Variant& key, const Variant& item) {
  if (Exists(key)) Raise(errors::kDuplicateKey);
  FindOrAdd(key).item = item.Resolved();
}

Variant Dictionary::Item(const Variant& key) { return FindOrAdd(key).item; }
void Dictionary::SetItem(const Variant& key, const Variant& item) { FindOrAdd(key).item = item.Resolved(); }

void Dictionary::Remove(const Variant& key) {
  const std::size_t at = Find(key);
  if (at == kAbsent) Raise(kKeyNotFound, u"Element not found");
  mEntries.erase(mEntries.begin() + static_cast<std::ptrdiff_t>(at));
}

const Dictionary::Entry& Dictionary::At(Long position) const {
  if (position < 0 || position >= Count()) Raise(errors::kSubscriptOutOfRange);
  return mEntries[static_cast<std::size_t>(position)];
}

Variant Dictionary::Invoke(Use use, Name member, const Arguments& arguments) {
  if (!arguments.named.empty()) Raise(errors::kNoSuchNamedArgument);
  if (member == Name("Item")) {
    if (use != Use::kLet) return Item(Required(arguments, 0));
    SetItem(Required(arguments, 0), Required(arguments, 1));
    return {};
  }
  if (member == Name("Count")) return Count();
  if (member == Name("Exists")) return Exists(Required(arguments, 0));
  if (member == Name("Add")) {
    Add(Required(arguments, 0), Required(arguments, 1));
  } else if (member == Name("Remove")) {
    Remove(Required(arguments, 0));
  } else if (member == Name("RemoveAll")) {
    RemoveAll();
  } else {
    Raise(errors::kNoSuchMember);
  }
  return {};
}

Long Dictionary::Identity() const { return static_cast<Long>(reinterpret_cast<std::intptr_t>(this) & 0x7FFFFFFF); }
Ref<Enumerator> Dictionary::Elements() { return New<KeyEnumerator>(Ref<Dictionary>(this)); }

}  // namespace strandline
