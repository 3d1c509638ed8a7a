// How the strip answers the mouse. Word gets no mouse message there: the strip shows hover and press itself, and a
// click executes the control underneath. The window is Word's and gets no WM_MOUSELEAVE, so a timer of 200 ms asks
// whether the mouse is still there.

#include "drawing/ToolbarUtilities.h"
#include "foundation/CommonLogger.h"
#include "platform/convert.h"
#include "platform/platform.h"
#include "toolbar/Buttons.h"
#include "wordaccess/CommonPropertyFunctions.h"
#include "wordaccess/CommonWordWindowFunctions.h"

namespace strandline {

namespace {

constexpr ModuleInfo kModuleInfo{u"Buttons", nullptr};
constexpr ModuleFile kModule{&kModuleInfo, 2000};

constexpr Integer kMenuCell = 1;
constexpr Integer kLumivexCell = 14;
constexpr Long kLookRaised = 0;
constexpr Long kLookSunken = 1;
constexpr Long kLookPlain = 2;

void ExecuteControl(Integer index) {
  ToolbarUtilities::CommandBar().Get("Controls").ToObject().Get("Item", index).ToObject().Call("Execute");
}

// Taken apart, so that object, window and text are asked for in this order. Each caller has it in a statement of its
// own, so that its errors are told, and ignored, by themselves.
void ShowTooltip(Integer index) {
  const Object tooltip = CommonPropertyFunctions::tooltip();
  const Long hwnd = CommonWordWindowFunctions::ActiveDocumentHandle();
  const String text = ToolbarUtilities::tooltipText(index, false);
  tooltip.Call("Show", hwnd, text, Named{"forceRedraw", true}, Named{"addBackground", false});
}

}  // namespace

Boolean Buttons::HandleMouseMove(Boolean lbuttonDown, Long x, Long y, Boolean hasChangedParentWindows) {
  METHOD(Boolean, u"HandleMouseMove", lbuttonDown, x, y, hasChangedParentWindows);
  Integer newHighlightedButton = 0;
  Integer oldHighlightIndex = 0;
  Long hdc = 0;
  REPORTS(newHighlightedButton, oldHighlightIndex, hdc);
  if (hasChangedParentWindows) {
    Log(u"hasChangedParentWindows: exiting");
    HandleMouseLeftToolbar();
    return here.result = false;
  }
  if (!inToolbarClientArea(x, y, true).ToBoolean()) {
    Log(u"not inToolbarClientArea: exiting");
    HandleMouseLeftToolbar();
    return here.result = false;
  }
  here.result = true;
  STEP(newHighlightedButton = HighlightedButtonIndex(ToInteger(x), ToInteger(y)));
  if (newHighlightedButton == mHighlightedButton) return here.Leave();
  if (newHighlightedButton != mLastUpIndex) {
    mLastUpIndex = 0;
    STEP(ShowTooltip(newHighlightedButton));
  }
  hdc = platform::Graphics().GetDC(mHwnd);
  oldHighlightIndex = mHighlightedButton;
  mHighlightedButton = newHighlightedButton;
  if (!stickyButton(oldHighlightIndex)) ToggleBorder(hdc, oldHighlightIndex, kLookPlain);
  // A drag carries the sunken look from cell to cell; a move without the button doesn't end it.
  if (lbuttonDown) mButtonState = kLookSunken;
  if (!stickyButton(newHighlightedButton)) ToggleBorder(hdc, newHighlightedButton, mButtonState);
  platform::Graphics().ReleaseDC(mHwnd, hdc);
  return here.Leave();
}

Boolean Buttons::HandleButtonDown(Long x, Long y) {
  METHOD(Boolean, u"HandleButtonDown", x, y);
  if (mIsHandling) return here.result = false;
  if (!inToolbarClientArea(x, y, false).ToBoolean()) return here.result = false;
  here.result = true;
  mButtonState = kLookSunken;
  if (stickyButton(mHighlightedButton)) return here.Leave();
  Long hdc = platform::Graphics().GetDC(mHwnd);
  REPORTS(hdc);
  ToggleBorder(hdc, mHighlightedButton, mButtonState);
  // The menu opens when the button comes up; by then its captions are right.
  if (mHighlightedButton == kMenuCell) STEP(Required(mMenu).ToggleFootnoteEndnoteUI());
  platform::Graphics().ReleaseDC(mHwnd, hdc);
  return here.Leave();
}

// A command can let messages run, so that a second click arrives inside the first; that one is swallowed. What fails in
// a command must not keep the strip from coming to rest. The Lumivex cell while it is on is the exception: there an
// error is told, and where it ends the procedure, clicks stay swallowed.
// odd: swallowed-clicks
Boolean Buttons::HandleButtonUp() {
  METHOD(Boolean, u"HandleButtonUp");
  if (mIsHandling) {
    Log(u"HandleButtonUp IsHandling");
    return here.result = true;
  }
  mIsHandling = true;
  mLastUpIndex = mHighlightedButton;
  if (mLastUpIndex == kMenuCell) {
    here.IgnoreErrors();
    if (here.Attempt([] { ExecuteControl(kMenuCell); })) {
      HandleMenuDrop();
    } else {
      Frame::ClearError();
    }
  } else if (!stickyButton(mLastUpIndex)) {
    here.IgnoreErrors();
    // Before the command runs: a dialog opens over a clean strip.
    removeButtonHighlighting(Unread(Long{0}));
  }
  here.result = mLastUpIndex != 0;
  if (mLastUpIndex != 0 && mLastUpIndex != kMenuCell) STEP(ExecuteControl(mLastUpIndex));
  // What ran meanwhile may have brought the mouse elsewhere, and then the cell is forgotten.
  if (mLastUpIndex == kLumivexCell) {
    if (!MouseLeftToolbar()) STEP(ShowTooltip(kLumivexCell));
  } else {
    STEP(CommonPropertyFunctions::tooltip().Call("Hide", Named{"forceHide", true}));
  }
  if (MouseLeftToolbar() || mLastUpIndex == kMenuCell) HandleMouseLeftToolbar();
  mIsHandling = false;
  return here.Leave();
}

// The button looks pressed while its menu is open.
void Buttons::HandleMenuDrop() {
  METHOD(void, u"HandleMenuDrop");
  Long hdc = 0;
  REPORTS(hdc);
  STEP(Required(mMenu).Activate());
  hdc = platform::Graphics().GetDC(mHwnd);
  ToggleBorder(hdc, kMenuCell, kLookSunken);
  platform::Graphics().ReleaseDC(mHwnd, hdc);
}

void Buttons::removeButtonHighlighting(Long& hdc) {
  METHOD(void, u"removeButtonHighlighting", hdc);
  Integer oldHighlightIndex = mHighlightedButton;
  REPORTS(oldHighlightIndex);
  mHighlightedButton = 0;
  mButtonState = kLookRaised;
  if (stickyButton(oldHighlightIndex)) return;
  if (hdc == 0) {
    hdc = platform::Graphics().GetDC(mHwnd);
    ToggleBorder(hdc, oldHighlightIndex, kLookPlain);
    platform::Graphics().ReleaseDC(mHwnd, hdc);
  } else {
    ToggleBorder(hdc, oldHighlightIndex, kLookPlain);
  }
}

void Buttons::HandleMouseLeftToolbar() {
  METHOD(void, u"HandleMouseLeftToolbar");
  Log(u"HandleMouseLeftToolbar");
  mLastUpIndex = 0;
  removeButtonHighlighting(Unread(Long{0}));
  STEP(CommonPropertyFunctions::tooltip().Call("Hide", Named{"forceHide", true}));
}

void Buttons::TimerTick(Boolean isMsgAdvert) {
  METHOD(void, u"TimerTick", isMsgAdvert);
  if (isMsgAdvert) {
    if (mAdvert) mAdvert->TimerTick(mHwnd, *this);
  } else if (MouseLeftToolbar()) {
    HandleMouseLeftToolbar();
  }
}

}  // namespace strandline
