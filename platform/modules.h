#pragma once

// Modules that carry resources. A module is mapped for its resources alone; no code of it ever runs. Resources are
// numbered; their type here is always a text, such as "CUSTOM".

#include "platform/array.h"
#include "platform/text.h"

namespace strandline {

class Modules {
 public:
  virtual ~Modules() = default;

  virtual Long LoadLibraryA(const String& path) = 0;  // 0 when it failed
  virtual Long FreeLibrary(Long module) = 0;
  virtual Long FindResourceA(Long module, Long id, const String& type) = 0;  // 0 when it isn't there
  virtual Long LoadResource(Long module, Long resource) = 0;
  virtual const Byte* LockResource(Long data) = 0;
  virtual Long SizeofResource(Long module, Long resource) = 0;  // bytes
  virtual Long FreeResource(Long data) = 0;
  // Empty when it isn't there. Module 0 is the host's own program file.
  virtual String LoadStringA(Long module, Long id, Long limit) = 0;

  // A resource of the library's own: False, and `bytes` as it was, when it isn't there.
  virtual Boolean LoadResData(Long id, const String& type, Array<Byte>& bytes) = 0;
};

}  // namespace strandline
