#include "tests/wordhost/system_handles.h"

#include <cstdint>
#include <cstring>

#include "platform/win32/windows_api.h"

namespace strandline::wordhosttest {

namespace {

// The table of graphics handles that the system shares with every process, for where it doesn't count them itself (as
// Wine doesn't): 65,536 entries of 24 bytes, each with its object's type, 0 for a free one.
int UsedTableEntries() {
  constexpr std::size_t kEntries = 0x10000;
  constexpr std::size_t kEntrySize = 24;
  constexpr std::size_t kTypeAt = 14;
#ifdef _WIN64
  const auto* const process = reinterpret_cast<const Byte*>(__readgsqword(0x60));
  constexpr std::size_t kTableAt = 0xF8;
#else
  const auto* const process = reinterpret_cast<const Byte*>(__readfsdword(0x30));
  constexpr std::size_t kTableAt = 0x94;
#endif
  const Byte* table = nullptr;
  std::memcpy(&table, process + kTableAt, sizeof table);
  int used = 0;
  for (std::size_t i = 0; table && i < kEntries; ++i) used += table[i * kEntrySize + kTypeAt] != 0;
  return used;
}

BOOL CALLBACK CountOne(HWND, LPARAM count) {
  ++*reinterpret_cast<int*>(count);
  return TRUE;
}

BOOL CALLBACK CountWithChildren(HWND window, LPARAM count) {
  CountOne(window, count);
  ::EnumChildWindows(window, &CountOne, count);
  return TRUE;
}

}  // namespace

SystemHandles SystemHandles::Now() {
  SystemHandles handles;
  handles.graphics = static_cast<int>(::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS));
  if (handles.graphics == 0) handles.graphics = UsedTableEntries();
  handles.windows = static_cast<int>(::GetGuiResources(::GetCurrentProcess(), GR_USEROBJECTS));
  if (handles.windows == 0) {
    ::EnumThreadWindows(::GetCurrentThreadId(), &CountWithChildren, reinterpret_cast<LPARAM>(&handles.windows));
  }
  return handles;
}

}  // namespace strandline::wordhosttest
