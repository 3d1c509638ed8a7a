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

Long Win32Modules::LoadLibraryA(const String& path) {
  return mModules.Add(::LoadLibraryExW(Wide(path), nullptr, LOAD_LIBRARY_AS_DATAFILE));
}

// Each load of a data file is a mapping of its own, so the number goes with it.
Long Win32Modules::FreeLibrary(Long module) {
  void* const mapped = mModules.Find(module);
  if (!mapped) return 0;
  mModules.Remove(module);
  return ::FreeLibrary(static_cast<HMODULE>(mapped));
}

Long Win32Modules::FindResourceA(Long module, Long id, const String& type) {
  void* const mapped = mModules.Find(module);
  return mapped && id >= 0 && id <= 0xFFFF ? mResources.Add(Find(static_cast<HMODULE>(mapped), id, type)) : 0;
}
Long Win32Modules::LoadResource(Long module, Long resource) {
  void* const mapped = mModules.Find(module);
  void* const found = mResources.Find(resource);
  return mapped && found ? mData.Add(::LoadResource(static_cast<HMODULE>(mapped), static_cast<HRSRC>(found))) : 0;
}
const Byte* Win32Modules::LockResource(Long data) { return static_cast<const Byte*>(::LockResource(mData.Find(data))); }
Long Win32Modules::SizeofResource(Long module, Long resource) {
  void* const mapped = mModules.Find(module);
  void* const found = mResources.Find(resource);
  return mapped && found ? static_cast<Long>(::SizeofResource(static_cast<HMODULE>(mapped), static_cast<HRSRC>(found)))
                         : 0;
}
Long Win32Modules::FreeResource(Long data) {
  mData.Remove(data);
  return 0;
}

String Win32Modules::LoadStringA(Long module, Long id, Long limit) {
  void* const mapped = mModules.Find(module);
  if (!mapped || limit <= 0) return {};
  std::vector<char> narrow(static_cast<std::size_t>(limit));
  const int length = ::LoadStringA(static_cast<HMODULE>(mapped), static_cast<UINT>(id), narrow.data(), limit);
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
