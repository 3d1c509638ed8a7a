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

  bool IsThere() const { return set && remove && passOn; }
  static const ComctlHooks& Get();
};

}  // namespace strandline::win32
