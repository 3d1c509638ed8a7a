#pragma once

// The hooks on windows: per window a chain, the newest asked first, the window's own procedure last.

#include <functional>
#include <memory>
#include <vector>

#include "platform/subclasser.h"

namespace strandline::desk {

class WindowHook;

// Shared with the hooks, since a hook may be let go after the window system.
class HookTable : public std::enable_shared_from_this<HookTable> {
 public:
  using Procedure = std::function<Long(Long hwnd, Long message, Long wParam, Long lParam)>;

  // What comes after the last hook, and which windows can be hooked.
  HookTable(Procedure ownProcedure, std::function<bool(Long hwnd)> isWindow);

  Ref<Subclasser> Create();
  // Through all hooks of the window, to its own procedure.
  Long Deliver(Long hwnd, Long message, Long wParam, Long lParam);
  // The window is gone; its hooks do nothing from now on.
  void Forget(Long hwnd);
  // The window system is gone.
  void Close();
  std::size_t Count() const { return mHooks.size(); }

 private:
  friend class WindowHook;

  void Add(WindowHook& hook);
  void Remove(WindowHook& hook);
  // A message that is on its way goes down by ordinal: hooks put on meanwhile don't get it, and taking one off, be it
  // the one that is being asked, doesn't lose the way.
  WindowHook* NewestBefore(Long hwnd, std::int64_t ordinal) const;
  Long DeliverBefore(std::int64_t ordinal, Long hwnd, Long message, Long wParam, Long lParam);

  Procedure mOwnProcedure;
  std::function<bool(Long)> mIsWindow;
  std::vector<WindowHook*> mHooks;  // in the order of their ordinals
  std::int64_t mOrdinals = 0;
};

class WindowHook final : public Subclasser {
 public:
  explicit WindowHook(std::shared_ptr<HookTable> table) : mTable(std::move(table)) {}

  void SetSink(MessageSink* sink) override { mSink = sink; }
  // A second call, or one for what is no window, does nothing.
  void Subclass(Long hwnd) override;
  // What comes after this hook; 0 when it isn't on a window.
  Long CallPreviousProc(Long uMsg, Long wParam, Long lParam) override;
  void Unsubclass() override;

 protected:
  void Terminated() override { Unsubclass(); }

 private:
  friend class HookTable;

  const std::shared_ptr<HookTable> mTable;
  MessageSink* mSink = nullptr;
  Long mHwnd = 0;  // 0 unless it is on a window
  std::int64_t mOrdinal = 0;
};

}  // namespace strandline::desk
