#pragma once

// The product's tooltip as it shows: a small yellow box with one line of text beside the pointer. It never lies over
// the bar that it is about, whose pixels are the strip's.

#include "platform/host.h"
#include "wordsim/bar_layout.h"

namespace strandline::wordsim {

class FrameServices;

// Where a box of that size stands: below the pointer; where that would touch `bar`, beside the bar: below it, above it,
// right or left of it, whichever is first on the screen. All in screen pixels.
Rect PlaceOfTooltip(Size size, Point pointer, const Rect& bar, const Rect& screen);

class TooltipWindow final : public WindowProcedure {
 public:
  explicit TooltipWindow(FrameServices& services) : mServices(services) {}
  ~TooltipWindow();
  TooltipWindow(const TooltipWindow&) = delete;
  TooltipWindow& operator=(const TooltipWindow&) = delete;

  // An empty text shows nothing.
  void Show(const String& text);
  void Hide();
  Long Hwnd() const { return mHwnd; }  // 0 before it is first shown

  Long OnMessage(Long hwnd, Long message, Long wParam, Long lParam) override;

 private:
  void Paint(Long hdc) const;

  FrameServices& mServices;
  Long mHwnd = 0;
  String mText;
};

}  // namespace strandline::wordsim
