#pragma once

#include "platform/pictures.h"
#include "platform/win32/win32_memory.h"

struct IDispatch;
struct IPicture;

namespace strandline::win32 {

// Memory blocks, streams and pictures of OLE.
class Win32Pictures final : public Pictures {
 public:
  // The memory outlives this.
  explicit Win32Pictures(Win32Memory& memory) : mMemory(memory) {}

  Long GlobalAlloc(Long flags, Long size) override;
  Byte* GlobalLock(Long memory) override;
  Long GlobalUnlock(Long memory) override;
  Long GlobalSize(Long memory) override;
  Long GlobalFree(Long memory) override;
  Long CreateStreamOnHGlobal(Long memory, Boolean deleteOnRelease, Ref<Stream>& stream) override;
  Long CLSIDFromString(const String& text, Guid& id) override;
  Long OleLoadPicture(const Ref<Stream>& stream, Long size, Boolean runMode, const Guid& id, Picture& picture) override;
  Long OleCreatePictureIndirect(const PictDesc& description, const Guid& id, Boolean own, Picture& picture) override;

 private:
  Win32Memory& mMemory;
};

// The picture behind an automation object; Nothing if it is none.
Picture PictureOf(IDispatch* object);
// The automation object of a picture, counted for the caller; null for one that isn't of this back-end.
IDispatch* DispatchOf(const PictureObject& picture);

}  // namespace strandline::win32
