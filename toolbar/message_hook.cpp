// What becomes of each message of the bar's window. Every one of them passes here, so a message that isn't handled
// costs no more than two tests.

#include "drawing/ToolbarUtilities.h"
#include "foundation/CommonLogger.h"
#include "platform/convert.h"
#include "platform/platform.h"
#include "toolbar/Toolbar.h"
#include "wordaccess/CommonWordInteractionFunctions.h"
#include "wordaccess/CommonWordWindowFunctions.h"

namespace strandline {

namespace {

constexpr ModuleInfo kModuleInfo{u"Toolbar", nullptr};
constexpr ModuleFile kModule{&kModuleInfo, 1000};

constexpr Long kLeftButtonAlone = 1;
constexpr Long kAdTimer = 4096;
constexpr Long kLeaveTimerBit = 65536;
constexpr Long kLeaveTimerPeriod = 200;  // milliseconds

}  // namespace

void Toolbar::BeforeMessage(Long uMsg, Long wParam, Long lParam, Long& retValue, Boolean& Cancel) {
  mHook_BeforeMessage(uMsg, wParam, lParam, retValue, Cancel);
}

void Toolbar::mHook_BeforeMessage(Long uMsg, Long wParam, Long lParam, Long& retValue, Boolean& Cancel) {
  METHOD(void, u"mHook_BeforeMessage", uMsg, wParam, lParam, retValue, Cancel);
  Boolean forceUpdate = false;
  Long newHwnd = 0;
  Ref<Buttons> buttons;
  REPORTS(processCount, forceUpdate, newHwnd, buttons);
  if (mQuitting) {
    RUN(BeforeMessageWhileQuitting(here, uMsg, wParam, lParam, Cancel));
    return;
  }
  switch (uMsg) {
    case wm::kSize:
      Log(u"BeforeSize");
      processCount = 2;
      break;
    case wm::kPaint:
      RUN(BeforePaint(here, buttons, forceUpdate, Cancel));
      break;
    case wm::kNcMouseMove:
      STEP(Required(mButtons).removeButtonHighlighting(Unread(Long{0})));
      break;
    case wm::kTimer:
      RUN(BeforeTimer(here, wParam, Cancel));
      break;
    case wm::kMouseMove:
      Log(u"HandleMouseMove");
      HandleMouseMove(wParam == kLeftButtonAlone, loWord(lParam), HiWord(lParam));
      Cancel = true;
      break;
    case wm::kLButtonDown:
      Log(u"BeforeLButtonDown");
      STEP(Cancel = Required(mButtons).HandleButtonDown(loWord(lParam), HiWord(lParam)));
      break;
    case wm::kLButtonUp:
      Log(u"BeforeLButtonUp");
      STEP(Cancel = Required(mButtons).HandleButtonUp());
      break;
    case wm::kLButtonDblClk:
      Cancel = true;
      break;
    case wm::kRButtonDown:
      Log(u"BeforeRButtonDown");
      STEP(Required(mButtons).removeButtonHighlighting(Unread(Long{0})));
      break;
    case wm::kCaptureChanged:
      RUN(BeforeCaptureChanged(here, lParam, newHwnd));
      break;
    default:
      break;
  }
}

// A toolbar on its way out swallows what it gets, but for the message by which it says goodbye.
Boolean Toolbar::BeforeMessageWhileQuitting(Frame& procedure, Long uMsg, Long wParam, Long lParam, Boolean& Cancel) {
  STRETCH(procedure);
  if (uMsg == wm::kQuit) {
    Log(Joined(Hex{mParentHwnd}, u" quit message"));
    STEP(Required(mHook).CallPreviousProc(wm::kQuit, wParam, lParam));
    Cancel = false;
  } else {
    Log(Joined(Hex{mParentHwnd}, u" is dying: ", Hex{uMsg}));
    Cancel = true;
  }
  return here.Done();
}

// After a change of size or window the first paint is dropped, which leaves the window invalid and so brings the second
// one; that one reads the cells anew.
Boolean Toolbar::BeforePaint(Frame& procedure, Ref<Buttons>& buttons, Boolean& forceUpdate, Boolean& Cancel) {
  STRETCH(procedure);
  Log(Joined(u"Before Paint of ", Hex{mParentHwnd}, u", processCount = ", processCount));
  Cancel = true;
  // The paint can bring about the end of this toolbar; the strip lives until it is over.
  buttons = mButtons;
  if (processCount > 0) {
    --processCount;
    if (processCount != 0) return here.Done();
    forceUpdate = true;
  }
  if (CommonWordInteractionFunctions::isWord2002OrEarlier()) {
    CONDITION(wordPaintsFirst, Required(buttons).NeedToPaintBackground(mParentHwnd).ToBoolean() || forceUpdate);
    if (wordPaintsFirst) STEP(Required(mHook).CallPreviousProc(wm::kPaint, 0, 0));
  }
  STEP(Required(buttons).HandlePaint(mParentHwnd, forceUpdate));
  return here.Done();
}

// Any other number is a one-shot of ours, whoever set it.
Boolean Toolbar::BeforeTimer(Frame& procedure, Long wParam, Boolean& Cancel) {
  STRETCH(procedure);
  Cancel = wParam != 0;
  if (wParam == kAdTimer) {
    STEP(Required(mButtons).TimerTick(true));
  } else if (wParam != 0) {
    platform::Windows().KillTimer(mHwnd, wParam);
    STEP(Required(mButtons).TimerTick(false));
  }
  return here.Done();
}

// When the user drags the bar to another dock or floats it, Word makes a new window for it and passes the mouse capture
// there.
Boolean Toolbar::BeforeCaptureChanged(Frame& procedure, Long lParam, Long& newHwnd) {
  STRETCH(procedure);
  if (InSameDockingBar(lParam)) return here.Done();
  newHwnd = ToolbarUtilities::ToolbarWindowHandle(mParentHwnd);
  if (newHwnd != mHwnd && lParam == newHwnd) {
    SwitchListener(newHwnd);
    processCount = 2;
  }
  return here.Done();
}

Boolean Toolbar::InSameDockingBar(Long lParam) {
  METHOD(Boolean, u"InSameDockingBar", lParam);
  return here.result = lParam == 0;
}

void Toolbar::HandleMouseMove(Boolean lbuttonDown, Long x, Long y) {
  METHOD(void, u"HandleMouseMove", lbuttonDown, x, y);
  Boolean hasChangedParentWindows = mParentHwnd != CommonWordWindowFunctions::ActiveDocumentHandle();
  REPORTS(hasChangedParentWindows, epoch);
  CONDITION(needsTimer, Required(mButtons).HandleMouseMove(lbuttonDown, x, y, hasChangedParentWindows));
  if (!needsTimer) return;
  // A new number each time: the next move doesn't put off a timer that runs.
  STEP(epoch = ToLong(std::int64_t{epoch} + 1));
  platform::Windows().SetTimer(mHwnd, epoch | kLeaveTimerBit, kLeaveTimerPeriod, nullptr);
}

Long Toolbar::loWord(Long lDWord) {
  METHOD(Long, u"loWord", lDWord);
  return here.result = lDWord & 0xFFFF;
}

Long Toolbar::HiWord(Long lDWord) {
  METHOD(Long, u"HiWord", lDWord);
  return here.result = static_cast<Long>(static_cast<std::uint32_t>(lDWord) & 0xFFFF0000u) / 65536;
}

}  // namespace strandline
