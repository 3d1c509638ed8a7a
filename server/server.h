#pragma once

// One load of the library in this process, and the standard entries around it. The load begins with the first class
// object, so that nothing of it runs while the system loads the DLL, and ends when the system asks whether the DLL may
// go and it may: no object, class object or lock of ours is held outside, no window is hooked, and no procedure runs,
// such as one that waits for an event while it lets others be handled. It belongs to the thread on which it began.

#include "platform/win32/windows_api.h"

namespace strandline::server {

class Server {
 public:
  // RPC_E_WRONG_THREAD while a load is in use on another thread.
  static HRESULT GetClassObject(REFCLSID classId, REFIID interfaceId, void** object) noexcept;
  // S_OK: the load has ended and the DLL may go. S_FALSE: not now.
  static HRESULT CanUnloadNow() noexcept;
  static void Lock(bool lock);
};

}  // namespace strandline::server
