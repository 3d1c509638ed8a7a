// Another program that has the clipboard open, which another thread is as good as.

#include <thread>

#include "tests/contract/contract.h"
//
#include "platform/win32/windows_api.h"

namespace strandline::contract {
namespace {

// As long as this lives.
class Holder {
 public:
  Holder() {
    mThread = std::thread([this] { Hold(); });
    ::WaitForSingleObject(mHolds, INFINITE);
  }
  ~Holder() {
    ::SetEvent(mEnough);
    mThread.join();
    ::CloseHandle(mHolds);
    ::CloseHandle(mEnough);
  }
  Holder(const Holder&) = delete;
  Holder& operator=(const Holder&) = delete;

  bool Holds() const { return mOpened; }

 private:
  void Hold() {
    const HWND window = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    mOpened = ::OpenClipboard(window) != FALSE;
    ::SetEvent(mHolds);
    ::WaitForSingleObject(mEnough, INFINITE);
    if (mOpened) ::CloseClipboard();
    ::DestroyWindow(window);
  }

  const HANDLE mHolds = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
  const HANDLE mEnough = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
  bool mOpened = false;
  std::thread mThread;
};

class HeldClipboardContract : public Contract {
 protected:
  Clipboard& clipboard = *Services().clipboard;
};

TEST_F(HeldClipboardContract, ByAnother_CantBeOpenedUntilItLetsGo) {
  {
    const Holder holder;
    ASSERT_TRUE(holder.Holds());
    EXPECT_EQ(clipboard.OpenClipboard(0), 0);
    EXPECT_EQ(clipboard.CloseClipboard(), 0);
    Long raised = 0;
    try {
      clipboard.GetText(clipboardformat::kText);
    } catch (const Error& error) {
      raised = error.number;
    }
    EXPECT_EQ(raised, errors::kCannotOpenClipboard);
  }
  EXPECT_TRUE(Until([this] { return clipboard.OpenClipboard(0) != 0; }));
  EXPECT_NE(clipboard.CloseClipboard(), 0);
}

}  // namespace
}  // namespace strandline::contract
