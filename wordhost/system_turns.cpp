#include "wordhost/system_turns.h"

#include <iterator>

#include "platform/win32/windows_api.h"

namespace strandline::wordhost {

namespace {

constexpr UINT kCaught = WM_APP + 0x51;
constexpr const wchar_t* kClassName = L"StrandlineHostTurns";

SystemTurns* theTurns = nullptr;

bool IsTurn(HWND window, UINT message) {
  if (!play::CallList::IsSystems(static_cast<Long>(message))) return false;
  wchar_t name[32] = L"";
  ::GetClassNameW(window, name, static_cast<int>(std::size(name)));
  return ::lstrcmpW(name, L"MsoCommandBar") == 0;
}

}  // namespace

struct SystemTurns::Caught {
  MSG message;
};

struct SystemTurns::Hooks {
  static LRESULT CALLBACK OnGetMessage(int code, WPARAM wParam, LPARAM lParam) {
    auto& message = *reinterpret_cast<MSG*>(lParam);
    if (code == HC_ACTION && wParam == PM_REMOVE && theTurns && IsTurn(message.hwnd, message.message)) {
      const std::uintptr_t number = ++theTurns->mLastCaught;
      theTurns->mCaught[number] = {message};
      message.hwnd = static_cast<HWND>(theTurns->mWindow);
      message.message = kCaught;
      message.wParam = number;
      message.lParam = 0;
    }
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
  }

  static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != kCaught || !theTurns) return ::DefWindowProcW(window, message, wParam, lParam);
    const auto found = theTurns->mCaught.find(wParam);
    if (found == theTurns->mCaught.end()) return 0;
    const MSG caught = found->second.message;
    theTurns->mCaught.erase(found);
    const play::CallList::SystemsTurn turn(theTurns->mCalls);
    return ::DispatchMessageW(&caught);
  }

  static LRESULT CALLBACK OnSent(int code, WPARAM wParam, LPARAM lParam) {
    const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code == HC_ACTION && theTurns && IsTurn(sent.hwnd, sent.message))
      theTurns->mSent.emplace_back(theTurns->mCalls);
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
  }

  static LRESULT CALLBACK OnReturned(int code, WPARAM wParam, LPARAM lParam) {
    const auto& sent = *reinterpret_cast<const CWPRETSTRUCT*>(lParam);
    if (code == HC_ACTION && theTurns && !theTurns->mSent.empty() && IsTurn(sent.hwnd, sent.message)) {
      theTurns->mSent.pop_back();
    }
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
  }
};

SystemTurns::SystemTurns(play::CallList& calls) : mCalls(calls) {
  WNDCLASSW type{};
  type.lpfnWndProc = &Hooks::OnMessage;
  type.hInstance = ::GetModuleHandleW(nullptr);
  type.lpszClassName = kClassName;
  ::RegisterClassW(&type);
  mWindow = ::CreateWindowExW(0, kClassName, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, type.hInstance, nullptr);
  theTurns = this;
  const DWORD thread = ::GetCurrentThreadId();
  mHooks[0] = ::SetWindowsHookExW(WH_GETMESSAGE, &Hooks::OnGetMessage, nullptr, thread);
  mHooks[1] = ::SetWindowsHookExW(WH_CALLWNDPROC, &Hooks::OnSent, nullptr, thread);
  mHooks[2] = ::SetWindowsHookExW(WH_CALLWNDPROCRET, &Hooks::OnReturned, nullptr, thread);
}

SystemTurns::~SystemTurns() {
  theTurns = nullptr;
  for (void* hook : mHooks) ::UnhookWindowsHookEx(static_cast<HHOOK>(hook));
  ::DestroyWindow(static_cast<HWND>(mWindow));
}

}  // namespace strandline::wordhost
