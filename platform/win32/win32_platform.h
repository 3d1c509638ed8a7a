#pragma once

#include "platform/platform.h"
#include "platform/win32/win32_clipboard.h"
#include "platform/win32/win32_components.h"
#include "platform/win32/win32_graphics.h"
#include "platform/win32/win32_modules.h"
#include "platform/win32/win32_pictures.h"
#include "platform/win32/win32_runtime.h"
#include "platform/win32/win32_subclasser.h"
#include "platform/win32/win32_windows.h"

namespace strandline::win32 {

// All services of the seam on the real system. It outlives the library that was loaded with them, and belongs to the
// thread on which it was made, where COM is initialised.
class Win32Platform {
 public:
  // The user's settings stand in HKEY_CURRENT_USER below `settingsKey`.
  explicit Win32Platform(String settingsKey) : mRunTime(std::move(settingsKey)) {}
  Win32Platform(const Win32Platform&) = delete;
  Win32Platform& operator=(const Win32Platform&) = delete;

  Platform Services();

 private:
  Win32Windows mWindows;
  Win32Graphics mGraphics;
  Win32Memory mMemory;
  Win32Pictures mPictures{mMemory};
  Win32Clipboard mClipboard{mMemory};
  Win32Modules mModules;
  Win32Components mComponents;
  Win32RunTime mRunTime;
  Win32Subclassers mSubclassers;
};

}  // namespace strandline::win32
