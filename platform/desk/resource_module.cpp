#include "platform/desk/resource_module.h"

#include "platform/desk/module_layout.h"
#include "platform/desk/resource_directory.h"
#include "platform/desk/resource_strings.h"

namespace strandline::desk {

namespace {

// Absent where not all of it is in the file, and where its address leads nowhere, be it as small as nothing.
std::optional<ByteView> BytesOf(const ModuleLayout& layout, const ResourceEntry& entry) {
  const ByteView rest = layout.From(entry.address);
  if (rest.Size() == 0 || entry.size > rest.Size()) return std::nullopt;
  return rest.Part(0, entry.size);
}

void AddType(const ModuleLayout& layout, const ResourceType& type, ReadingAllowance& allowance, ModuleImage& image) {
  ModuleImage::Resources parts;
  for (const ResourceEntry& entry : type.resources) {
    const std::optional<ByteView> bytes = BytesOf(layout, entry);
    if (!bytes) continue;
    if (!type.name.IsEmpty()) {
      parts.try_emplace(entry.id, bytes->Bytes());
    } else if (type.number == kStringType && allowance.Take(entry.size)) {
      ReadStrings(*bytes, entry.id, image.strings);
    }
  }
  image.AddParts(type.name, parts);
}

}  // namespace

std::optional<ModuleImage> ReadResourceModule(std::span<const Byte> file) {
  const auto kept = std::make_shared<const std::vector<Byte>>(file.begin(), file.end());
  const std::optional<ModuleLayout> layout = ReadModuleLayout(ByteView(*kept));
  if (!layout) return std::nullopt;
  ModuleImage image(kept);
  if (layout->resources == 0) return image;
  ReadingAllowance allowance(kept->size());
  for (const ResourceType& type : ReadResourceDirectory(layout->From(layout->resources), allowance)) {
    AddType(*layout, type, allowance, image);
  }
  return image;
}

}  // namespace strandline::desk
