#include "platform/desk/module_layout.h"

namespace strandline::desk {

namespace {

constexpr std::uint32_t kDosMagic = 0x5A4D;   // "MZ"
constexpr std::uint32_t kSignature = 0x4550;  // "PE" and two NULs
constexpr std::uint32_t kMagic32 = 0x10B;
constexpr std::uint32_t kMagic64 = 0x20B;

// Sizes in bytes.
constexpr std::uint64_t kDosHeader = 64;
constexpr std::uint64_t kSignatureAndFileHeader = 24;
constexpr std::uint64_t kDirectory = 8;
constexpr std::uint64_t kSectionHeader = 40;

// Among the directories; the first is that of exports.
constexpr std::uint32_t kResourceDirectory = 2;

// The system's loader takes no more, which also bounds the search for an address.
constexpr std::uint32_t kMostSections = 96;

// The directories stand at the end of the optional header, after their count. Absent where the header is too short to
// have a count.
std::optional<std::uint32_t> ResourceAddress(ByteView header) {
  const std::uint32_t magic = header.Number16(0);
  if (magic != kMagic32 && magic != kMagic64) return std::nullopt;
  const std::uint64_t directories = magic == kMagic32 ? 96 : 112;
  if (!header.Holds(0, directories)) return std::nullopt;
  const std::uint32_t count = header.Number32(directories - 4);
  if (count <= kResourceDirectory) return 0;
  return header.Number32(directories + kResourceDirectory * kDirectory);
}

// A section has as many bytes as the file gives it. The room that it may have beyond them in memory isn't there, since
// a module is mapped as the file stands.
ModuleLayout::Section ReadSection(ByteView file, ByteView header) {
  return {header.Number32(12), file.Part(header.Number32(20), header.Number32(16))};
}

}  // namespace

ByteView ModuleLayout::From(std::uint32_t address) const {
  for (const Section& section : sections) {
    if (address < section.address) continue;
    const std::uint64_t within = std::uint64_t{address} - section.address;
    if (within < section.bytes.Size()) return section.bytes.From(within);
  }
  return {};
}

std::optional<ModuleLayout> ReadModuleLayout(ByteView file) {
  if (!file.Holds(0, kDosHeader) || file.Number16(0) != kDosMagic) return std::nullopt;
  const std::uint64_t headers = file.Number32(60);
  if (!file.Holds(headers, kSignatureAndFileHeader) || file.Number32(headers) != kSignature) return std::nullopt;
  const std::uint32_t count = file.Number16(headers + 6);
  const std::uint64_t optionalSize = file.Number16(headers + 20);
  const std::uint64_t optional = headers + kSignatureAndFileHeader;
  const std::uint64_t table = optional + optionalSize;
  if (count > kMostSections || !file.Holds(table, count * kSectionHeader)) return std::nullopt;
  const std::optional<std::uint32_t> resources = ResourceAddress(file.Part(optional, optionalSize));
  if (!resources) return std::nullopt;

  ModuleLayout layout{{}, *resources};
  for (std::uint32_t i = 0; i < count; ++i) {
    layout.sections.push_back(ReadSection(file, file.Part(table + i * kSectionHeader, kSectionHeader)));
  }
  return layout;
}

}  // namespace strandline::desk
