#include "wordhost/clipboard_filler.h"

#include <algorithm>
#include <future>
#include <utility>
#include <vector>

#include "platform/win32/windows_api.h"

namespace strandline::wordhost {

namespace {

constexpr int kTries = 50;
constexpr DWORD kBetweenTries = 20;  // milliseconds

// Who has no window can't put anything there.
class Owner {
 public:
  Owner() : mWindow(::CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr)) {}
  ~Owner() { ::DestroyWindow(mWindow); }
  Owner(const Owner&) = delete;
  Owner& operator=(const Owner&) = delete;
  HWND Window() const { return mWindow; }

 private:
  const HWND mWindow;
};

// Somebody else may have it open for a moment.
bool OpenPatiently(const Owner& owner) {
  for (int i = 0; i < kTries; ++i) {
    if (::OpenClipboard(owner.Window())) return true;
    ::Sleep(kBetweenTries);
  }
  return false;
}

// In the system's single-byte set, ended by a NUL.
std::vector<char> BytesOf(const String& text) {
  const int length = static_cast<int>(text.Length()) + 1;
  std::vector<char> bytes(static_cast<std::size_t>(length) * 4);
  const int count = ::WideCharToMultiByte(CP_ACP, 0, win32::Wide(text), length, bytes.data(),
                                          static_cast<int>(bytes.size()), nullptr, nullptr);
  bytes.resize(static_cast<std::size_t>(std::max(count, 0)));
  return bytes;
}

bool Put(UINT format, const String& text) {
  const std::vector<char> bytes = BytesOf(text);
  const HGLOBAL block = ::GlobalAlloc(GMEM_MOVEABLE, bytes.size());
  if (!block) return false;
  std::copy(bytes.begin(), bytes.end(), static_cast<char*>(::GlobalLock(block)));
  ::GlobalUnlock(block);
  if (::SetClipboardData(format, block)) return true;
  ::GlobalFree(block);
  return false;
}

}  // namespace

ClipboardFiller::~ClipboardFiller() {
  if (!mHolder.joinable()) return;
  ::SetEvent(mEnough);
  mHolder.join();
  ::CloseHandle(mEnough);
}

std::string ClipboardFiller::Fill(const play::SceneSettings& settings) {
  const Owner owner;
  if (!OpenPatiently(owner)) return "the clipboard is held by another program; close that";
  bool isFilled = ::EmptyClipboard() != FALSE;
  if (settings.clipboardText) isFilled = Put(CF_TEXT, *settings.clipboardText) && isFilled;
  if (settings.clipboardRichText) {
    isFilled = Put(::RegisterClipboardFormatW(L"Rich Text Format"), *settings.clipboardRichText) && isFilled;
  }
  ::CloseClipboard();
  if (settings.isClipboardHeld) Hold();
  return isFilled ? "" : "the clipboard can't be filled";
}

void ClipboardFiller::Hold() {
  mEnough = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
  std::promise<void> held;
  std::future<void> isHeld = held.get_future();
  mHolder = std::thread([enough = mEnough, held = std::move(held)]() mutable {
    const Owner owner;
    const bool opened = OpenPatiently(owner);
    held.set_value();
    ::WaitForSingleObject(enough, INFINITE);
    if (opened) ::CloseClipboard();
  });
  isHeld.wait();
}

}  // namespace strandline::wordhost
