#include "adtool/resource_section.h"

#include <algorithm>

#include "adtool/byte_writer.h"

namespace strandline::adtool {

namespace {

// Sizes in bytes.
constexpr std::size_t kTableHeader = 16;
constexpr std::size_t kTableEntry = 8;
constexpr std::size_t kPlace = 16;

// Tells a name from a number, and a table from a resource.
constexpr std::size_t kFlag = 0x80000000;

constexpr std::size_t kAlignment = 8;

constexpr std::size_t TableSize(std::size_t entries) { return kTableHeader + entries * kTableEntry; }
std::size_t NameSize(const ResourcesOfType& type) { return type.name.empty() ? 0 : 2 + 2 * type.name.size(); }

// Each takes room, also an empty one: the last one would else begin where the section has ended.
std::size_t RoomFor(const Resource& resource) {
  return (std::max<std::size_t>(resource.bytes.size(), 1) + kAlignment - 1) / kAlignment * kAlignment;
}

// The table of types, then those of numbers, then those of languages, the places of the resources, the names of the
// types, and the resources.
class SectionWriter {
 public:
  SectionWriter(const std::vector<ResourcesOfType>& types, std::size_t address) : mTypes(types), mAddress(address) {
    std::size_t resources = 0;
    std::size_t names = 0;
    for (const ResourcesOfType& type : types) {
      mLanguages += TableSize(type.resources.size());
      resources += type.resources.size();
      names += NameSize(type);
    }
    mLanguages += TableSize(types.size());
    mPlaces = mLanguages + resources * TableSize(1);
    mNames = mPlaces + resources * kPlace;
    mData = (mNames + names + kAlignment - 1) / kAlignment * kAlignment;
  }

  std::vector<std::uint8_t> Write() {
    WriteTypes();
    WriteNumbers();
    WriteLanguages();
    WritePlaces();
    for (const ResourcesOfType& type : mTypes) {
      if (!type.name.empty()) mWriter.CountedText(type.name);
    }
    mWriter.Align(kAlignment);
    for (const ResourcesOfType& type : mTypes) {
      for (const Resource& resource : type.resources) {
        mWriter.Append(resource.bytes);
        mWriter.Zeros(RoomFor(resource) - resource.bytes.size());
      }
    }
    return mWriter.Take();
  }

 private:
  void WriteTable(std::size_t named, std::size_t numbered) {
    mWriter.Zeros(kTableHeader - 4);  // flags, a time, a version
    mWriter.Number16(named);
    mWriter.Number16(numbered);
  }

  void WriteTypes() {
    const auto named = static_cast<std::size_t>(
        std::count_if(mTypes.begin(), mTypes.end(), [](const ResourcesOfType& type) { return !type.name.empty(); }));
    WriteTable(named, mTypes.size() - named);
    std::size_t name = mNames;
    std::size_t table = TableSize(mTypes.size());
    for (const ResourcesOfType& type : mTypes) {
      mWriter.Number32(type.name.empty() ? type.number : kFlag | name);
      mWriter.Number32(kFlag | table);
      name += NameSize(type);
      table += TableSize(type.resources.size());
    }
  }

  void WriteNumbers() {
    std::size_t language = mLanguages;
    for (const ResourcesOfType& type : mTypes) {
      WriteTable(0, type.resources.size());
      for (const Resource& resource : type.resources) {
        mWriter.Number32(resource.id);
        mWriter.Number32(kFlag | language);
        language += TableSize(1);
      }
    }
  }

  void WriteLanguages() {
    std::size_t place = mPlaces;
    for (const ResourcesOfType& type : mTypes) {
      for (std::size_t i = 0; i < type.resources.size(); ++i) {
        WriteTable(0, 1);
        mWriter.Number32(0);
        mWriter.Number32(place);
        place += kPlace;
      }
    }
  }

  void WritePlaces() {
    std::size_t data = mAddress + mData;
    for (const ResourcesOfType& type : mTypes) {
      for (const Resource& resource : type.resources) {
        mWriter.Number32(data);
        mWriter.Number32(resource.bytes.size());
        mWriter.Zeros(8);  // the code page and room
        data += RoomFor(resource);
      }
    }
  }

  const std::vector<ResourcesOfType>& mTypes;
  const std::size_t mAddress;
  ByteWriter mWriter;
  // Where each part begins, from the section's own beginning.
  std::size_t mLanguages = 0;
  std::size_t mPlaces = 0;
  std::size_t mNames = 0;
  std::size_t mData = 0;
};

}  // namespace

std::vector<std::uint8_t> WriteResourceSection(const std::vector<ResourcesOfType>& types, std::size_t address) {
  return SectionWriter(types, address).Write();
}

}  // namespace strandline::adtool
