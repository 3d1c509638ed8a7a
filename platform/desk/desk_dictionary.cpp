#include "platform/desk/desk_dictionary.h"

#include <functional>
#include <utility>

namespace strandline::desk {

namespace {

bool IsNumber(const Variant& key) { return !key.If<String>() && !key.If<Object>(); }

}  // namespace

class DeskDictionary::KeyEnumerator final : public Enumerator {
 public:
  explicit KeyEnumerator(Ref<DeskDictionary> dictionary) : mDictionary(std::move(dictionary)) {}
  bool Next(Variant& element) override {
    if (mAt >= mDictionary->mEntries.size()) return false;
    element = mDictionary->mEntries[mAt++].key;
    return true;
  }

 private:
  const Ref<DeskDictionary> mDictionary;
  std::size_t mAt = 0;
};

// Numbers are keys by value whatever their width; texts by their characters, objects by identity.
std::size_t DeskDictionary::HashOf(const Variant& key) const {
  if (const String* text = key.If<String>()) {
    if (mCompareMode == 0) return std::hash<TextView>{}(text->View());
    return std::hash<TextView>{}(LowerCase(text->View()).View());
  }
  if (const Object* object = key.If<Object>()) return std::hash<const void*>{}(object->Target());
  return std::hash<Double>{}(key.ToDouble());
}

bool DeskDictionary::AreSame(const Variant& a, const Variant& b) const {
  if (IsNumber(a) && IsNumber(b)) return a.ToDouble() == b.ToDouble();
  const String* const one = a.If<String>();
  const String* const other = b.If<String>();
  return one && other && mCompareMode != 0 ? SameText(*one, *other) : a == b;
}

std::size_t DeskDictionary::Find(const Variant& key) const {
  const Variant sought = key.Resolved();
  const std::size_t hash = HashOf(sought);
  for (std::size_t i = 0; i < mEntries.size(); ++i) {
    if (mEntries[i].hash == hash && AreSame(mEntries[i].key, sought)) return i;
  }
  return kAbsent;
}

std::size_t DeskDictionary::Required(const Variant& key) const {
  const std::size_t at = Find(key);
  if (at == kAbsent) Raise(errors::kElementNotFound, u"Element not found");
  return at;
}

DeskDictionary::Entry& DeskDictionary::FindOrAdd(const Variant& key) {
  const std::size_t at = Find(key);
  if (at != kAbsent) return mEntries[at];
  const Variant resolved = key.Resolved();
  mEntries.push_back({resolved, HashOf(resolved), Variant()});
  return mEntries.back();
}

void DeskDictionary::Add(const Variant& key, const Variant& item) {
  if (Exists(key)) Raise(errors::kDuplicateKey);
  FindOrAdd(key).item = item.Resolved();
}

// Whatever goes ends last, for its end may call back.
void DeskDictionary::SetItem(const Variant& key, const Variant& item) {
  const Variant before = std::exchange(FindOrAdd(key).item, item.Resolved());
}

void DeskDictionary::Remove(const Variant& key) {
  const auto at = mEntries.begin() + static_cast<std::ptrdiff_t>(Required(key));
  const Entry removed = std::move(*at);
  mEntries.erase(at);
}

void DeskDictionary::RemoveAll() { const std::vector<Entry> removed = std::exchange(mEntries, {}); }

void DeskDictionary::Rename(const Variant& key, const Variant& newKey) {
  const std::size_t at = Required(key);
  if (Exists(newKey)) Raise(errors::kDuplicateKey);
  mEntries[at].key = newKey.Resolved();
  mEntries[at].hash = HashOf(mEntries[at].key);
}

void DeskDictionary::SetCompareMode(Long mode) {
  if (mode < 0 || !mEntries.empty()) Raise(errors::kInvalidArgument);
  mCompareMode = mode;
}

Array<Variant> DeskDictionary::All(Variant Entry::*part) const {
  Array<Variant> all(0, Count() - 1);
  for (Long i = 0; i < Count(); ++i) all(i) = mEntries[static_cast<std::size_t>(i)].*part;
  return all;
}

Variant DeskDictionary::Invoke(Use use, Name member, const Arguments& arguments) {
  if (!arguments.named.empty()) Raise(errors::kNoSuchNamedArgument);
  const auto given = arguments.positional;
  const auto expect = [&](std::size_t count) {
    if (given.size() != count) Raise(errors::kWrongNumberOfArguments);
  };
  if (use == Use::kLet) {
    if (member == Name("Item")) {
      expect(2);
      SetItem(given[0], given[1]);
    } else if (member == Name("Key")) {
      expect(2);
      Rename(given[0], given[1]);
    } else if (member == Name("CompareMode")) {
      expect(1);
      SetCompareMode(given[0].ToLong());
    } else {
      Raise(errors::kNoSuchMember);
    }
    return {};
  }
  if (member == Name("Item")) return expect(1), Item(given[0]);
  if (member == Name("Exists")) return expect(1), Exists(given[0]);
  if (member == Name("Count")) return expect(0), Count();
  if (member == Name("Keys")) return expect(0), Keys();
  if (member == Name("Items")) return expect(0), Items();
  if (member == Name("CompareMode")) return expect(0), mCompareMode;
  if (member == Name("Add")) {
    expect(2);
    Add(given[0], given[1]);
  } else if (member == Name("Remove")) {
    expect(1);
    Remove(given[0]);
  } else if (member == Name("RemoveAll")) {
    expect(0);
    RemoveAll();
  } else {
    Raise(errors::kNoSuchMember);
  }
  return {};
}

Long DeskDictionary::Identity() const { return static_cast<Long>(reinterpret_cast<std::intptr_t>(this) & 0x7FFFFFFF); }
Ref<Enumerator> DeskDictionary::Elements() { return New<KeyEnumerator>(Ref<DeskDictionary>(this)); }

}  // namespace strandline::desk
