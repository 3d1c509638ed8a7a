#pragma once

// The module that this code is part of: the DLL.

#include <string>
//
#include "platform/win32/windows_api.h"

extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace strandline::server {

inline HMODULE ThisModule() { return reinterpret_cast<HMODULE>(&__ImageBase); }

// The whole path; empty where the system doesn't tell it.
inline std::wstring ModulePath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = ::GetModuleFileNameW(ThisModule(), path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

}  // namespace strandline::server
