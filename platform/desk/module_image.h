#pragma once

#include <map>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "platform/text.h"

namespace strandline::desk {

// What a module carries. Its copies share the bytes.
class ModuleImage {
 public:
  using Resources = std::map<Long, std::span<const Byte>>;  // of one type, by number

  ModuleImage() = default;
  // Its resources are then parts of these bytes, told by AddParts.
  explicit ModuleImage(std::shared_ptr<const std::vector<Byte>> file) : mKept{std::move(file)} {}

  std::map<Long, String> strings;

  // Types are taken without case. A resource that is there already is exchanged.
  void AddResource(Long id, const String& type, std::vector<Byte> bytes) {
    mKept.push_back(std::make_shared<const std::vector<Byte>>(std::move(bytes)));
    mTypes[LowerCase(type)][id] = *mKept.back();
  }
  // Parts of the bytes that this was made with. A resource that is there already stays.
  void AddParts(const String& type, const Resources& parts) {
    if (!parts.empty()) mTypes[LowerCase(type)].insert(parts.begin(), parts.end());
  }

  // Null where it isn't there. It stays as long as this one does.
  const std::span<const Byte>* Find(Long id, const String& type) const {
    const Resources& all = OfType(type);
    const auto found = all.find(id);
    return found == all.end() ? nullptr : &found->second;
  }
  const Resources& OfType(const String& type) const {
    static const Resources kNone;
    const auto found = mTypes.find(LowerCase(type));
    return found == mTypes.end() ? kNone : found->second;
  }
  // By type, in lower case.
  const std::map<String, Resources>& All() const { return mTypes; }

 private:
  std::vector<std::shared_ptr<const std::vector<Byte>>> mKept;
  std::map<String, Resources> mTypes;
};

}  // namespace strandline::desk
