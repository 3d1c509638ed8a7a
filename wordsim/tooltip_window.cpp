#include "wordsim/tooltip_window.h"

#include <algorithm>

#include "wordsim/document_frame.h"
#include "wordsim/paint_colours.h"
#include "wordsim/window_part.h"
#include "wordsim/word_world.h"

namespace strandline::wordsim {

namespace {

constexpr Long kHide = 0;
constexpr Long kShowInPlace = 8;
constexpr Long kMargin = 3;         // around the text
constexpr Long kBelowPointer = 20;  // so that the pointer's arrow covers nothing
constexpr Long kGap = 2;            // from the bar
constexpr Rect kNowhere{0, 0, 0, 0};

bool Touch(const Rect& a, const Rect& b) {
  return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

Rect At(Long left, Long top, Size size) { return {left, top, left + size.width, top + size.height}; }

// Moved along the screen's edges until it is on the screen, as far as it fits there.
Rect Inside(const Rect& screen, Rect box, Size size) {
  const Long left = std::max(screen.left, std::min(box.left, screen.right - size.width));
  const Long top = std::max(screen.top, std::min(box.top, screen.bottom - size.height));
  return At(left, top, size);
}

}  // namespace

Rect PlaceOfTooltip(Size size, Point pointer, const Rect& bar, const Rect& screen) {
  const Rect below = Inside(screen, At(pointer.x, pointer.y + kBelowPointer, size), size);
  const Rect places[] = {
      below,
      At(below.left, bar.bottom + kGap, size),
      At(below.left, bar.top - kGap - size.height, size),
      At(bar.right + kGap, below.top, size),
      At(bar.left - kGap - size.width, below.top, size),
  };
  for (const Rect& place : places) {
    if (!Touch(place, bar) && Inside(screen, place, size) == place) return place;
  }
  return below;
}

TooltipWindow::~TooltipWindow() {
  if (mHwnd) mServices.host.DestroyWindow(mHwnd);
}

void TooltipWindow::Show(const String& text) {
  mText = text;
  if (text.IsEmpty()) return Hide();
  Windows& windows = *mServices.platform.windows;
  if (!mHwnd) {
    mHwnd = mServices.host.CreateWindowOf(u"QuillmereTooltip", u"", 0, kNowhere, this);
    mServices.names.Add(mHwnd, "tooltip");
  }
  Point pointer;
  windows.GetCursorPos(pointer);
  Rect screen;
  windows.GetWindowRect(windows.GetDesktopWindow(), screen);
  Rect bar;
  if (const Long hwnd = mServices.world.ActiveBarWindow()) windows.GetWindowRect(hwnd, bar);
  const Size size{mServices.canvas.TextWidth(text) + 2 * kMargin, mServices.canvas.TextHeight() + 2 * kMargin};
  mServices.host.MoveWindow(mHwnd, PlaceOfTooltip(size, pointer, bar, screen));
  mServices.host.BringWindowToTop(mHwnd);
  windows.ShowWindow(mHwnd, kShowInPlace);
  mServices.host.InvalidateWindow(mHwnd);
}

void TooltipWindow::Hide() {
  if (mHwnd) mServices.platform.windows->ShowWindow(mHwnd, kHide);
}

Long TooltipWindow::OnMessage(Long hwnd, Long message, Long wParam, Long lParam) {
  if (message == wm::kPaint) {
    PaintStruct paint;
    if (const Long hdc = mServices.platform.graphics->BeginPaint(hwnd, paint)) Paint(hdc);
    mServices.platform.graphics->EndPaint(hwnd, paint);
    return 0;
  }
  return HandleAsPart(mServices.host, hwnd, message, wParam, lParam);
}

void TooltipWindow::Paint(Long hdc) const {
  Rect place;
  mServices.platform.windows->GetWindowRect(mHwnd, place);
  const Rect box{0, 0, place.right - place.left, place.bottom - place.top};
  mServices.canvas.FillRectangle(hdc, box, kBlack);
  mServices.canvas.FillRectangle(hdc, {1, 1, box.right - 1, box.bottom - 1}, kTooltipFace);
  mServices.canvas.DrawTextLine(hdc, kMargin, kMargin, mText, kBlack);
}

}  // namespace strandline::wordsim
