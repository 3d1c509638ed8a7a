#include "desk/watched_services.h"

#include "platform/wrappers/operations.h"

namespace strandline::deskprogram {

namespace {

bool CanFail(const Operation& operation) {
  return operation.kind != CallKind::kComponent && operation.kind != CallKind::kRunTime &&
         operation.kind != CallKind::kHook && !operation.name.starts_with("DoEvents");
}

}  // namespace

class PaintReporting::Heard {
 public:
  explicit Heard(const PaintReporting& from)
      : mGraphics(from.mGraphics), mFormer(mGraphics.SetPaintObserver(&from.mObserver)) {}
  ~Heard() { mGraphics.SetPaintObserver(mFormer); }
  Heard(const Heard&) = delete;
  Heard& operator=(const Heard&) = delete;

 private:
  desk::SoftwareGraphics& mGraphics;
  const desk::PaintObserver* mFormer;
};

Long PaintReporting::BitBlt(Long hdc, Long x, Long y, Long width, Long height, Long sourceHdc, Long sourceX,
                            Long sourceY, Long rasterOperation) {
  const Heard heard(*this);
  return mTarget.BitBlt(hdc, x, y, width, height, sourceHdc, sourceX, sourceY, rasterOperation);
}

Long PaintReporting::DrawEdge(Long hdc, const Rect& rectangle, Long edge, Long flags) {
  const Heard heard(*this);
  return mTarget.DrawEdge(hdc, rectangle, edge, flags);
}

Long PaintReporting::FillRect(Long hdc, const Rect& rectangle, Long brush) {
  const Heard heard(*this);
  return mTarget.FillRect(hdc, rectangle, brush);
}

Boolean PaintReporting::ColorKeyBlt(Long hdc, Long x, Long y, Long width, Long height, Long sourceHdc, Long sourceX,
                                    Long sourceY, Long key) {
  const Heard heard(*this);
  return mTarget.ColorKeyBlt(hdc, x, y, width, height, sourceHdc, sourceX, sourceY, key);
}

WatchedServices::WatchedServices(desk::Desk& desk, CallRecorder& recorder, desk::PaintObserver onPaint)
    : mPlain(desk.Services()),
      mPainting(desk.Graphics(), std::move(onPaint)),
      mFailingWindows(*mPlain.windows, mFaults),
      mFailingGraphics(mPainting, mFaults),
      mFailingPictures(*mPlain.pictures, mFaults),
      mFailingModules(*mPlain.modules, mFaults),
      mFailingClipboard(*mPlain.clipboard, mFaults),
      mWindows(mFailingWindows, &recorder),
      mGraphics(mFailingGraphics, &recorder),
      mPictures(mFailingPictures, &recorder),
      mModules(mFailingModules, &recorder),
      mClipboard(mFailingClipboard, &recorder),
      mSubclassers(*mPlain.subclassers, &recorder) {}

Platform WatchedServices::Services() {
  Platform services = mPlain;
  services.windows = &mWindows;
  services.graphics = &mGraphics;
  services.pictures = &mPictures;
  services.modules = &mModules;
  services.clipboard = &mClipboard;
  services.subclassers = &mSubclassers;
  return services;
}

bool WatchedServices::ArmFailure(const std::string& call, int count) {
  const Operation* operation = FindOperation(call);
  if (!operation || !CanFail(*operation)) return false;
  mFaults.Arm(call, count);
  return true;
}

std::string WatchedServices::FailingCalls() {
  std::string list;
  for (const Operation& operation : AllOperations()) {
    if (CanFail(operation)) list.append(list.empty() ? "" : ", ").append(operation.name);
  }
  return list;
}

}  // namespace strandline::deskprogram
