#include "server/server.h"

#include <utility>

#include "addin/library.h"
#include "foundation/vbwProtector.h"
#include "platform/win32/win32_platform.h"
#include "server/class_factory.h"
#include "server/faces.h"
#include "server/failure.h"
#include "server/type_description.h"
//
#include "strandline_com.h"

namespace strandline::server {

namespace {

constexpr char16_t kSettingsKey[] = u"Software\\Morvane\\Strandline";

struct Load {
  Load() : platform(kSettingsKey), library(platform.Services()) {}

  const DWORD thread = ::GetCurrentThreadId();
  win32::Win32Platform platform;
  Library library;
};

// Not owned by a static object: the end of a load belongs to no moment at which the system unloads the DLL.
Load* load = nullptr;
LONG locks = 0;

bool IsIdle() {
  return win32::LiveObjects() == 0 && locks <= 0 && win32::LiveHooks() == 0 && vbwProtector::variables.mStackCalls == 0;
}

// What the library lets go of may ask again whether the DLL may go; nothing is loaded then.
void End() {
  Load* const ended = std::exchange(load, nullptr);
  if (!ended) return;
  win32::SetFaceMaker(nullptr);
  TypeDescription::ForgetAll();
  delete ended;
}

void Begin() {
  if (load && load->thread != ::GetCurrentThreadId()) {
    if (!IsIdle()) throw Failure{RPC_E_WRONG_THREAD};
    End();
  }
  if (load) return;
  load = new Load;
  win32::SetFaceMaker(&MakeFace);
}

const CreatableClass* Find(REFCLSID id) {
  static const CreatableClass classes[] = {
      {CLSID_Main2, []() -> Object { return load->library.CreateMain2(); }},
      {CLSID_RibbonEvents, []() -> Object { return New<RibbonEvents>(); }},
  };
  for (const CreatableClass& known : classes) {
    if (known.id == id) return &known;
  }
  return nullptr;
}

}  // namespace

HRESULT Server::GetClassObject(REFCLSID classId, REFIID interfaceId, void** object) noexcept {
  return Guarded({&IID_IClassFactory, L"Strandline"}, [&] {
    RequirePointers(object);
    *object = nullptr;
    const CreatableClass* const known = Find(classId);
    if (!known) throw Failure{CLASS_E_CLASSNOTAVAILABLE};
    Begin();
    const win32::ComRef<IClassFactory> factory(NewClassFactory(*known));
    return factory->QueryInterface(interfaceId, object);
  });
}

HRESULT Server::CanUnloadNow() noexcept {
  if (!load) return locks <= 0 && win32::LiveObjects() == 0 ? S_OK : S_FALSE;
  if (load->thread != ::GetCurrentThreadId() || !IsIdle()) return S_FALSE;
  End();
  return IsIdle() ? S_OK : S_FALSE;
}

void Server::Lock(bool lock) { lock ? ::InterlockedIncrement(&locks) : ::InterlockedDecrement(&locks); }

}  // namespace strandline::server
