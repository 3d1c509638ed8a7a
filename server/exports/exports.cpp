// What the DLL exports. It stands apart from the server so that a test can link the server without it.

#include "server/module.h"
#include "server/registration.h"
#include "server/server.h"

using strandline::server::Registrar;
using strandline::server::Server;

STDAPI DllCanUnloadNow() { return Server::CanUnloadNow(); }

STDAPI DllGetClassObject(REFCLSID classId, REFIID interfaceId, void** object) {
  return Server::GetClassObject(classId, interfaceId, object);
}

STDAPI DllRegisterServer() { return Registrar::OfThisModule().Register(); }

STDAPI DllUnregisterServer() { return Registrar::OfThisModule().Unregister(); }

// Under the loader's lock nothing else may be done; the library begins with its first class object.
BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, void*) {
  if (reason == DLL_PROCESS_ATTACH) ::DisableThreadLibraryCalls(module);
  return TRUE;
}
