#pragma once

// The desk: a Windows of our own, on which the library and the simulated Word run where there is no Windows.
//
// Faithful: windows with z-order, clipping and invalid regions, messages, timers, hooks and mouse (window_system.h);
// contexts, bitmaps and the pixels of each drawing (software_graphics.h); memory, streams and pictures
// (desk_pictures.h); modules (desk_modules.h); the clipboard (desk_clipboard.h). Handles are counted, and each misuse
// of one is recorded.
// Simplified: one thread and one screen; time is virtual and passes only where somebody waits; message boxes are
// answered by a handler; the settings store and the components are what is put into them.
// Left out: see the parts' own headers; of whole systems: keyboard, printing, sound, network, the file system.
//
// Everything that shows is the same in every run.

#include <functional>
#include <memory>
#include <string>

#include "platform/desk/desk_clipboard.h"
#include "platform/desk/desk_components.h"
#include "platform/desk/desk_modules.h"
#include "platform/desk/desk_pictures.h"
#include "platform/desk/desk_runtime.h"
#include "platform/desk/misuse_log.h"
#include "platform/desk/software_graphics.h"
#include "platform/desk/window_system.h"
#include "platform/host.h"
#include "platform/platform.h"

namespace strandline::desk {

class Desk {
 public:
  struct Options {
    int width = 1024;  // of the screen, pixels
    int height = 768;
    Long dpi = 96;
  };

  Desk() : Desk(Options{}) {}
  // A size that is no screen (not positive, or above 64 megapixels) gives the default one.
  explicit Desk(const Options& options);
  ~Desk();
  Desk(const Desk&) = delete;
  Desk& operator=(const Desk&) = delete;

  // The services themselves, nothing in between. They live as long as the desk.
  Platform Services();

  WindowSystem& Windows() { return mWindows; }
  SoftwareGraphics& Graphics() { return mGraphics; }
  DeskPictures& Pictures() { return mPictures; }
  DeskModules& Modules() { return mModules; }
  DeskRunTime& RunTime() { return mRunTime; }
  DeskComponents& Components() { return mComponents; }
  DeskClipboard& Clipboard() { return mClipboard; }

  HostWindows& Host() { return mWindows; }
  HostMouse& Mouse() { return mWindows; }
  HostClock& Clock() { return mWindows; }
  HostCanvas& Canvas() { return mGraphics; }

  const Surface& Screen() const { return mScreen; }
  ObjectTable& Objects() { return *mGraphics.Objects(); }
  MisuseLog& Misuses() { return *mMisuses; }

  // Names the procedure that runs, for makers of handles and records of misuse; null: nobody.
  void SetWhoIsCalling(std::function<std::string()> whoIsCalling);

  // The screen's pixels of that rectangle. False when nothing of it is on the screen or the file can't be written.
  bool WritePng(const std::string& path, const Rect& rectangle) const;

 private:
  // How graphics sees the windows.
  class Areas final : public WindowAreas {
   public:
    explicit Areas(WindowSystem& windows) : mWindows(windows) {}
    bool IsWindow(Long hwnd) override { return mWindows.IsWindow(hwnd); }
    Clip BoundsOf(Long hwnd) override;
    const Region& VisibleRegion(Long hwnd) override { return mWindows.VisibleRegion(hwnd); }
    const Region& InvalidRegion(Long hwnd) override { return mWindows.UpdateRegion(hwnd); }
    void Validate(Long hwnd) override { mWindows.Validate(hwnd); }

   private:
    WindowSystem& mWindows;
  };

  void PaintBackdrop(Long hwnd, const Region& onScreen);

  std::shared_ptr<MisuseLog> mMisuses;
  Surface mScreen;
  WindowSystem mWindows;
  Areas mAreas;
  SoftwareGraphics mGraphics;
  DeskPictures mPictures;
  DeskModules mModules;
  DeskRunTime mRunTime;
  DeskComponents mComponents;
  DeskClipboard mClipboard;
};

}  // namespace strandline::desk
