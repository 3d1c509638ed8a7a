#include "drawing/LoadImageFromResource.h"

#include <cstring>

#include "foundation/LanguageExtensions.h"
#include "platform/platform.h"

namespace strandline::LoadImageFromResource {

namespace {

constexpr ModuleInfo kModuleInfo{u"LoadImageFromResource", nullptr};
constexpr ModuleFile kModule{&kModuleInfo};

const String kImageType = u"CUSTOM";
const String kIPictureId = u"{7BF80980-BF32-101A-8BBB-00AA00300CAB}";
constexpr Long kMovable = 2;

// A movable block that holds the bytes, the caller's; 0 when there was none to be had.
Long CopyToGlobalMemory(const Array<Byte>& bytes) {
  Pictures& pictures = platform::Pictures();
  const auto& elements = bytes.Elements();
  const Long memory = pictures.GlobalAlloc(kMovable, static_cast<Long>(elements.size()));
  if (memory == 0) return 0;
  Byte* const target = pictures.GlobalLock(memory);
  if (!target) {
    pictures.GlobalFree(memory);
    return 0;
  }
  if (!elements.empty()) std::memcpy(target, elements.data(), elements.size());
  pictures.GlobalUnlock(memory);
  return memory;
}

// The memory goes with its stream, once, whatever becomes of the picture.
Picture Decode(Long memory, Long size) {
  Pictures& pictures = platform::Pictures();
  Ref<Stream> stream;
  Guid id;
  Picture picture;
  if (pictures.CreateStreamOnHGlobal(memory, true, stream) != 0) {
    pictures.GlobalFree(memory);
    return nullptr;
  }
  if (pictures.CLSIDFromString(kIPictureId, id) != 0) return nullptr;
  return pictures.OleLoadPicture(stream, size, false, id, picture) == 0 ? picture : nullptr;
}

}  // namespace

Picture LoadResGifJpgBmp(Integer index, Long hModule) {
  PROCEDURE(Picture, u"LoadResGifJpgBmp", index, hModule);
  Array<Byte> bArr;
  Long memory = 0;
  REPORTS(bArr, memory);
  if (hModule == 0) {
    platform::Modules().LoadResData(index, kImageType, bArr);
  } else {
    LoadResDataFromModule(hModule, index, bArr);
  }
  if (!LanguageExtensions::isEmptyArrayByte(bArr)) {
    memory = CopyToGlobalMemory(bArr);
    if (memory != 0) here.result = Decode(memory, static_cast<Long>(bArr.Elements().size()));
  }
  if (observer) observer->OnPicture(index, hModule, static_cast<bool>(here.result));
  return here.Leave();
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
