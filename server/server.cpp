#include "server/server.h"

#include <atomic>
#include <memory>
#include <utility>

#include "addin/library.h"
#include "platform/win32/timer_procedures.h"
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

// The thread on which this was made. As long as it is here, no other thread gets the same number.
class OwnThread {
 public:
  OwnThread() : mNumber(::GetCurrentThreadId()), mHandle(::OpenThread(SYNCHRONIZE, FALSE, mNumber)) {}
  ~OwnThread() {
    if (mHandle) ::CloseHandle(mHandle);
  }
  OwnThread(const OwnThread&) = delete;
  OwnThread& operator=(const OwnThread&) = delete;

  bool IsCurrent() const { return mNumber == ::GetCurrentThreadId(); }
  bool HasEnded() const { return mHandle && ::WaitForSingleObject(mHandle, 0) == WAIT_OBJECT_0; }

 private:
  const DWORD mNumber;
  const HANDLE mHandle;
};

struct Load {
  Load() : platform(kSettingsKey), library(platform.Services()) {}

  const OwnThread thread;
  win32::Win32Platform platform;
  Library library;
};

class Section {
 public:
  Section() { ::InitializeCriticalSection(&mSection); }
  ~Section() { ::DeleteCriticalSection(&mSection); }
  Section(const Section&) = delete;
  Section& operator=(const Section&) = delete;
  void Enter() { ::EnterCriticalSection(&mSection); }
  void Leave() { ::LeaveCriticalSection(&mSection); }

 private:
  CRITICAL_SECTION mSection;
};

// Held while the load is looked at or changed, never while anything outside is called.
Section section;
class Held {
 public:
  Held() { section.Enter(); }
  ~Held() { section.Leave(); }
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;
};

// Not owned by a static object: the end of a load belongs to no moment at which the system unloads the DLL.
Load* load = nullptr;
bool isChanging = false;  // the load begins or ends
std::atomic<LONG> locks{0};

bool IsIdle() {
  return win32::LiveObjects() == 0 && locks == 0 && win32::LiveHooks() == 0 && win32::timer_procedures::Count() == 0 &&
         win32::timer_procedures::Running() == 0;
}

// Its thread has ended, and so have that one's windows and timers. What it holds belongs there.
void LeaveBehind() {
  Library::Abandon();
  win32::timer_procedures::ForgetAll();
  load = nullptr;
}

// The end of a stretch in which the load calls out.
void Settle(Load* settled) {
  const Held held;
  load = settled;
  isChanging = false;
}

// The load of this thread, begun if there is none.
Library& RequireLoad() {
  {
    const Held held;
    if (isChanging) throw Failure{CO_E_SERVER_STOPPING};
    if (load && !load->thread.IsCurrent()) {
      if (!load->thread.HasEnded()) throw Failure{RPC_E_WRONG_THREAD};
      LeaveBehind();
    }
    if (load) return load->library;
    isChanging = true;
  }
  win32::SetFaceMaker(&MakeFace);
  try {
    Settle(new Load);
  } catch (...) {
    Settle(nullptr);
    throw;
  }
  return load->library;
}

const CreatableClass* Find(REFCLSID id) {
  static const CreatableClass classes[] = {
      {CLSID_Main2, &Main2HasInterface, []() -> Object { return RequireLoad().CreateMain2(); }},
      {CLSID_RibbonEvents, &RibbonEventsHasInterface,
       []() -> Object {
         RequireLoad();
         return New<RibbonEvents>();
       }},
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
    RequireLoad();
    const win32::ComRef<IClassFactory> factory(NewClassFactory(*known));
    const HRESULT found = factory->QueryInterface(interfaceId, object);
    if (FAILED(found)) throw Failure{found};
    return S_OK;
  });
}

HRESULT Server::CanUnloadNow() noexcept {
  Load* ended = nullptr;
  {
    const Held held;
    if (isChanging) return S_FALSE;
    if (load && !load->thread.IsCurrent()) {
      if (!load->thread.HasEnded()) return S_FALSE;
      LeaveBehind();
    }
    if (!IsIdle()) return S_FALSE;
    if (!load) return S_OK;
    ended = std::exchange(load, nullptr);
    isChanging = true;
  }
  win32::SetFaceMaker(nullptr);
  TypeDescription::ForgetAll();
  delete ended;
  Settle(nullptr);
  return IsIdle() ? S_OK : S_FALSE;
}

void Server::Lock(bool lock) noexcept {
  if (lock) {
    ++locks;
    return;
  }
  for (LONG seen = locks; seen > 0 && !locks.compare_exchange_weak(seen, seen - 1);) {
  }
}

// Without the section: at the end of the process a thread that held it may be gone.
void Server::Abandon() noexcept {
  if (load || isChanging) Library::Abandon();
}

}  // namespace strandline::server
