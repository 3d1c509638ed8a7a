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

}  // namespace

const ComctlHooks& ComctlHooks::Get() {
  static const ComctlHooks hooks = Load();
  return hooks;
}

}  // namespace strandline::win32
