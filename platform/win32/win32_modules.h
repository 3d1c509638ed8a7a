#pragma once

#include <compare>
#include <map>

#include "platform/modules.h"
#include "platform/win32/handle_map.h"

namespace strandline::win32 {

// Modules mapped as data files, so that no code of theirs runs, and the resources of the module that this code is part
// of: a program or a DLL.
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
  // A module's resource, or its data, by the system's handle; it dies with the module.
  struct Piece {
    Long module = 0;
    void* handle = nullptr;
    auto operator<=>(const Piece&) const = default;
  };

  void* Mapped(Long module) const;  // null where there is none
  void* FoundIn(Long module, Long resource) const;

  std::map<Long, void*> mModules;  // the system may give one handle twice, for two loads
  Long mLastModule = 0;
  HandleMap<Piece> mResources;
  HandleMap<Piece> mData;
};

}  // namespace strandline::win32
