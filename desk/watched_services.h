#pragma once

// The desk's services as the library gets them: each call is told to the recorder, fails where a failure is armed, and
// what of its drawing reaches a window's own pixels is told as a paint. The simulated Word uses the plain ones, so that
// only the library's doings are heard.

#include "platform/desk/desk.h"
#include "platform/wrappers/failing.h"
#include "platform/wrappers/faults.h"
#include "platform/wrappers/recording.h"

namespace strandline::deskprogram {

// Lets the observer hear of the drawing that goes through here, and of no other.
class PaintReporting final : public ForwardingGraphics {
 public:
  PaintReporting(desk::SoftwareGraphics& target, desk::PaintObserver observer)
      : ForwardingGraphics(target), mGraphics(target), mObserver(std::move(observer)) {}

  Long BitBlt(Long hdc, Long x, Long y, Long width, Long height, Long sourceHdc, Long sourceX, Long sourceY,
              Long rasterOperation) override;
  Long DrawEdge(Long hdc, const Rect& rectangle, Long edge, Long flags) override;
  Long FillRect(Long hdc, const Rect& rectangle, Long brush) override;
  Boolean ColorKeyBlt(Long hdc, Long x, Long y, Long width, Long height, Long sourceHdc, Long sourceX, Long sourceY,
                      Long key) override;

 private:
  class Heard;
  desk::SoftwareGraphics& mGraphics;
  const desk::PaintObserver mObserver;
};

class WatchedServices {
 public:
  // The desk and the recorder outlive this.
  WatchedServices(desk::Desk& desk, CallRecorder& recorder, desk::PaintObserver onPaint);

  Platform Services();
  // The next `count` calls of that service fail, as Windows reports failure. False when there is no such service.
  bool ArmFailure(const std::string& call, int count);
  // The services that can fail, in one line.
  static std::string FailingCalls();

 private:
  Platform mPlain;
  Faults mFaults;
  PaintReporting mPainting;
  FailingWindows mFailingWindows;
  FailingGraphics mFailingGraphics;
  FailingPictures mFailingPictures;
  FailingModules mFailingModules;
  FailingClipboard mFailingClipboard;
  RecordingWindows mWindows;
  RecordingGraphics mGraphics;
  RecordingPictures mPictures;
  RecordingModules mModules;
  RecordingClipboard mClipboard;
  RecordingSubclassers mSubclassers;
};

}  // namespace strandline::deskprogram
