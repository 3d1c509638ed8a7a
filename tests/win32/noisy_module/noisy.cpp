// A module of resources that has code too: where that runs, a variable of the environment tells.

#include <windows.h>

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD, void*) {
  ::SetEnvironmentVariableW(L"STRANDLINE_NOISE", L"heard");
  return TRUE;
}
