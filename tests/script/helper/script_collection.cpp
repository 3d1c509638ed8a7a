#include "tests/script/helper/script_collection.h"

namespace strandline::script {

namespace {

// Goes through what stood there at its start.
class EntriesAtStart final : public Enumerator {
 public:
  explicit EntriesAtStart(std::vector<Variant> items) : mItems(std::move(items)) {}
  bool Next(Variant& element) override {
    if (mNext == mItems.size()) return false;
    element = mItems[mNext++];
    return true;
  }

 private:
  std::vector<Variant> mItems;
  std::size_t mNext = 0;
};

}  // namespace

Variant ScriptCollection::Invoke(Use use, Name member, const Arguments& arguments) {
  static constexpr Member<ScriptCollection> kMembers[] = {
      {"Add", 1, 2, &ScriptCollection::Add},
      {"Remove", 1, 1, &ScriptCollection::Remove},
      {"Count", 0, 0, &ScriptCollection::Count},
      {"Item", 1, 1, &ScriptCollection::Item},
  };
  return InvokeMember(*this, kMembers, use, member, arguments);
}

Ref<Enumerator> ScriptCollection::Elements() {
  std::vector<Variant> items;
  for (const Entry& entry : mEntries) items.push_back(entry.item);
  return Ref<Enumerator>(New<EntriesAtStart>(std::move(items)));
}

Variant ScriptCollection::Add(Given given) {
  mEntries.push_back({given[0].Resolved(), given.size() > 1 ? given[1].ToText() : String()});
  return {};
}

Variant ScriptCollection::Remove(Given given) {
  mEntries.erase(mEntries.begin() + static_cast<std::ptrdiff_t>(PlaceOf(given[0])));
  return {};
}

Variant ScriptCollection::Count(Given) { return static_cast<Long>(mEntries.size()); }
Variant ScriptCollection::Item(Given given) { return mEntries[PlaceOf(given[0])].item; }

std::size_t ScriptCollection::PlaceOf(const Variant& index) const {
  const Variant asked = index.Resolved();
  if (const String* name = asked.If<String>()) {
    for (std::size_t place = 0; place < mEntries.size(); ++place) {
      if (SameText(mEntries[place].name, *name)) return place;
    }
    Raise(errors::kSubscriptOutOfRange);
  }
  const Long number = asked.ToLong();
  if (number < 1 || number > static_cast<Long>(mEntries.size())) Raise(errors::kSubscriptOutOfRange);
  return static_cast<std::size_t>(number - 1);
}

}  // namespace strandline::script
