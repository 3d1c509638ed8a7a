#include "wordhost/box_watcher.h"

#include <iterator>
#include <utility>
#include <vector>

#include "platform/win32/windows_api.h"

namespace strandline::wordhost {

namespace {

BoxWatcher::Handler theHandler;
HWND theBox = nullptr;  // the one that was answered last and is still there

String TextOf(HWND window) {
  std::vector<wchar_t> text(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1);
  const int length = ::GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
  return win32::FromWide(text.data(), static_cast<std::size_t>(length));
}

bool IsOfClass(HWND window, const wchar_t* name) {
  wchar_t found[32] = L"";
  ::GetClassNameW(window, found, static_cast<int>(std::size(found)));
  return ::lstrcmpiW(found, name) == 0;
}

// What a message box consists of: a text, perhaps an icon, and buttons with the answers as their numbers.
struct Parts {
  bool hasText = false;
  String text;
  HICON icon = nullptr;
  unsigned answers = 0;  // bit N: the button that answers N

  static BOOL CALLBACK Add(HWND child, LPARAM context) {
    auto& parts = *reinterpret_cast<Parts*>(context);
    if (IsOfClass(child, L"Button")) {
      if (!(::GetWindowLongW(child, GWL_STYLE) & WS_VISIBLE)) return TRUE;
      const int answer = ::GetDlgCtrlID(child);
      if (answer > 0 && answer < 32) parts.answers |= 1u << answer;
    } else if (IsOfClass(child, L"Static")) {
      const auto icon = reinterpret_cast<HICON>(::SendMessageW(child, STM_GETICON, 0, 0));
      if (icon) {
        parts.icon = icon;
      } else if (const String text = TextOf(child); !text.IsEmpty() || ::GetDlgCtrlID(child) == 0xFFFF) {
        parts.text = text;
        parts.hasText = true;
      }
    }
    return TRUE;
  }
};

constexpr unsigned Buttons(std::initializer_list<int> answers) {
  unsigned bits = 0;
  for (int answer : answers) bits |= 1u << answer;
  return bits;
}

// -1 where the buttons are those of no message box. A lone button may be numbered as a cancel, so that Escape works.
Long ButtonStyle(unsigned answers) {
  constexpr std::pair<unsigned, Long> kStyles[] = {
      {Buttons({IDOK}), MB_OK},
      {Buttons({IDCANCEL}), MB_OK},
      {Buttons({IDOK, IDCANCEL}), MB_OKCANCEL},
      {Buttons({IDABORT, IDRETRY, IDIGNORE}), MB_ABORTRETRYIGNORE},
      {Buttons({IDYES, IDNO, IDCANCEL}), MB_YESNOCANCEL},
      {Buttons({IDYES, IDNO}), MB_YESNO},
      {Buttons({IDRETRY, IDCANCEL}), MB_RETRYCANCEL},
  };
  for (const auto& [bits, style] : kStyles) {
    if (bits == answers) return style;
  }
  return -1;
}

// The system gives everybody the same icons.
Long IconStyle(HICON icon) {
  const std::pair<LPCWSTR, Long> kIcons[] = {
      {reinterpret_cast<LPCWSTR>(IDI_HAND), MB_ICONHAND},
      {reinterpret_cast<LPCWSTR>(IDI_QUESTION), MB_ICONQUESTION},
      {reinterpret_cast<LPCWSTR>(IDI_EXCLAMATION), MB_ICONEXCLAMATION},
      {reinterpret_cast<LPCWSTR>(IDI_ASTERISK), MB_ICONASTERISK},
  };
  for (const auto& [name, style] : kIcons) {
    if (icon && icon == ::LoadIconW(nullptr, name)) return style;
  }
  return 0;
}

void Answer(HWND box) {
  Parts parts;
  ::EnumChildWindows(box, &Parts::Add, reinterpret_cast<LPARAM>(&parts));
  const Long buttons = ButtonStyle(parts.answers);
  if (buttons < 0 || !parts.hasText) return;
  theBox = box;
  const String title = TextOf(box);
  const HWND owner = ::GetWindow(box, GW_OWNER);
  const bool isOwners = title.IsEmpty() || (owner && title == TextOf(owner));
  const Long answer = theHandler(parts.text, buttons | IconStyle(parts.icon), isOwners ? nullptr : &title);
  ::EndDialog(box, answer);
}

LRESULT CALLBACK OnWindowEvent(int code, WPARAM wParam, LPARAM lParam) {
  const auto window = reinterpret_cast<HWND>(wParam);
  if (code == HCBT_ACTIVATE && window != theBox && theHandler && IsOfClass(window, L"#32770")) {
    try {
      Answer(window);
    } catch (...) {
      ::EndDialog(window, IDCANCEL);
    }
  }
  if (code == HCBT_DESTROYWND && window == theBox) theBox = nullptr;
  return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

BoxWatcher::BoxWatcher(Handler handler) {
  theHandler = std::move(handler);
  mHook = ::SetWindowsHookExW(WH_CBT, &OnWindowEvent, nullptr, ::GetCurrentThreadId());
}

BoxWatcher::~BoxWatcher() {
  ::UnhookWindowsHookEx(static_cast<HHOOK>(mHook));
  theHandler = nullptr;
}

}  // namespace strandline::wordhost
