#pragma once

// The hook on a window: every message of the window comes to the sink before the window's own procedure. One object
// serves one subclassing; it isn't used again after Unsubclass. It may be dropped inside its own event.

#include "platform/error.h"
#include "platform/ref.h"
#include "platform/values.h"

namespace strandline {

class MessageSink {
 public:
  // `Cancel` comes in False; left so, the message goes on to the window's own procedure. Set True, `retValue` is the
  // answer.
  virtual void BeforeMessage(Long uMsg, Long wParam, Long lParam, Long& retValue, Boolean& Cancel) = 0;

 protected:
  ~MessageSink() = default;
};

class Subclasser : public RefCounted {
 public:
  // The sink is cut by its owner, with null, before it goes.
  virtual void SetSink(MessageSink* sink) = 0;
  virtual void Subclass(Long hwnd) = 0;
  // Calls the window's own procedure now and gives its result.
  virtual Long CallPreviousProc(Long uMsg, Long wParam, Long lParam) = 0;
  // The window's own procedure is back in place.
  virtual void Unsubclass() = 0;
};

// The hook, which must be there: Nothing raises 91.
inline Subclasser& Required(const Ref<Subclasser>& hook) {
  if (!hook) Raise(errors::kObjectNotSet);
  return *hook;
}

class Subclassers {
 public:
  virtual ~Subclassers() = default;
  virtual Ref<Subclasser> Create() = 0;
};

}  // namespace strandline
