#pragma once

// One load of the library in this process, and the standard entries around it. The load begins with the first class
// object, so that nothing of it runs while the system loads the DLL, and ends when the system asks whether the DLL may
// go and it may: no object, class object or lock of ours is held outside, no window is hooked, no timer is set, and no
// timer's procedure runs. While it begins or ends it calls out, and who asks for it from there is put off.
//
// A load belongs to the thread on which it began. When that thread has ended, another one may have a load of its own;
// the former is left behind as it is then, since what it holds can't be let go of from another thread.

#include "platform/win32/windows_api.h"

namespace strandline::server {

class Server {
 public:
  // RPC_E_WRONG_THREAD where the load's own thread lives, CO_E_SERVER_STOPPING while the load begins or ends.
  static HRESULT GetClassObject(REFCLSID classId, REFIID interfaceId, void** object) noexcept;
  // S_OK: the load has ended and the DLL may go. S_FALSE: not now.
  static HRESULT CanUnloadNow() noexcept;
  // For any thread. More releases than locks count for nothing.
  static void Lock(bool lock) noexcept;
  // The DLL goes with whatever there is. Calls nothing outside.
  static void Abandon() noexcept;
};

}  // namespace strandline::server
