#pragma once

// The toolbar on one document window: finds the command bar's window, which is Word's, hooks it, and sorts each message
// into what is handled here and kept from Word, what is handled and passed on, and what is left alone. The strip itself
// is its Buttons.
//
// Lives on Word's user-interface thread. Initialize blocks, with messages flowing, until the bar's window exists;
// Terminate runs once, and may come while a paint is under way.

#include "platform/subclasser.h"
#include "toolbar/Buttons.h"

namespace strandline {

class Toolbar final : public ClassObject, public MessageSink {
 public:
  // Returns only when the bar's window is found and hooked; there is no upper limit. parentHwnd: the document's
  // top-level window.
  void Initialize(Long parentHwnd);
  void Terminate();
  // Whether this toolbar was made for that document.
  Boolean isDocument(const Object& doc);
  void ClickOnAd();
  void Redraw();
  void UpdateLumivexIcon();
  void ValueChanged(const Array<Boolean>& ads, const String& value);
  void ReprimeTimerCycle();

  // The low half of a message's parameter, never negative; the high half, signed.
  Long loWord(Long lDWord);
  Long HiWord(Long lDWord);
  // Follows the bar to a new window of Word's; 0: looks for it.
  void SwitchListener(Long newHwnd);
  void HandleMouseMove(Boolean lbuttonDown, Long x, Long y);
  // lParam: the window that gains the mouse capture.
  Boolean InSameDockingBar(Long lParam);

  // The hook's event.
  void BeforeMessage(Long uMsg, Long wParam, Long lParam, Long& retValue, Boolean& Cancel) override;
  void mHook_BeforeMessage(Long uMsg, Long wParam, Long lParam, Long& retValue, Boolean& Cancel);

  Long parentHwnd() const { return mParentHwnd; }
  void ReportVariables(Reporter& to) const override;
  // The objects of this toolbar, each as a stretch of its own.
  void ReportState(StateVisitor& to) const;

 private:
  friend struct ToolbarAccess;  // the tests' way to a toolbar that has seen many moves

  void Terminated() override;
  // Stretches of the hook's event.
  Boolean BeforeMessageWhileQuitting(Frame& procedure, Long uMsg, Long wParam, Long lParam, Boolean& Cancel);
  Boolean BeforePaint(Frame& procedure, Ref<Buttons>& buttons, Boolean& forceUpdate, Boolean& Cancel);
  Boolean BeforeTimer(Frame& procedure, Long wParam, Boolean& Cancel);
  Boolean BeforeCaptureChanged(Frame& procedure, Long lParam, Long& newHwnd);

  Long mParentHwnd = 0;  // the registry's key
  Long mHwnd = 0;        // the window that is hooked
  Boolean mQuitting = false;
  Long mDocId = 0;
  Ref<Subclasser> mHook;
  Ref<Buttons> mButtons;

  Integer processCount = 0;  // paints still to be counted down after a change of size or window
  Long epoch = 0;            // behind the numbers of the one-shot timers
};

}  // namespace strandline
