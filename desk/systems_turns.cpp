#include "desk/systems_turns.h"

#include <optional>

#include "platform/wrappers/forwarding.h"

namespace strandline::deskprogram {

namespace {

class TurningSubclasser final : public ForwardingSubclasser, private MessageSink {
 public:
  TurningSubclasser(Ref<Subclasser> target, play::CallList& calls)
      : ForwardingSubclasser(std::move(target)), mCalls(calls) {}

  void SetSink(MessageSink* sink) override {
    mSink = sink;
    mTarget->SetSink(sink == nullptr ? nullptr : this);
  }

 protected:
  void Terminated() override { mTarget->SetSink(nullptr); }

 private:
  void BeforeMessage(Long uMsg, Long wParam, Long lParam, Long& retValue, Boolean& Cancel) override {
    const Ref<TurningSubclasser> alive(this);  // its owner may drop it inside its own event
    std::optional<play::CallList::SystemsTurn> turn;
    if (play::CallList::IsSystems(uMsg)) turn.emplace(mCalls);
    if (mSink != nullptr) mSink->BeforeMessage(uMsg, wParam, lParam, retValue, Cancel);
  }

  play::CallList& mCalls;
  MessageSink* mSink = nullptr;
};

}  // namespace

Ref<Subclasser> SystemsTurns::Create() { return New<TurningSubclasser>(mTarget.Create(), mCalls); }

}  // namespace strandline::deskprogram
