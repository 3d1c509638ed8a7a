#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <variant>
#include <vector>

#include "platform/desk/misuse_log.h"
#include "platform/desk/raster/region.h"
#include "platform/desk/raster/surface.h"
#include "platform/values.h"

namespace strandline::desk {

enum class ObjectKind { kContext, kBitmap, kBrush, kRegion };

struct Context {
  enum class Origin { kMemory, kGetDC, kBeginPaint };

  Origin origin = Origin::kMemory;
  Long window = 0;                           // whose pixels it draws; 0 with kGetDC: the whole screen
  std::optional<Region> paintClip;           // of BeginPaint, in window pixels
  Long bitmap = 0;                           // selected; a memory context's
  Surface ownPixel;                          // what a memory context holds while the stock bitmap is selected
  Long brush = 0;                            // selected
  std::uint32_t backgroundColor = 0xFFFFFF;  // COLORREF
  std::uint32_t textColor = 0;               // COLORREF

  bool IsMemory() const { return origin == Origin::kMemory; }
};

struct Bitmap {
  Surface surface;
  Long selectedInto = 0;  // the context
};

struct Brush {
  std::uint32_t color = 0xFFFFFF;  // COLORREF
  int selections = 0;              // contexts that hold it
};

struct LiveObject {
  Long handle = 0;
  ObjectKind kind = ObjectKind::kContext;
  std::string name;   // "bitmap 3"
  std::string maker;  // who made it, and by which call
};

// The graphics objects that are alive, by handle. A handle tells its kind and its ordinal within the kind (the first is
// 1), is the same in every run and is never used twice, so that a dead one is known for what it was.
class ObjectTable {
 public:
  // Stock objects: always there, never counted, never deleted; any number of contexts hold them.
  static constexpr Long kStockBitmap = 0x20000000;  // 1 by 1, 1 bit
  static constexpr Long kStockBrush = 0x30000000;   // white
  static bool IsStock(Long handle) { return handle == kStockBitmap || handle == kStockBrush; }

  explicit ObjectTable(std::shared_ptr<MisuseLog> misuses) : mMisuses(std::move(misuses)) {}

  // The new handle; 0 when a kind's numbers are used up.
  Long Add(Context context, const char* call) { return AddObject(ObjectKind::kContext, std::move(context), call); }
  Long Add(Bitmap bitmap, const char* call) { return AddObject(ObjectKind::kBitmap, std::move(bitmap), call); }
  Long Add(Brush brush, const char* call) { return AddObject(ObjectKind::kBrush, brush, call); }
  Long Add(Region region, const char* call) { return AddObject(ObjectKind::kRegion, std::move(region), call); }

  // Null, without a record, when no such object of that type lives. Pointers hold until the object is removed.
  template <class T>
  T* Find(Long handle) {
    const auto found = mObjects.find(handle);
    return found == mObjects.end() ? nullptr : std::get_if<T>(&found->second.body);
  }

  // As Find, but a handle that isn't one of a living T is a misuse.
  template <class T>
  T* Use(Long handle, const char* call) {
    T* object = Find<T>(handle);
    if (!object) RecordUnusable(handle, call);
    return object;
  }

  bool IsLive(Long handle) const { return mObjects.contains(handle); }
  void Remove(Long handle);

  int Count(ObjectKind kind) const { return mCounts[static_cast<std::size_t>(kind)]; }
  // What lives, in the order of kind and making.
  std::vector<LiveObject> Lost() const;

  // "dc 1", "bitmap 2", "brush 3", "region 4", for a dead handle too; a stock object has the number 0. Empty for what
  // never was a handle of this table.
  std::string NameOf(Long handle) const;

  // Records that `handle` is none of the wanted kind: dead, never made or another kind's. 0 isn't recorded.
  void RecordUnusable(Long handle, const char* call);
  void Record(std::string what, Long handle, const char* call) { mMisuses->Record(std::move(what), handle, call); }
  MisuseLog& Misuses() { return *mMisuses; }

 private:
  struct Entry {
    std::variant<Context, Bitmap, Brush, Region> body;
    std::string maker;
  };
  static constexpr std::size_t kKinds = 4;

  Long AddObject(ObjectKind kind, std::variant<Context, Bitmap, Brush, Region> body, const char* call);
  bool WasMade(Long handle) const;

  std::shared_ptr<MisuseLog> mMisuses;
  std::unordered_map<Long, Entry> mObjects;
  Long mLastOrdinals[kKinds] = {};
  int mCounts[kKinds] = {};
};

}  // namespace strandline::desk
