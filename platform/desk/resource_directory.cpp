#include "platform/desk/resource_directory.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>

namespace strandline::desk {

namespace {

// Sizes in bytes.
constexpr std::uint64_t kTableHeader = 16;
constexpr std::uint64_t kTableEntry = 8;
constexpr std::uint64_t kDataEntry = 16;

// The highest bit tells a name from a number, and a table from a resource.
constexpr std::uint32_t kFlag = 0x80000000;
constexpr std::uint32_t kHighestNumber = 0xFFFF;

// The neutral language, English as spoken in the United States, and English of no country.
constexpr std::uint32_t kLanguages[] = {0, 0x0409, 0x0009};

struct TableEntry {
  std::uint32_t name = 0;  // a number, or where the name stands
  std::uint32_t target = 0;

  bool HasName() const { return (name & kFlag) != 0; }
  bool IsNumbered() const { return name <= kHighestNumber; }
  bool IsTable() const { return (target & kFlag) != 0; }
  std::uint32_t NameOffset() const { return name & ~kFlag; }
  std::uint32_t Offset() const { return target & ~kFlag; }
};

class DirectoryReader {
 public:
  DirectoryReader(ByteView directory, ReadingAllowance& allowance) : mDirectory(directory), mAllowance(allowance) {}

  std::vector<ResourceType> Read() {
    std::vector<ResourceType> types;
    for (const TableEntry& each : Table(0)) {
      ResourceType type;
      if (!each.IsTable() || !ReadType(each, type)) continue;
      ReadNumbers(each.Offset(), type.resources);
      types.push_back(std::move(type));
    }
    return types;
  }

 private:
  // Empty where the table isn't there whole.
  std::vector<TableEntry> Table(std::uint64_t at) {
    const std::uint64_t count = std::uint64_t{mDirectory.Number16(at + 12)} + mDirectory.Number16(at + 14);
    const std::uint64_t size = kTableHeader + count * kTableEntry;
    if (!mDirectory.Holds(at, size) || !mAllowance.Take(size)) return {};
    std::vector<TableEntry> entries;
    for (std::uint64_t entry = at + kTableHeader; entry < at + size; entry += kTableEntry) {
      entries.push_back({mDirectory.Number32(entry), mDirectory.Number32(entry + 4)});
    }
    return entries;
  }

  bool ReadType(const TableEntry& entry, ResourceType& type) {
    if (entry.HasName()) {
      type.name = Name(entry.NameOffset());
      return !type.name.IsEmpty();
    }
    type.number = static_cast<Long>(entry.name);
    return entry.IsNumbered();
  }

  // Counted characters. The system asks in capitals and compares exactly, so another name is never found.
  String Name(std::uint64_t at) {
    const std::uint64_t length = mDirectory.Number16(at);
    const std::uint64_t size = 2 + 2 * length;
    if (!mDirectory.Holds(at, size) || !mAllowance.Take(size)) return {};
    std::u16string name;
    for (std::uint64_t i = 1; i <= length; ++i) name += static_cast<char16_t>(mDirectory.Number16(at + 2 * i));
    const bool inCapitals = std::all_of(name.begin(), name.end(), [](char16_t c) { return UpperCase(c) == c; });
    return inCapitals ? String(name) : String();
  }

  void ReadNumbers(std::uint64_t at, std::vector<ResourceEntry>& resources) {
    for (const TableEntry& number : Table(at)) {
      if (!number.IsTable() || !number.IsNumbered()) continue;
      const std::optional<TableEntry> language = BestLanguage(Table(number.Offset()));
      ResourceEntry resource{static_cast<Long>(number.name)};
      if (language && ReadPlace(language->Offset(), resource)) resources.push_back(resource);
    }
  }

  static std::optional<TableEntry> BestLanguage(const std::vector<TableEntry>& languages) {
    const TableEntry* best = nullptr;
    std::ptrdiff_t bestRank = std::ssize(kLanguages) + 1;
    for (const TableEntry& each : languages) {
      const std::ptrdiff_t rank = std::find(std::begin(kLanguages), std::end(kLanguages), each.name) - kLanguages;
      if (each.IsTable() || rank >= bestRank) continue;
      best = &each;
      bestRank = rank;
    }
    return best ? std::optional(*best) : std::nullopt;
  }

  bool ReadPlace(std::uint64_t at, ResourceEntry& resource) {
    if (!mDirectory.Holds(at, kDataEntry) || !mAllowance.Take(kDataEntry)) return false;
    resource.address = mDirectory.Number32(at);
    resource.size = mDirectory.Number32(at + 4);
    return true;
  }

  const ByteView mDirectory;
  ReadingAllowance& mAllowance;
};

}  // namespace

std::vector<ResourceType> ReadResourceDirectory(ByteView directory, ReadingAllowance& allowance) {
  return DirectoryReader(directory, allowance).Read();
}

}  // namespace strandline::desk
