#pragma once

// Memory blocks, streams and pictures, as OLE has them. A result of 0 is success; other numbers are failures.

#include "platform/picture.h"
#include "platform/text.h"

namespace strandline {

// An interface or class identifier.
struct Guid {
  Long Data1 = 0;
  Integer Data2 = 0;
  Integer Data3 = 0;
  Byte Data4[8] = {};
};

// The record from which a picture is made of a bitmap.
struct PictDesc {
  Long cbSizeofStruct = 0;
  Long picType = 0;
  Long hImage = 0;
  Long xExt = 0;
  Long yExt = 0;
};

class Stream : public RefCounted {};

class Pictures {
 public:
  virtual ~Pictures() = default;

  virtual Long GlobalAlloc(Long flags, Long size) = 0;  // a memory handle, 0 when it failed
  virtual Byte* GlobalLock(Long memory) = 0;            // null when it failed
  virtual Long GlobalUnlock(Long memory) = 0;
  virtual Long GlobalSize(Long memory) = 0;  // bytes, maybe more than were asked for; 0 when it failed
  virtual Long GlobalFree(Long memory) = 0;
  // With deleteOnRelease the stream frees the memory when its last holder lets go.
  virtual Long CreateStreamOnHGlobal(Long memory, Boolean deleteOnRelease, Ref<Stream>& stream) = 0;
  virtual Long CLSIDFromString(const String& text, Guid& id) = 0;
  // Decodes a GIF, JPEG or BMP, told by its content.
  virtual Long OleLoadPicture(const Ref<Stream>& stream, Long size, Boolean runMode, const Guid& id,
                              Picture& picture) = 0;
  // With own True the picture owns the bitmap and deletes it.
  virtual Long OleCreatePictureIndirect(const PictDesc& description, const Guid& id, Boolean own, Picture& picture) = 0;
};

}  // namespace strandline
