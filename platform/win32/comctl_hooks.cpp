#include "platform/win32/comctl_hooks.h"

namespace strandline::win32 {

namespace {

// These have been in comctl32 since Windows 98, but for a long time by ordinal alone, so that a program that asks by
// name doesn't start there. The library stays loaded: windows may call into it as long as the process lives.
constexpr WORD kSetWindowSubclass = 410;
constexpr WORD kRemoveWindowSubclass = 412;
constexpr WORD kDefSubclassProc = 413;

template <class Procedure>
void Find(HMODULE library, WORD ordinal, Procedure& procedure) {
  const FARPROC found = ::GetProcAddress(library, reinterpret_cast<LPCSTR>(static_cast<ULONG_PTR>(ordinal)));
  procedure = reinterpret_cast<Procedure>(reinterpret_cast<void*>(found));
}

ComctlHooks Load() {
  ComctlHooks hooks;
  if (const HMODULE library = ::LoadLibraryW(L"comctl32.dll")) {
    Find(library, kSetWindowSubclass, hooks.set);
    Find(library, kRemoveWindowSubclass, hooks.remove);
    Find(library, kDefSubclassProc, hooks.passOn);
  }
  return hooks;
}

LRESULT CALLBACK PassOn(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
  return ComctlHooks::Get().passOn(window, message, wParam, lParam);
}

// Hidden, of a kind that every system has; null where there are no windows of that kind.
HWND NewWindow(bool isUnicode) {
  return isUnicode ? ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, OwnModule(), nullptr)
                   : ::CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, OwnModule(), nullptr);
}

}  // namespace

// Learned from a window of ours, since any other may have somebody else's procedure on top already. Putting the chain
// on a window may change its kind, with some versions.
LONG_PTR ComctlHooks::OwnProcedure(bool isUnicode) const {
  static LONG_PTR known[2] = {};
  for (const bool kind : {isUnicode, !isUnicode}) {
    if (known[isUnicode] != 0) break;
    const HWND window = NewWindow(kind);
    if (!window) continue;
    const LONG_PTR before = ProcedureOf(window);
    if (set(window, &PassOn, 1, 0) && ProcedureOf(window) != before) {
      known[::IsWindowUnicode(window) != FALSE] = ProcedureOf(window);
    }
    remove(window, &PassOn, 1);
    ::DestroyWindow(window);
  }
  return known[isUnicode];
}

LONG_PTR ProcedureOf(HWND window) {
  const auto get = ::IsWindowUnicode(window) ? &::GetWindowLongPtrW : &::GetWindowLongPtrA;
  return get(window, GWLP_WNDPROC);
}

const ComctlHooks& ComctlHooks::Get() {
  static const ComctlHooks hooks = Load();
  return hooks;
}

}  // namespace strandline::win32
