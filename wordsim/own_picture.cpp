#include "wordsim/own_picture.h"

#include <cstring>

namespace strandline::wordsim {

namespace {

constexpr Long kMovable = 2;
constexpr const char16_t* kPictureInterface = u"{7BF80980-BF32-101A-8BBB-00AA00300CAB}";

}  // namespace

Picture LoadOwnPicture(const Platform& platform, Long number) {
  Array<Byte> bytes;
  if (!platform.modules->LoadResData(number, u"CUSTOM", bytes) || bytes.Elements().empty()) return nullptr;
  Pictures& pictures = *platform.pictures;
  const Long size = static_cast<Long>(bytes.Elements().size());
  const Long memory = pictures.GlobalAlloc(kMovable, size);
  if (memory == 0) return nullptr;
  Byte* target = pictures.GlobalLock(memory);
  if (target) std::memcpy(target, bytes.Elements().data(), bytes.Elements().size());
  pictures.GlobalUnlock(memory);
  Ref<Stream> stream;
  if (!target || pictures.CreateStreamOnHGlobal(memory, true, stream) != 0) {
    pictures.GlobalFree(memory);
    return nullptr;
  }
  Guid id;
  Picture picture;
  if (pictures.CLSIDFromString(kPictureInterface, id) != 0) return nullptr;
  if (pictures.OleLoadPicture(stream, size, false, id, picture) != 0) return nullptr;
  return picture;
}

}  // namespace strandline::wordsim
