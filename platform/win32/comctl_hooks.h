#pragma once

#include "platform/win32/windows_api.h"

namespace strandline::win32 {

// The chain of hooks that comctl32 keeps for each window.
struct ComctlHooks {
  // As the system's headers have them, which want a newer common controls library than we do.
  using Procedure = LRESULT(CALLBACK*)(HWND, UINT, WPARAM, LPARAM, UINT_PTR id, DWORD_PTR data);

  // Puts a hook on top, or changes the data of one that is there by its procedure and id.
  BOOL(WINAPI* set)(HWND, Procedure, UINT_PTR id, DWORD_PTR data) = nullptr;
  BOOL(WINAPI* remove)(HWND, Procedure, UINT_PTR id) = nullptr;
  // From within a hook: what comes below it.
  LRESULT(WINAPI* passOn)(HWND, UINT, WPARAM, LPARAM) = nullptr;

  // The procedure that a window of that kind has while the chain is on top of it, as ProcedureOf tells it; 0 where it
  // can't be learned. It is the same for all windows of a kind.
  LONG_PTR OwnProcedure(bool isUnicode) const;

  bool IsThere() const { return set && remove && passOn; }
  static const ComctlHooks& Get();
};

// A window's procedure, as the window's own kind of function tells it: the other kind gives a stand-in.
LONG_PTR ProcedureOf(HWND window);

}  // namespace strandline::win32
