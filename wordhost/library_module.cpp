#include "wordhost/library_module.h"

#include <cstdio>

#include "platform/win32/win32_variant.h"
#include "platform/win32/windows_api.h"

namespace strandline::wordhost {

namespace {

std::string Hex(long result) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%08lx", static_cast<unsigned long>(result));
  return text;
}

}  // namespace

long LibraryModule::CallExport(const char* name) const {
  const FARPROC address = ::GetProcAddress(static_cast<HMODULE>(mModule), name);
  // By way of a pointer to no type of function: the compiler would warn of a direct cast.
  const auto operation = reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(reinterpret_cast<void*>(address));
  return operation ? operation() : E_NOTIMPL;
}

std::string LibraryModule::Create(Object& main2) {
  mModule = ::LoadLibraryA(mPath.c_str());
  if (!mModule) return "the library " + mPath + " can't be loaded; name its DLL with --dll";
  const long registered = CallExport("DllRegisterServer");
  if (FAILED(registered)) return "the library " + mPath + " can't be registered (" + Hex(registered) + ")";
  mIsRegistered = true;
  CLSID id{};
  win32::ComRef<IDispatch> object;
  HRESULT created = ::CLSIDFromProgID(L"Strandline.Main2", &id);
  if (SUCCEEDED(created)) {
    created = ::CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, object.PutVoid());
  }
  if (FAILED(created)) return "the library's object can't be created (" + Hex(created) + ")";
  main2 = win32::Wrap(object.get());
  return "";
}

void LibraryModule::Unload() {
  if (!mModule) return;
  ::CoFreeUnusedLibrariesEx(0, 0);
  Unregister();
  ::FreeLibrary(static_cast<HMODULE>(mModule));
  mModule = nullptr;
}

void LibraryModule::Unregister() {
  if (mIsRegistered) CallExport("DllUnregisterServer");
  mIsRegistered = false;
}

}  // namespace strandline::wordhost
