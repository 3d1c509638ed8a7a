#include "platform/desk/window_hooks.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace strandline::desk {

HookTable::HookTable(Procedure ownProcedure, std::function<bool(Long hwnd)> isWindow)
    : mOwnProcedure(std::move(ownProcedure)), mIsWindow(std::move(isWindow)) {}

Ref<Subclasser> HookTable::Create() { return New<WindowHook>(shared_from_this()); }

Long HookTable::Deliver(Long hwnd, Long message, Long wParam, Long lParam) {
  return DeliverBefore(std::numeric_limits<std::int64_t>::max(), hwnd, message, wParam, lParam);
}

Long HookTable::DeliverBefore(std::int64_t ordinal, Long hwnd, Long message, Long wParam, Long lParam) {
  while (WindowHook* hook = NewestBefore(hwnd, ordinal)) {
    const Ref<WindowHook> alive(hook);  // its owner may drop it inside its own event
    ordinal = hook->mOrdinal;
    if (hook->mSink == nullptr) continue;
    Long answer = 0;
    Boolean cancel = false;
    hook->mSink->BeforeMessage(message, wParam, lParam, answer, cancel);
    if (cancel) return answer;
  }
  return mOwnProcedure ? mOwnProcedure(hwnd, message, wParam, lParam) : 0;
}

void HookTable::Forget(Long hwnd) {
  std::erase_if(mHooks, [hwnd](WindowHook* hook) {
    if (hook->mHwnd != hwnd) return false;
    hook->mHwnd = 0;
    return true;
  });
}

void HookTable::Close() {
  for (WindowHook* hook : mHooks) hook->mHwnd = 0;
  mHooks.clear();
  mOwnProcedure = nullptr;
  mIsWindow = nullptr;
}

void HookTable::Add(WindowHook& hook) {
  hook.mOrdinal = ++mOrdinals;
  mHooks.push_back(&hook);
}

void HookTable::Remove(WindowHook& hook) { std::erase(mHooks, &hook); }

WindowHook* HookTable::NewestBefore(Long hwnd, std::int64_t ordinal) const {
  const auto found = std::find_if(mHooks.rbegin(), mHooks.rend(), [&](const WindowHook* hook) {
    return hook->mHwnd == hwnd && hook->mOrdinal < ordinal;
  });
  return found == mHooks.rend() ? nullptr : *found;
}

void WindowHook::Subclass(Long hwnd) {
  if (mOrdinal != 0 || !mTable->mIsWindow || !mTable->mIsWindow(hwnd)) return;
  mHwnd = hwnd;
  mTable->Add(*this);
}

Long WindowHook::CallPreviousProc(Long uMsg, Long wParam, Long lParam) {
  if (mHwnd == 0) return 0;
  const Ref<WindowHook> alive(this);
  return mTable->DeliverBefore(mOrdinal, mHwnd, uMsg, wParam, lParam);
}

void WindowHook::Unsubclass() {
  if (mHwnd == 0) return;
  mHwnd = 0;
  mTable->Remove(*this);
}

}  // namespace strandline::desk
