#include "platform/win32/win32_platform.h"

namespace strandline::win32 {

Platform Win32Platform::Services() {
  Platform services;
  services.windows = &mWindows;
  services.graphics = &mGraphics;
  services.pictures = &mPictures;
  services.modules = &mModules;
  services.components = &mComponents;
  services.runTime = &mRunTime;
  services.subclassers = &mSubclassers;
  services.clipboard = &mClipboard;
  return services;
}

}  // namespace strandline::win32
