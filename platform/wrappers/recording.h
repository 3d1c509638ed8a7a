#pragma once

// Wrappers that tell a recorder of every call. Without a recorder they hand calls on. The recorder outlives its being
// set.

#include <memory>
#include <utility>

#include "platform/wrappers/call_recorder.h"
#include "platform/wrappers/forwarding.h"

namespace strandline {

template <class Interface>
class Recording : public Forwarding<Interface> {
 public:
  explicit Recording(Interface& target, CallRecorder* recorder = nullptr)
      : Forwarding<Interface>(target), mRecorder(recorder) {}

  void SetRecorder(CallRecorder* recorder) { mRecorder = recorder; }

 protected:
  // The recorder is asked for after the call: it may have come or gone meanwhile.
  template <class Call, class NoteResult, class NoteArguments>
  auto Noted(std::string_view name, Call call, NoteResult noteResult, NoteArguments noteArguments) {
    if constexpr (std::is_void_v<decltype(call())>) {
      call();
      if (mRecorder != nullptr) mRecorder->Record(name, noteArguments(), CallArgument());
    } else {
      auto result = call();
      if (mRecorder != nullptr) mRecorder->Record(name, noteArguments(), noteResult(result));
      return result;
    }
  }

  CallRecorder* mRecorder;
};

#define OPERATION(kind, Result, failure, Name, hint, parameters, arguments, noted)                                  \
  Result Name parameters override {                                                                                 \
    if (mRecorder == nullptr) return mTarget.Name arguments;                                                        \
    using namespace note;                                                                                           \
    return Noted(                                                                                                   \
        #Name, [&]() -> Result { return mTarget.Name arguments; }, [](const auto& result) { return hint(result); }, \
        [&] { return All noted; });                                                                                 \
  }

class RecordingWindows : public Recording<Windows> {
 public:
  using Recording::Recording;
#include "platform/wrappers/windows_operations.inc"
};

class RecordingGraphics : public Recording<Graphics> {
 public:
  using Recording::Recording;
#include "platform/wrappers/graphics_operations.inc"
};

class RecordingPictures : public Recording<Pictures> {
 public:
  using Recording::Recording;
#include "platform/wrappers/pictures_operations.inc"
};

class RecordingModules : public Recording<Modules> {
 public:
  using Recording::Recording;
#include "platform/wrappers/modules_operations.inc"
};

class RecordingComponents : public Recording<Components> {
 public:
  using Recording::Recording;
#include "platform/wrappers/components_operations.inc"
};

class RecordingRunTime : public Recording<RunTime> {
 public:
  using Recording::Recording;
#include "platform/wrappers/runtime_operations.inc"
};

class RecordingClipboard : public Recording<Clipboard> {
 public:
  using Recording::Recording;
#include "platform/wrappers/clipboard_operations.inc"
};

#undef OPERATION

// Records the hook's steps as "subclass" (window), "unsubclass" (window), "previous" (window, message, wParam, lParam),
// and each message that came through it, when it has been handled, as "message" (window, message, wParam, lParam,
// cancel) with the answer as result.
class RecordingSubclasser final : public ForwardingSubclasser, private MessageSink {
 public:
  // The hooks of one maker share its recorder, which they may outlive.
  using SharedRecorder = std::shared_ptr<CallRecorder*>;
  RecordingSubclasser(Ref<Subclasser> target, SharedRecorder recorder);

  void SetSink(MessageSink* sink) override;
  void Subclass(Long hwnd) override;
  Long CallPreviousProc(Long uMsg, Long wParam, Long lParam) override;
  void Unsubclass() override;

 protected:
  void Terminated() override { mTarget->SetSink(nullptr); }

 private:
  void BeforeMessage(Long uMsg, Long wParam, Long lParam, Long& retValue, Boolean& Cancel) override;

  const SharedRecorder mRecorder;
  MessageSink* mSink = nullptr;
  Long mHwnd = 0;
};

class RecordingSubclassers final : public Forwarding<Subclassers> {
 public:
  explicit RecordingSubclassers(Subclassers& target, CallRecorder* recorder = nullptr)
      : Forwarding(target), mRecorder(std::make_shared<CallRecorder*>(recorder)) {}
  ~RecordingSubclassers() override { *mRecorder = nullptr; }

  void SetRecorder(CallRecorder* recorder) { *mRecorder = recorder; }
  Ref<Subclasser> Create() override;

 private:
  const RecordingSubclasser::SharedRecorder mRecorder;
};

}  // namespace strandline
