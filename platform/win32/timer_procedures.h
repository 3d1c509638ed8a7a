#pragma once

#include <cstddef>

#include "platform/win32/windows_api.h"
#include "platform/windows.h"

namespace strandline::win32 {

// The procedures of timers that have one, by window and number. The system calls with a convention and with widths that
// the seam doesn't know, so it is given one procedure of ours, which finds the seam's here.
namespace timer_procedures {

// The one that the system is given. What a procedure throws ends here.
void CALLBACK OnTimer(HWND window, UINT message, UINT_PTR id, DWORD time);

// How many run now; a procedure may wait and so let another one run.
std::size_t Running();

// Null forgets. What belongs to windows that have died since is forgotten too.
void Set(Long hwnd, Long id, TimerProc procedure);
bool Has(Long hwnd, Long id);
// Without those of windows that have died.
std::size_t Count();
// For procedures that no thread is left to run.
void ForgetAll();

}  // namespace timer_procedures

}  // namespace strandline::win32
