// What the DLL exports. It stands apart from the server so that a test can link the server without it. Nothing thrown
// may leave.

#include "server/module.h"
#include "server/registration.h"
#include "server/server.h"

using strandline::server::Registrar;
using strandline::server::Server;

namespace {

HRESULT WithRegistrar(HRESULT (Registrar::*operation)() const) noexcept {
  try {
    return (Registrar::OfThisModule().*operation)();
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

}  // namespace

STDAPI DllCanUnloadNow() { return Server::CanUnloadNow(); }

STDAPI DllGetClassObject(REFCLSID classId, REFIID interfaceId, void** object) {
  return Server::GetClassObject(classId, interfaceId, object);
}

STDAPI DllRegisterServer() { return WithRegistrar(&Registrar::Register); }

STDAPI DllUnregisterServer() { return WithRegistrar(&Registrar::Unregister); }

// Under the loader's lock nothing else may be done: the library begins with its first class object, and what it still
// holds when the DLL goes without having been asked stays behind, before the module's own variables are destroyed.
BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, void*) {
  if (reason == DLL_PROCESS_ATTACH) ::DisableThreadLibraryCalls(module);
  if (reason == DLL_PROCESS_DETACH) Server::Abandon();
  return TRUE;
}
