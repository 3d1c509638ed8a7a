#include "drawing/LoadImageFromResource.h"

#include <algorithm>
#include <cstring>

#include "foundation/LanguageExtensions.h"
#include "platform/convert.h"
#include "platform/platform.h"

namespace strandline::LoadImageFromResource {

namespace {

constexpr ModuleInfo kModuleInfo{u"LoadImageFromResource", nullptr};
constexpr ModuleFile kModule{&kModuleInfo};

const String kImageType = u"CUSTOM";
const String kIPictureId = u"{7BF80980-BF32-101A-8BBB-00AA00300CAB}";
constexpr Long kMovable = 2;

// Tells the observer of a load on every way out of it.
struct Telling {
  Integer index;
  Long hModule;
  Boolean ok = false;
  ~Telling() {
    if (observer) observer->OnPicture(index, hModule, ok);
  }
};

}  // namespace

// The stream owns the memory once it is made: letting the stream go frees the memory, whatever becomes of the picture.
Picture LoadResGifJpgBmp(Integer index, Long hModule) {
  PROCEDURE(Picture, u"LoadResGifJpgBmp", index, hModule);
  Pictures& pictures = platform::Pictures();
  Array<Byte> bArr;
  Long size = 0;
  Long memory = 0;
  Ref<Stream> stream;
  Guid id;
  Picture picture;
  REPORTS(bArr, size, memory, stream, id, picture);
  Telling told{index, hModule};
  if (hModule == 0) {
    STEP(platform::Modules().LoadResData(index, kImageType, bArr));
  } else {
    LoadResDataFromModule(hModule, index, bArr);
  }
  if (LanguageExtensions::isEmptyArrayByte(bArr)) return here.Leave();
  STEP(size = ToLong(std::int64_t{bArr.Upper()} - bArr.Lower() + 1));
  memory = pictures.GlobalAlloc(kMovable, size);
  if (memory == 0) return here.Leave();
  Byte* const target = pictures.GlobalLock(memory);
  if (!target) {
    pictures.GlobalFree(memory);
    return here.Leave();
  }
  std::copy_n(bArr.Data(), size, target);
  pictures.GlobalUnlock(memory);
  if (pictures.CreateStreamOnHGlobal(memory, true, stream) != 0) {
    pictures.GlobalFree(memory);
    return here.Leave();
  }
  if (pictures.CLSIDFromString(kIPictureId, id) != 0) return here.Leave();
  if (pictures.OleLoadPicture(stream, size, false, id, picture) != 0) return here.Leave();
  told.ok = true;
  return here.result = picture;
}

void LoadResDataFromModule(Long hModule, Integer index, Array<Byte>& bArr) {
  PROCEDURE(void, u"LoadResDataFromModule", hModule, index, bArr);
  Modules& modules = platform::Modules();
  Long resource = 0;
  Long data = 0;
  Long size = 0;
  REPORTS(resource, data, size);
  resource = modules.FindResourceA(hModule, index, kImageType);
  if (resource == 0) return;
  data = modules.LoadResource(hModule, resource);
  if (data == 0) return;
  const Byte* const bytes = modules.LockResource(data);
  size = modules.SizeofResource(hModule, resource);
  if (bytes && size > 0) {
    STEP(bArr.Size(0, size - 1));
    std::memcpy(bArr.Data(), bytes, static_cast<std::size_t>(size));
  }
  modules.FreeResource(data);
}

}  // namespace strandline::LoadImageFromResource
