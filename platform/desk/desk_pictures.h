#pragma once

#include <memory>

#include "platform/desk/global_memory.h"
#include "platform/desk/object_table.h"
#include "platform/pictures.h"

namespace strandline::desk {

// OLE's memory, streams and pictures. Streams and pictures may outlive this and the desk: they share what they need.
//
// Faithful: who frees what, and once; extents; what is refused, with OLE's numbers.
// Simplified: memory doesn't move; a picture is a 32-bit bitmap, decoded at once.
// Left out: icons, metafiles, saving, transparency.
class DeskPictures final : public Pictures {
 public:
  DeskPictures(std::shared_ptr<ObjectTable> objects, std::shared_ptr<MisuseLog> misuses);

  // Dots per inch of the screen, by which pixels have extents; of pictures made from now on. Not positive: ignored.
  void SetDpi(Long dpi);

  const GlobalMemory& Memory() const { return *mMemory; }
  const std::shared_ptr<GlobalMemory>& SharedMemory() const { return mMemory; }
  // Bitmaps that pictures owned and that were selected at their picture's end: alive, and nobody's.
  int LostBitmaps() const { return *mLostBitmaps; }

  Long GlobalAlloc(Long flags, Long size) override;
  Byte* GlobalLock(Long memory) override;
  Long GlobalUnlock(Long memory) override;
  Long GlobalSize(Long memory) override;
  Long GlobalFree(Long memory) override;
  // Memory 0: the stream makes an empty block of its own.
  Long CreateStreamOnHGlobal(Long memory, Boolean deleteOnRelease, Ref<Stream>& stream) override;
  Long CLSIDFromString(const String& text, Guid& id) override;
  // Reads `size` bytes from where the stream stands, all when 0.
  Long OleLoadPicture(const Ref<Stream>& stream, Long size, Boolean runMode, const Guid& id, Picture& picture) override;
  Long OleCreatePictureIndirect(const PictDesc& description, const Guid& id, Boolean own, Picture& picture) override;

 private:
  Picture MakePicture(Long bitmap, bool own) const;

  std::shared_ptr<ObjectTable> mObjects;
  std::shared_ptr<GlobalMemory> mMemory;
  std::shared_ptr<int> mLostBitmaps;
  Long mDpi = 96;
};

}  // namespace strandline::desk
