#include "platform/desk/desk.h"

#include <utility>

#include "platform/desk/own_resources.h"
#include "platform/desk/png_writer.h"
#include "platform/desk/raster/fill.h"
#include "platform/looks/system_colours.h"

namespace strandline::desk {

namespace {

Surface MakeScreen(const Desk::Options& options) {
  constexpr std::int64_t kLargestScreen = std::int64_t{1} << 26;
  const bool isScreen =
      options.width > 0 && options.height > 0 && std::int64_t{options.width} * options.height <= kLargestScreen;
  const Desk::Options usual;
  return isScreen ? Surface(options.width, options.height) : Surface(usual.width, usual.height);
}

}  // namespace

Clip Desk::Areas::BoundsOf(Long hwnd) {
  Rect bounds;
  mWindows.GetWindowRect(hwnd, bounds);
  return {bounds.left, bounds.top, bounds.right, bounds.bottom};
}

Desk::Desk(const Options& options)
    : mMisuses(std::make_shared<MisuseLog>()),
      mScreen(MakeScreen(options)),
      mWindows(mScreen.width, mScreen.height),
      mAreas(mWindows),
      mGraphics(mScreen, mAreas, mMisuses),
      mPictures(mGraphics.Objects(), mMisuses),
      mModules(OwnImages(), mMisuses),
      mRunTime(mWindows, mWindows),
      mClipboard(mWindows, mPictures.SharedMemory(), mGraphics.Objects()) {
  mPictures.SetDpi(options.dpi);
  mRunTime.SetDpi(options.dpi);
  mRunTime.SetScreen(mScreen.width, mScreen.height);
  mWindows.SetBackdropPainter([this](Long hwnd, const Region& onScreen) { PaintBackdrop(hwnd, onScreen); });
}

// Pictures may outlive the desk, and the log with them; what names the caller doesn't.
Desk::~Desk() { mMisuses->whoIsCalling = nullptr; }

Platform Desk::Services() {
  return {&mWindows, &mGraphics, &mPictures, &mModules, &mComponents, &mRunTime, &mWindows, &mClipboard};
}

void Desk::SetWhoIsCalling(std::function<std::string()> whoIsCalling) {
  mMisuses->whoIsCalling = std::move(whoIsCalling);
}

// The other program shows a plain face, as nothing of it matters but that it covers.
void Desk::PaintBackdrop(Long hwnd, const Region& onScreen) {
  const Long color = hwnd == mWindows.GetDesktopWindow() ? system_color::kBackground : system_color::kFace;
  for (const Clip& clip : onScreen.Rectangles()) {
    desk::FillRect(mScreen, clip, clip, PixelFromColorRef(SystemColor(color)));
  }
}

bool Desk::WritePng(const std::string& path, const Rect& rectangle) const {
  return desk::WritePng(path, mScreen, {rectangle.left, rectangle.top, rectangle.right, rectangle.bottom});
}

}  // namespace strandline::desk
