#include "platform/wrappers/recording.h"

namespace strandline {

RecordingSubclasser::RecordingSubclasser(Ref<Subclasser> target, SharedRecorder recorder)
    : ForwardingSubclasser(std::move(target)), mRecorder(std::move(recorder)) {}

// The wrapped hook gets a sink only while there is one to ask: a hook without one has no messages to tell of.
void RecordingSubclasser::SetSink(MessageSink* sink) {
  mSink = sink;
  mTarget->SetSink(sink == nullptr ? nullptr : this);
}

void RecordingSubclasser::Subclass(Long hwnd) {
  mHwnd = hwnd;
  mTarget->Subclass(hwnd);
  if (*mRecorder != nullptr) (*mRecorder)->Record("subclass", note::All(note::Win(hwnd)), CallArgument());
}

Long RecordingSubclasser::CallPreviousProc(Long uMsg, Long wParam, Long lParam) {
  const Ref<RecordingSubclasser> alive(this);
  const Long answer = mTarget->CallPreviousProc(uMsg, wParam, lParam);
  if (*mRecorder != nullptr) {
    (*mRecorder)->Record("previous", note::All(note::Win(mHwnd), uMsg, wParam, lParam), note::Plain(answer));
  }
  return answer;
}

void RecordingSubclasser::Unsubclass() {
  mTarget->Unsubclass();
  if (*mRecorder != nullptr) (*mRecorder)->Record("unsubclass", note::All(note::Win(mHwnd)), CallArgument());
}

void RecordingSubclasser::BeforeMessage(Long uMsg, Long wParam, Long lParam, Long& retValue, Boolean& Cancel) {
  const Ref<RecordingSubclasser> alive(this);  // its owner may drop it inside its own event
  if (mSink != nullptr) mSink->BeforeMessage(uMsg, wParam, lParam, retValue, Cancel);
  if (*mRecorder == nullptr) return;
  (*mRecorder)->Record("message", note::All(note::Win(mHwnd), uMsg, wParam, lParam, Cancel), note::Plain(retValue));
}

Ref<Subclasser> RecordingSubclassers::Create() { return New<RecordingSubclasser>(mTarget.Create(), mRecorder); }

}  // namespace strandline
