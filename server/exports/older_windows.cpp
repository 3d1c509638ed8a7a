// The compiler's support for threads asks for a clock that Windows has from Vista on only, and Word 2000 to 2003 runs
// on older ones too. The DLL brings that clock itself, under the name by which it would be imported.

#include "platform/win32/windows_api.h"

#ifndef _WIN64

namespace {

// Whole milliseconds; the system's own count begins anew every 49 days.
ULONGLONG WINAPI TickCount64() {
  static DWORD last = 0;
  static ULONGLONG turns = 0;
  const DWORD now = ::GetTickCount();
  if (now < last) ++turns;
  last = now;
  return turns << 32 | now;
}

}  // namespace

extern "C" {
extern ULONGLONG(WINAPI* const importedTickCount64)() asm("__imp__GetTickCount64@0");
ULONGLONG(WINAPI* const importedTickCount64)() = &TickCount64;
}

#endif
