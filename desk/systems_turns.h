#pragma once

// Tells a list of calls when the desk has a window of the bar painted or fires one of its timers: the hooks that the
// library gets are wrapped once more.

#include "platform/subclasser.h"
#include "play/call_list.h"

namespace strandline::deskprogram {

class SystemsTurns final : public Subclassers {
 public:
  // Both outlive this, and the hooks that it makes.
  SystemsTurns(Subclassers& target, play::CallList& calls) : mTarget(target), mCalls(calls) {}
  Ref<Subclasser> Create() override;

 private:
  Subclassers& mTarget;
  play::CallList& mCalls;
};

}  // namespace strandline::deskprogram
