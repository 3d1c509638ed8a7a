#pragma once

#include <map>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "platform/desk/misuse_log.h"
#include "platform/desk/module_image.h"
#include "platform/desk/own_resources.h"
#include "platform/modules.h"

namespace strandline::desk {

// The modules that can be loaded, by path, letters taken without case, and the library's own images.
//
// Faithful: a module loaded twice has one handle and is to be freed twice; resources and their data go with it.
// Simplified: a resource's handles are numbers of their own, the same in every run and never used twice.
// Left out: searching folders for a module without a path, types by number, characters that look like one the code page
// lacks.
class DeskModules final : public Modules {
 public:
  // `own` lives as long as this.
  DeskModules(std::span<const OwnImage> own, std::shared_ptr<MisuseLog> misuses)
      : mOwn(own), mMisuses(std::move(misuses)) {}

  // From now on this is what the path loads; a module that is loaded keeps what it has.
  void SetModule(const String& path, ModuleImage image);
  // The same of a module's file. False where it is no module; then the path loads nothing.
  bool SetModuleFile(const String& path, std::span<const Byte> file);
  void RemoveModule(const String& path);
  // The strings of the host's own program file; none at first.
  void SetHostStrings(std::map<Long, String> strings) { mHostStrings = std::move(strings); }

  int LiveModules() const { return static_cast<int>(mModules.size()); }
  // The paths of the modules that are loaded, in the order of their loading.
  std::vector<String> Lost() const;

  Long LoadLibraryA(const String& path) override;
  Long FreeLibrary(Long module) override;
  Long FindResourceA(Long module, Long id, const String& type) override;
  Long LoadResource(Long module, Long resource) override;
  const Byte* LockResource(Long data) override;
  Long SizeofResource(Long module, Long resource) override;
  Long FreeResource(Long data) override;
  String LoadStringA(Long module, Long id, Long limit) override;
  Boolean LoadResData(Long id, const String& type, Array<Byte>& bytes) override;

 private:
  struct Module {
    String path;  // in lower case
    std::shared_ptr<const ModuleImage> image;
    int loads = 0;
  };
  struct Resource {
    Long module = 0;
    const std::span<const Byte>* bytes = nullptr;  // part of the module's image
    Long data = 0;                                 // its loaded data, 0 before LoadResource
  };
  static constexpr Long kFirstModule = 0x60000000;
  static constexpr Long kFirstResource = 0x70000000;

  Module* UseModule(Long module, const char* call);
  Resource* UseResource(Long module, Long resource, const char* call);
  void RecordUnusable(Long handle, Long first, Long last, const char* call);

  std::span<const OwnImage> mOwn;
  std::shared_ptr<MisuseLog> mMisuses;
  std::map<Long, String> mHostStrings;
  std::map<String, std::shared_ptr<const ModuleImage>> mImages;  // by path in lower case
  std::map<Long, Module> mModules;
  std::map<Long, Resource> mResources;
  std::map<Long, Long> mData;  // the resource of loaded data
  Long mLastModule = kFirstModule;
  Long mLastResource = kFirstResource;
};

}  // namespace strandline::desk
