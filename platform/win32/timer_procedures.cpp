#include "platform/win32/timer_procedures.h"

#include <map>
#include <utility>

namespace strandline::win32::timer_procedures {

namespace {

using Timer = std::pair<Long, Long>;

std::map<Timer, TimerProc>& All() {
  static auto& all = *new std::map<Timer, TimerProc>;
  return all;
}

std::size_t running = 0;

bool IsOfADeadWindow(const Timer& timer) { return timer.first != 0 && !::IsWindow(ToHandle<HWND>(timer.first)); }

// Nobody tells of a window's death, and there are few timers: they are looked through each time.
void ForgetDeadWindows() {
  std::erase_if(All(), [](const auto& entry) { return IsOfADeadWindow(entry.first); });
}

}  // namespace

void CALLBACK OnTimer(HWND window, UINT message, UINT_PTR id, DWORD time) {
  const Long hwnd = ToNumber(window);
  const Long number = static_cast<Long>(id);
  const auto found = All().find({hwnd, number});
  if (found == All().end()) return;
  const TimerProc procedure = found->second;
  ++running;
  try {
    procedure(hwnd, static_cast<Long>(message), number, static_cast<Long>(time));
  } catch (...) {
    // It has nowhere to go: the frames above are the system's.
  }
  --running;
}

std::size_t Running() { return running; }

void Set(Long hwnd, Long id, TimerProc procedure) {
  ForgetDeadWindows();
  if (procedure) {
    All()[{hwnd, id}] = procedure;
  } else {
    All().erase({hwnd, id});
  }
}

bool Has(Long hwnd, Long id) { return All().contains({hwnd, id}); }
std::size_t Count() {
  ForgetDeadWindows();
  return All().size();
}
void ForgetAll() {
  All().clear();
  running = 0;
}

}  // namespace strandline::win32::timer_procedures
