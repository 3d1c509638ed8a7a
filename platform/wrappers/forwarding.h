#pragma once

// Wrappers that hand every call on: the base for one that does something of its own with a few of them. They don't own
// what they wrap.
//
// The operations stand in one table per interface; an operation that a table lacks leaves its wrapper abstract, which
// the assertions at the end don't let through.

#include <type_traits>

#include "platform/platform.h"

namespace strandline {

template <class Interface>
class Forwarding : public Interface {
 public:
  explicit Forwarding(Interface& target) : mTarget(target) {}

 protected:
  Interface& mTarget;
};

#define OPERATION(kind, Result, failure, Name, hint, parameters, arguments, noted) \
  Result Name parameters override { return mTarget.Name arguments; }

class ForwardingWindows : public Forwarding<Windows> {
 public:
  using Forwarding::Forwarding;
#include "platform/wrappers/windows_operations.inc"
};

class ForwardingGraphics : public Forwarding<Graphics> {
 public:
  using Forwarding::Forwarding;
#include "platform/wrappers/graphics_operations.inc"
};

class ForwardingPictures : public Forwarding<Pictures> {
 public:
  using Forwarding::Forwarding;
#include "platform/wrappers/pictures_operations.inc"
};

class ForwardingModules : public Forwarding<Modules> {
 public:
  using Forwarding::Forwarding;
#include "platform/wrappers/modules_operations.inc"
};

class ForwardingComponents : public Forwarding<Components> {
 public:
  using Forwarding::Forwarding;
#include "platform/wrappers/components_operations.inc"
};

class ForwardingRunTime : public Forwarding<RunTime> {
 public:
  using Forwarding::Forwarding;
#include "platform/wrappers/runtime_operations.inc"
};

class ForwardingClipboard : public Forwarding<Clipboard> {
 public:
  using Forwarding::Forwarding;
#include "platform/wrappers/clipboard_operations.inc"
};

#undef OPERATION

class ForwardingSubclassers : public Forwarding<Subclassers> {
 public:
  using Forwarding::Forwarding;
  Ref<Subclasser> Create() override { return mTarget.Create(); }
};

// A hook around a hook, which it holds.
class ForwardingSubclasser : public Subclasser {
 public:
  explicit ForwardingSubclasser(Ref<Subclasser> target) : mTarget(std::move(target)) {}

  void SetSink(MessageSink* sink) override { mTarget->SetSink(sink); }
  void Subclass(Long hwnd) override { mTarget->Subclass(hwnd); }
  Long CallPreviousProc(Long uMsg, Long wParam, Long lParam) override {
    return mTarget->CallPreviousProc(uMsg, wParam, lParam);
  }
  void Unsubclass() override { mTarget->Unsubclass(); }

 protected:
  const Ref<Subclasser> mTarget;
};

static_assert(!std::is_abstract_v<ForwardingWindows> && !std::is_abstract_v<ForwardingGraphics> &&
              !std::is_abstract_v<ForwardingPictures> && !std::is_abstract_v<ForwardingModules> &&
              !std::is_abstract_v<ForwardingComponents> && !std::is_abstract_v<ForwardingRunTime> &&
              !std::is_abstract_v<ForwardingClipboard> && !std::is_abstract_v<ForwardingSubclassers> &&
              !std::is_abstract_v<ForwardingSubclasser>);

}  // namespace strandline
