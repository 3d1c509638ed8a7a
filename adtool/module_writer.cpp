#include "adtool/module_writer.h"

#include <stdexcept>
#include <utility>

#include "adtool/byte_writer.h"
#include "adtool/resource_section.h"
#include "platform/text.h"

namespace strandline::adtool {

namespace {

constexpr int kHighestNumber = 65535;
constexpr std::size_t kLongestString = 65535;
constexpr int kStringsOfBlock = 16;
constexpr std::size_t kStringType = 6;
constexpr std::size_t kMostBytes = 0x7F000000;  // so that with all tables it stays below 2 GB

// In bytes: in the file, and in the module that the system maps.
constexpr std::size_t kFileStep = 0x200;
constexpr std::size_t kPage = 0x1000;
constexpr std::size_t kHeaders = kFileStep;  // all headers fit into the file's first step

constexpr std::size_t kDosHeader = 64;
constexpr std::size_t kOptionalHeader = 224;
constexpr std::size_t kDirectories = 16;
constexpr std::size_t kResourceDirectory = 2;

constexpr std::size_t RoundedUp(std::size_t size, std::size_t step) { return (size + step - 1) / step * step; }

void WriteDosHeader(ByteWriter& writer) {
  writer.Number16(0x5A4D);  // "MZ"
  writer.Zeros(kDosHeader - 2 - 4);
  writer.Number32(kDosHeader);  // where the next header stands
}

void WriteFileHeader(ByteWriter& writer) {
  writer.Number32(0x4550);  // "PE" and two NULs
  writer.Number16(0x14C);   // 386
  writer.Number16(1);       // sections
  writer.Zeros(12);         // no time, so that the same content gives the same bytes; no symbols
  writer.Number16(kOptionalHeader);
  writer.Number16(0x2102);  // a DLL, runnable, of 32 bits
}

// `size` of the resources, without what rounds them up.
void WriteOptionalHeader(ByteWriter& writer, std::size_t size) {
  writer.Number16(0x10B);  // for 32 bits
  writer.Zeros(2 + 4);     // the linker's version; no code
  writer.Number32(RoundedUp(size, kFileStep));
  writer.Zeros(4 + 4);          // nothing beyond the file; no entry
  writer.Number32(kPage);       // where code would stand
  writer.Number32(kPage);       // where data stand
  writer.Number32(0x10000000);  // where the module would like to be
  writer.Number32(kPage);
  writer.Number32(kFileStep);
  for (int i = 0; i < 3; ++i) {  // of system, module and subsystem, the versions: 4.0, which the oldest Windows has
    writer.Number16(i == 1 ? 0 : 4);
    writer.Number16(0);
  }
  writer.Zeros(4);
  writer.Number32(kPage + RoundedUp(size, kPage));
  writer.Number32(kHeaders);
  writer.Zeros(4);         // the check sum, which the system asks of drivers alone
  writer.Number16(2);      // windows, no console
  writer.Number16(0x540);  // movable, its data never run, no handlers of exceptions
  for (const std::size_t memory : {0x100000, 0x1000, 0x100000, 0x1000}) writer.Number32(memory);  // stack and heap
  writer.Zeros(4);
  writer.Number32(kDirectories);
  for (std::size_t i = 0; i < kDirectories; ++i) {
    writer.Number32(i == kResourceDirectory ? kPage : 0);
    writer.Number32(i == kResourceDirectory ? size : 0);
  }
}

void WriteSectionHeader(ByteWriter& writer, std::size_t size) {
  for (const char c : {'.', 'r', 's', 'r', 'c'}) writer.Append({static_cast<std::uint8_t>(c)});
  writer.Zeros(3);
  writer.Number32(size);
  writer.Number32(kPage);
  writer.Number32(RoundedUp(size, kFileStep));
  writer.Number32(kHeaders);
  writer.Zeros(12);             // nothing to be moved, no lines of a source
  writer.Number32(0x40000040);  // data, to be read
}

void RequireNumber(int number, int lowest, const char* what) {
  if (number < lowest || number > kHighestNumber) {
    throw std::invalid_argument(std::string(what) + " can't have the number " + std::to_string(number));
  }
}

ResourcesOfType Pictures(const ModuleContent& content) {
  ResourcesOfType pictures{u"CUSTOM", 0, {}};
  for (const auto& [number, bytes] : content.pictures) {
    RequireNumber(number, 1, "a picture");
    pictures.resources.push_back({static_cast<std::size_t>(number), bytes});
  }
  return pictures;
}

std::vector<std::uint8_t> StringBlock(const std::map<int, String>& strings, int first) {
  ByteWriter writer;
  for (int number = first; number < first + kStringsOfBlock; ++number) {
    const auto found = strings.find(number);
    writer.CountedText(found == strings.end() ? TextView() : found->second.View());
  }
  return writer.Take();
}

// Sixteen texts go into a resource; its number is theirs divided by that, counted from 1.
ResourcesOfType Strings(const ModuleContent& content) {
  std::map<int, String> strings;
  for (const auto& [number, text] : content.strings) {
    RequireNumber(number, 0, "a string");
    const String wide = FromUtf8(text);
    if (wide.View().size() > kLongestString) {
      throw std::invalid_argument("string " + std::to_string(number) + " is too long");
    }
    strings.emplace(number, wide);
  }
  ResourcesOfType blocks{{}, kStringType, {}};
  for (auto next = strings.begin(); next != strings.end();) {
    const int block = next->first / kStringsOfBlock;
    blocks.resources.push_back({static_cast<std::size_t>(block) + 1, StringBlock(strings, block * kStringsOfBlock)});
    next = strings.lower_bound((block + 1) * kStringsOfBlock);
  }
  return blocks;
}

}  // namespace

std::vector<std::uint8_t> WriteModule(const ModuleContent& content) {
  std::vector<ResourcesOfType> types;
  for (auto* const make : {&Pictures, &Strings}) {
    ResourcesOfType type = make(content);
    if (!type.resources.empty()) types.push_back(std::move(type));
  }
  std::size_t total = 0;
  for (const ResourcesOfType& type : types) {
    for (const Resource& resource : type.resources) total += resource.bytes.size();
  }
  if (total > kMostBytes) throw std::length_error("a module can't be of 2 GB");

  const std::vector<std::uint8_t> section = WriteResourceSection(types, kPage);
  ByteWriter writer;
  WriteDosHeader(writer);
  WriteFileHeader(writer);
  WriteOptionalHeader(writer, section.size());
  WriteSectionHeader(writer, section.size());
  writer.Align(kHeaders);
  writer.Append(section);
  writer.Align(kFileStep);
  return writer.Take();
}

}  // namespace strandline::adtool
