#pragma once

#include "handle_map.h"
#include "platform/modules.h"

namespace strandline::win32 {

// Modules mapped as data files, so that no code of theirs runs, and the resources of the module that is this program.
class Win32Modules final : public Modules {
 public:
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
  HandleMap mModules;
  HandleMap mResources;
  HandleMap mData;
};

}  // namespace strandline::win32
