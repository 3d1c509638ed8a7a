#include "platform/desk/desk_modules.h"

#include <algorithm>
#include <string>

#include "platform/clipboard.h"
#include "platform/desk/desk_clipboard_text.h"
#include "platform/desk/resource_module.h"

namespace strandline::desk {

namespace {

constexpr Long kSuccess = 1;
constexpr Long kFailure = 0;

constexpr TextView kOwnType = u"custom";

// A loader that walks past the data's end would read these; as in a mapped module, it is never a null pointer.
constexpr Byte kNoBytes[1] = {};

// The system looks for a text by the lower half of its number alone.
constexpr Long kNumberOfText = 0xFFFF;

// What is left of a text on its way through the code page; NULs in it stay.
String ThroughCodePage(TextView text) {
  std::u16string through;
  for (std::size_t at = 0; at <= text.size();) {
    const std::size_t end = std::min(text.find(u'\0', at), text.size());
    const TextView piece = text.substr(at, end - at);
    if (at > 0) through += u'\0';
    through += DecodeText(clipboardformat::kText, EncodeText(clipboardformat::kText, piece)).View();
    at = end + 1;
  }
  return through;
}

}  // namespace

void DeskModules::SetModule(const String& path, ModuleImage image) {
  mImages[LowerCase(path)] = std::make_shared<const ModuleImage>(std::move(image));
}

bool DeskModules::SetModuleFile(const String& path, std::span<const Byte> file) {
  std::optional<ModuleImage> image = ReadResourceModule(file);
  if (image) {
    SetModule(path, std::move(*image));
  } else {
    RemoveModule(path);
  }
  return image.has_value();
}

void DeskModules::RemoveModule(const String& path) { mImages.erase(LowerCase(path)); }

std::vector<String> DeskModules::Lost() const {
  std::vector<String> lost;
  for (const auto& [handle, module] : mModules) lost.push_back(module.path);
  return lost;
}

void DeskModules::RecordUnusable(Long handle, Long first, Long last, const char* call) {
  if (handle == 0) return;
  mMisuses->Record(handle > first && handle <= last ? "dead" : "no such handle", handle, call);
}

DeskModules::Module* DeskModules::UseModule(Long module, const char* call) {
  const auto found = mModules.find(module);
  if (found != mModules.end()) return &found->second;
  RecordUnusable(module, kFirstModule, mLastModule, call);
  return nullptr;
}

DeskModules::Resource* DeskModules::UseResource(Long module, Long resource, const char* call) {
  if (!UseModule(module, call)) return nullptr;
  const auto found = mResources.find(resource);
  if (found != mResources.end()) {
    if (found->second.module == module) return &found->second;
    mMisuses->Record("another module's", resource, call);
    return nullptr;
  }
  RecordUnusable(resource, kFirstResource, mLastResource, call);
  return nullptr;
}

Long DeskModules::LoadLibraryA(const String& path) {
  const String name = LowerCase(path);
  const auto loaded =
      std::find_if(mModules.begin(), mModules.end(), [&name](const auto& entry) { return entry.second.path == name; });
  if (loaded != mModules.end()) {
    ++loaded->second.loads;
    return loaded->first;
  }
  const auto image = mImages.find(name);
  if (image == mImages.end()) return 0;
  mModules.emplace(++mLastModule, Module{name, image->second, 1});
  return mLastModule;
}

Long DeskModules::FreeLibrary(Long module) {
  Module* loaded = UseModule(module, "FreeLibrary");
  if (!loaded) return kFailure;
  if (--loaded->loads > 0) return kSuccess;
  std::erase_if(mData, [this, module](const auto& entry) { return mResources.at(entry.second).module == module; });
  std::erase_if(mResources, [module](const auto& entry) { return entry.second.module == module; });
  mModules.erase(module);
  return kSuccess;
}

Long DeskModules::FindResourceA(Long module, Long id, const String& type) {
  const Module* loaded = UseModule(module, "FindResourceA");
  if (!loaded) return 0;
  const std::span<const Byte>* const found = loaded->image->Find(id, type);
  if (!found) return 0;
  const auto known = std::find_if(mResources.begin(), mResources.end(), [&](const auto& entry) {
    return entry.second.module == module && entry.second.bytes == found;
  });
  if (known != mResources.end()) return known->first;
  mResources.emplace(++mLastResource, Resource{module, found});
  return mLastResource;
}

Long DeskModules::LoadResource(Long module, Long resource) {
  Resource* found = UseResource(module, resource, "LoadResource");
  if (!found) return 0;
  if (found->data == 0) {
    found->data = ++mLastResource;
    mData.emplace(found->data, resource);
  }
  return found->data;
}

const Byte* DeskModules::LockResource(Long data) {
  const auto found = mData.find(data);
  if (found == mData.end()) {
    RecordUnusable(data, kFirstResource, mLastResource, "LockResource");
    return nullptr;
  }
  const std::span<const Byte> bytes = *mResources.at(found->second).bytes;
  return bytes.empty() ? kNoBytes : bytes.data();
}

Long DeskModules::SizeofResource(Long module, Long resource) {
  const Resource* found = UseResource(module, resource, "SizeofResource");
  return found ? static_cast<Long>(found->bytes->size()) : 0;
}

// Data goes with its module; until then it may be locked again. Windows gives 0 for success here.
Long DeskModules::FreeResource(Long data) {
  if (mData.contains(data)) return 0;
  RecordUnusable(data, kFirstResource, mLastResource, "FreeResource");
  return 1;
}

String DeskModules::LoadStringA(Long module, Long id, Long limit) {
  const Module* const loaded = module == 0 ? nullptr : UseModule(module, "LoadStringA");
  if ((module != 0 && !loaded) || limit <= 1) return {};
  const std::map<Long, String>& strings = loaded ? loaded->image->strings : mHostStrings;
  const auto found = strings.find(id & kNumberOfText);
  if (found == strings.end()) return {};
  return ThroughCodePage(found->second.View().substr(0, static_cast<std::size_t>(limit - 1)));
}

Boolean DeskModules::LoadResData(Long id, const String& type, Array<Byte>& bytes) {
  if (!SameText(type, kOwnType)) return false;
  const auto found = std::find_if(mOwn.begin(), mOwn.end(), [id](const OwnImage& image) { return image.id == id; });
  if (found == mOwn.end()) return false;
  Array<Byte> read(0, static_cast<Long>(found->bytes.size()) - 1);
  std::copy(found->bytes.begin(), found->bytes.end(), read.Data());
  bytes = std::move(read);
  return true;
}

}  // namespace strandline::desk
