#pragma once

// The ad panel of one strip, as the strip knows it: what picture it shows now, and what it wants to hear.

#include "ads/AdStrip.h"
#include "foundation/class_object.h"

namespace strandline {

class AdPanel : public ClassObject {
 public:
  // Takes over the current set of ads; hWnd: the strip's window.
  virtual void Initialize(Long hWnd) = 0;
  // The context and size (pixels) of the picture shown; hdc 0 when there is none.
  virtual void getPictureStats(Long& hdc, Long& width, Long& height) = 0;
  virtual void TimerTick(Long hWnd, AdStrip& theButtons) = 0;
  // The strip has moved to another window.
  virtual void SwitchListener(Long hWnd) = 0;
  virtual void ClickOnAd() = 0;
  // ads: which of them depend on the value that has changed.
  virtual void ValueChanged(const Array<Boolean>& ads) = 0;
  virtual void ReprimeTimerCycle(Boolean forceRestart) = 0;
};

}  // namespace strandline
