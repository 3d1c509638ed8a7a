#pragma once

// Wrappers that let a call fail when it is armed: it isn't handed on and the failure value of its service comes back,
// results by reference stay as they were. The faults outlive the wrappers and the hooks that they make.

#include "platform/wrappers/faults.h"
#include "platform/wrappers/forwarding.h"

namespace strandline {

template <class Interface>
class Failing : public Forwarding<Interface> {
 public:
  Failing(Interface& target, Faults& faults) : Forwarding<Interface>(target), mFaults(faults) {}

 protected:
  // E_FAIL
  static constexpr Long kOleFailure = -2147467259;

  // A component that can't be created is told by an error.
  template <class Created>
  static Created RefuseToCreate() {
    Raise(errors::kCannotCreateComponent);
  }

  // So is a text that isn't what it should be.
  template <class Value>
  static Value RefuseText() {
    Raise(errors::kTypeMismatch);
  }

  // So is a clipboard that its own object can't open.
  template <class Answer>
  static Answer RefuseToOpen() {
    RaiseCannotOpenClipboard();
  }

  Faults& mFaults;
};

#define OPERATION(kind, Result, failure, Name, hint, parameters, arguments, noted) \
  Result Name parameters override {                                                \
    if (mFaults.Take(#Name)) return failure;                                       \
    return mTarget.Name arguments;                                                 \
  }

class FailingWindows : public Failing<Windows> {
 public:
  using Failing::Failing;
#include "platform/wrappers/windows_operations.inc"
};

class FailingGraphics : public Failing<Graphics> {
 public:
  using Failing::Failing;
#include "platform/wrappers/graphics_operations.inc"
};

class FailingPictures : public Failing<Pictures> {
 public:
  using Failing::Failing;
#include "platform/wrappers/pictures_operations.inc"
};

class FailingModules : public Failing<Modules> {
 public:
  using Failing::Failing;
#include "platform/wrappers/modules_operations.inc"
};

class FailingComponents : public Failing<Components> {
 public:
  using Failing::Failing;
#include "platform/wrappers/components_operations.inc"
};

class FailingRunTime : public Failing<RunTime> {
 public:
  using Failing::Failing;
#include "platform/wrappers/runtime_operations.inc"
};

class FailingClipboard : public Failing<Clipboard> {
 public:
  using Failing::Failing;
#include "platform/wrappers/clipboard_operations.inc"
};

#undef OPERATION

class FailingSubclasser : public ForwardingSubclasser {
 public:
  FailingSubclasser(Ref<Subclasser> target, Faults& faults)
      : ForwardingSubclasser(std::move(target)), mFaults(faults) {}

  void Subclass(Long hwnd) override {
    if (!mFaults.Take("subclass")) mTarget->Subclass(hwnd);
  }
  Long CallPreviousProc(Long uMsg, Long wParam, Long lParam) override {
    if (mFaults.Take("previous")) return 0;
    return mTarget->CallPreviousProc(uMsg, wParam, lParam);
  }
  void Unsubclass() override {
    if (!mFaults.Take("unsubclass")) mTarget->Unsubclass();
  }

 private:
  Faults& mFaults;
};

class FailingSubclassers : public Failing<Subclassers> {
 public:
  using Failing::Failing;
  Ref<Subclasser> Create() override {
    if (mFaults.Take("createsubclasser")) return RefuseToCreate<Ref<Subclasser>>();
    return New<FailingSubclasser>(mTarget.Create(), mFaults);
  }
};

}  // namespace strandline
