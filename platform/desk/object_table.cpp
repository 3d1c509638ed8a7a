#include "platform/desk/object_table.h"

#include <algorithm>

namespace strandline::desk {

namespace {

// A handle is its kind's first number plus the ordinal.
constexpr Long kNumbersOfAKind = 0x10000000;

constexpr const char* kNames[] = {"dc", "bitmap", "brush", "region"};

constexpr Long FirstNumber(ObjectKind kind) { return (static_cast<Long>(kind) + 1) * kNumbersOfAKind; }
constexpr std::size_t KindIndexOf(Long handle) { return static_cast<std::size_t>(handle / kNumbersOfAKind - 1); }
constexpr Long OrdinalOf(Long handle) { return handle % kNumbersOfAKind; }

static_assert(FirstNumber(ObjectKind::kBitmap) == ObjectTable::kStockBitmap);
static_assert(FirstNumber(ObjectKind::kBrush) == ObjectTable::kStockBrush);

}  // namespace

Long ObjectTable::AddObject(ObjectKind kind, std::variant<Context, Bitmap, Brush, Region> body, const char* call) {
  Long& last = mLastOrdinals[static_cast<std::size_t>(kind)];
  if (last == kNumbersOfAKind - 1) return 0;
  const Long handle = FirstNumber(kind) + ++last;
  std::string maker = mMisuses->Who();
  maker += maker.empty() ? call : std::string(", ") + call;
  mObjects.emplace(handle, Entry{std::move(body), std::move(maker)});
  ++mCounts[static_cast<std::size_t>(kind)];
  return handle;
}

void ObjectTable::Remove(Long handle) {
  if (mObjects.erase(handle) != 0) --mCounts[KindIndexOf(handle)];
}

std::vector<LiveObject> ObjectTable::Lost() const {
  std::vector<LiveObject> live;
  live.reserve(mObjects.size());
  for (const auto& [handle, entry] : mObjects) {
    live.push_back({handle, static_cast<ObjectKind>(KindIndexOf(handle)), NameOf(handle), entry.maker});
  }
  std::sort(live.begin(), live.end(), [](const LiveObject& a, const LiveObject& b) { return a.handle < b.handle; });
  return live;
}

bool ObjectTable::WasMade(Long handle) const {
  if (IsStock(handle)) return true;
  if (handle <= kNumbersOfAKind || KindIndexOf(handle) >= kKinds) return false;
  return OrdinalOf(handle) != 0 && OrdinalOf(handle) <= mLastOrdinals[KindIndexOf(handle)];
}

std::string ObjectTable::NameOf(Long handle) const {
  if (!WasMade(handle)) return {};
  return std::string(kNames[KindIndexOf(handle)]) + ' ' + std::to_string(OrdinalOf(handle));
}

void ObjectTable::RecordUnusable(Long handle, const char* call) {
  if (handle == 0) return;
  if (!WasMade(handle)) return Record("no such handle", handle, call);
  const bool live = IsStock(handle) || IsLive(handle);
  Record((live ? "not of the kind wanted: " : "dead: ") + NameOf(handle), handle, call);
}

}  // namespace strandline::desk
