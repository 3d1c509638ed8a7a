#include "platform/win32/win32_modules.h"

#include <cstring>
#include <vector>

#include "platform/win32/windows_api.h"

// Where the linker begins the module that this code has become part of.
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace strandline::win32 {

namespace {

HRSRC Find(HMODULE module, Long id, const String& type) {
  return ::FindResourceW(module, MAKEINTRESOURCEW(id), Wide(type));
}

}  // namespace

HMODULE OwnModule() { return reinterpret_cast<HMODULE>(&__ImageBase); }

void* Win32Modules::Mapped(Long module) const {
  const auto found = mModules.find(module);
  return found == mModules.end() ? nullptr : found->second;
}

// Null for one of another module too: the system would read it off that one's place.
void* Win32Modules::FoundIn(Long module, Long resource) const {
  const Piece* const found = mResources.Find(resource);
  return found && found->module == module ? found->handle : nullptr;
}

Long Win32Modules::LoadLibraryA(const String& path) {
  const HMODULE mapped = ::LoadLibraryExW(Wide(path), nullptr, LOAD_LIBRARY_AS_DATAFILE);
  if (!mapped) return 0;
  mModules.emplace(++mLastModule, mapped);
  return mLastModule;
}

Long Win32Modules::FreeLibrary(Long module) {
  const auto mapped = static_cast<HMODULE>(Mapped(module));
  if (!mapped) return 0;
  const auto isIts = [module](const Piece& piece) { return piece.module == module; };
  mResources.RemoveIf(isIts);
  mData.RemoveIf(isIts);
  mModules.erase(module);
  return ::FreeLibrary(mapped);
}

Long Win32Modules::FindResourceA(Long module, Long id, const String& type) {
  const auto mapped = static_cast<HMODULE>(Mapped(module));
  const HRSRC found = mapped && id >= 0 && id <= 0xFFFF ? Find(mapped, id, type) : nullptr;
  return found ? mResources.Add({module, found}) : 0;
}
Long Win32Modules::LoadResource(Long module, Long resource) {
  const auto found = static_cast<HRSRC>(FoundIn(module, resource));
  const HGLOBAL data = found ? ::LoadResource(static_cast<HMODULE>(Mapped(module)), found) : nullptr;
  return data ? mData.Add({module, data}) : 0;
}
const Byte* Win32Modules::LockResource(Long data) {
  const Piece* const loaded = mData.Find(data);
  return loaded ? static_cast<const Byte*>(::LockResource(loaded->handle)) : nullptr;
}
Long Win32Modules::SizeofResource(Long module, Long resource) {
  const auto found = static_cast<HRSRC>(FoundIn(module, resource));
  return found ? static_cast<Long>(::SizeofResource(static_cast<HMODULE>(Mapped(module)), found)) : 0;
}
// Data are a part of the mapped file: they go with their module, and until then may be locked again.
Long Win32Modules::FreeResource(Long) { return 0; }

String Win32Modules::LoadStringA(Long module, Long id, Long limit) {
  // Null is the program file of the process.
  const auto mapped = static_cast<HMODULE>(Mapped(module));
  if ((module != 0 && !mapped) || limit <= 0) return {};
  std::vector<char> narrow(static_cast<std::size_t>(limit));
  const int length = ::LoadStringA(mapped, static_cast<UINT>(id), narrow.data(), limit);
  std::vector<wchar_t> wide(static_cast<std::size_t>(length) + 1);
  const int characters = ::MultiByteToWideChar(CP_ACP, 0, narrow.data(), length, wide.data(), length);
  return FromWide(wide.data(), static_cast<std::size_t>(characters));
}

Boolean Win32Modules::LoadResData(Long id, const String& type, Array<Byte>& bytes) {
  const HMODULE own = OwnModule();
  const HRSRC resource = id >= 0 && id <= 0xFFFF ? Find(own, id, type) : nullptr;
  if (!resource) return false;
  const void* const data = ::LockResource(::LoadResource(own, resource));
  const DWORD size = ::SizeofResource(own, resource);
  if (!data) return false;
  bytes.Size(0, static_cast<Long>(size) - 1);
  std::memcpy(bytes.Data(), data, size);
  return true;
}

}  // namespace strandline::win32
