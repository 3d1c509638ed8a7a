// The hook on windows that other programs hook too.

#include <gtest/gtest.h>

#include "platform/win32/comctl_hooks.h"
#include "platform/win32/win32_subclasser.h"
#include "platform/win32/windows_api.h"
#include "tests/win32/subclasser_sink.h"

namespace strandline::win32test {

namespace {

// Another program, which puts a procedure of its own over what the window has, or a hook on the system's chain.
class Neighbour {
 public:
  enum class Way { kProcedure, kChain, kSwallowing };  // of the last, a procedure that lets nothing unknown through

  Neighbour(const TestWindow& window, Way way) : mWindow(win32::ToHandle<HWND>(window.Hwnd())), mWay(way) {
    seen = 0;
    swallows = way == Way::kSwallowing;
    if (way == Way::kChain) {
      win32::ComctlHooks::Get().set(mWindow, &Neighbour::OnChain, 1, 0);
    } else {
      below = reinterpret_cast<WNDPROC>(
          ::SetWindowLongPtrW(mWindow, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Neighbour::OnMessage)));
    }
  }
  ~Neighbour() { Leave(); }
  Neighbour(const Neighbour&) = delete;
  Neighbour& operator=(const Neighbour&) = delete;

  void Leave() {
    if (mWay == Way::kChain) {
      win32::ComctlHooks::Get().remove(mWindow, &Neighbour::OnChain, 1);
    } else if (below) {
      ::SetWindowLongPtrW(mWindow, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(below));
      below = nullptr;
    }
  }

  static inline int seen = 0;

 private:
  static LRESULT CALLBACK OnMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    seen += message == kFirst;
    if (swallows && message >= kFirstRegistered) return 0;
    return ::CallWindowProcW(below, hwnd, message, wParam, lParam);
  }
  static LRESULT CALLBACK OnChain(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
    seen += message == kFirst;
    return win32::ComctlHooks::Get().passOn(hwnd, message, wParam, lParam);
  }

  static constexpr UINT kFirstRegistered = 0xC000;

  static inline WNDPROC below = nullptr;
  static inline bool swallows = false;
  HWND mWindow;
  Way mWay;
};

}  // namespace

TEST(Subclasser, ANeighboursProcedureOnTop_StaysWhenTheHookGoes) {
  Stage stage;
  TestWindow window;
  const Long before = win32::LiveHooks();
  int asked = 0;
  Sink sink([&](Long message, Long, Long, Long&, Boolean&) { asked += message == kFirst; });
  Ref<Subclasser> hook = Hooked(sink, window.Hwnd());
  Neighbour neighbour(window, Neighbour::Way::kProcedure);
  Send(window, kFirst);
  EXPECT_EQ(asked, 1);
  hook->Unsubclass();
  hook = nullptr;
  EXPECT_EQ(Send(window, kFirst), kFirst + 1000);
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(Neighbour::seen, 2);
  EXPECT_EQ(win32::LiveHooks(), before + 1);  // the window still calls in
  neighbour.Leave();
  Send(window, kFirst);
  EXPECT_EQ(win32::LiveHooks(), before);
  EXPECT_TRUE(window.HasOwnProcedure());
}

TEST(Subclasser, AWindowThatDiesUnderANeighbour_TakesTheForgottenHookAlong) {
  Stage stage;
  TestWindow window;
  const Long before = win32::LiveHooks();
  Sink sink([](Long, Long, Long, Long&, Boolean&) {});
  Ref<Subclasser> hook = Hooked(sink, window.Hwnd());
  const Neighbour neighbour(window, Neighbour::Way::kProcedure);
  hook = nullptr;
  EXPECT_EQ(win32::LiveHooks(), before + 1);
  window.Destroy();
  EXPECT_EQ(win32::LiveHooks(), before);
}

TEST(Subclasser, ANeighbourOnTheChain_StaysWhenTheHookGoes) {
  for (const bool hookGoesFirst : {true, false}) {
    Stage stage;
    TestWindow window;
    const Long before = win32::LiveHooks();
    Sink sink([](Long, Long, Long, Long&, Boolean&) {});
    Ref<Subclasser> hook = Hooked(sink, window.Hwnd());
    Neighbour neighbour(window, Neighbour::Way::kChain);
    EXPECT_EQ(Send(window, kFirst), kFirst + 1000);
    if (hookGoesFirst) {
      hook = nullptr;
      EXPECT_EQ(win32::LiveHooks(), before);
      EXPECT_EQ(Send(window, kFirst), kFirst + 1000);
      neighbour.Leave();
    } else {
      neighbour.Leave();
      EXPECT_EQ(Send(window, kFirst), kFirst + 1000);
      hook = nullptr;
    }
    EXPECT_GE(Neighbour::seen, 1);
    EXPECT_TRUE(window.HasOwnProcedure());
  }
}

TEST(Subclasser, DroppedInItsEventUnderANeighbour_TheMessageStillReachesTheWindow) {
  for (const auto way : {Neighbour::Way::kProcedure, Neighbour::Way::kChain}) {
    Stage stage;
    TestWindow window;
    Ref<Subclasser> hook;
    Sink sink([&](Long message, Long, Long, Long&, Boolean&) {
      if (message == kFirst) hook = nullptr;
    });
    hook = Hooked(sink, window.Hwnd());
    Neighbour neighbour(window, way);
    EXPECT_EQ(Send(window, kFirst), kFirst + 1000);
    EXPECT_EQ(Send(window, kFirst), kFirst + 1000);
    EXPECT_EQ(Neighbour::seen, 2);
    neighbour.Leave();
    Send(window, kSecond);
    EXPECT_TRUE(window.HasOwnProcedure());
  }
}

TEST(Subclasser, PutOnUnderANeighbourThatThenGoes_LeavesLikeAnyOther) {
  for (const bool wide : {true, false}) {
    Stage stage;
    TestWindow window(u"Smoke", wide);
    const Long before = win32::LiveHooks();
    Sink sink([](Long, Long, Long, Long&, Boolean&) {});
    Ref<Subclasser> first = Hooked(sink, window.Hwnd());
    Neighbour neighbour(window, Neighbour::Way::kProcedure);
    first = nullptr;
    EXPECT_EQ(win32::LiveHooks(), before + 1);
    Ref<Subclasser> second = Hooked(sink, window.Hwnd());
    neighbour.Leave();
    second = nullptr;
    EXPECT_EQ(win32::LiveHooks(), before + 1);  // the first goes with the next message
    EXPECT_EQ(Send(window, kFirst), kFirst + 1000);
    EXPECT_EQ(win32::LiveHooks(), before);
    EXPECT_TRUE(window.HasOwnProcedure());
  }
}

TEST(Subclasser, PutOnAChainOfAnothersUnderANeighbour_LeavesWhenBothHaveGone) {
  for (const bool hookGoesFirst : {false, true}) {
    Stage stage;
    TestWindow window;
    const Long before = win32::LiveHooks();
    Sink sink([](Long, Long, Long, Long&, Boolean&) {});
    Neighbour onChain(window, Neighbour::Way::kChain);
    Neighbour onTop(window, Neighbour::Way::kProcedure);
    Ref<Subclasser> hook = Hooked(sink, window.Hwnd());
    onChain.Leave();
    if (hookGoesFirst) hook = nullptr;
    EXPECT_EQ(win32::LiveHooks(), before + 1);
    onTop.Leave();
    hook = nullptr;
    EXPECT_EQ(Send(window, kFirst), kFirst + 1000);
    EXPECT_EQ(win32::LiveHooks(), before);
    EXPECT_TRUE(window.HasOwnProcedure());
  }
}

TEST(Subclasser, ANeighbourThatSwallowsUnknownMessages_DoesntKeepCallPreviousProcFromTheWindow) {
  Stage stage;
  TestWindow window;
  Ref<Subclasser> hook;
  Long own = 0;
  Sink sink([&](Long message, Long wParam, Long lParam, Long& answer, Boolean& cancel) {
    if (message != kFirst) return;
    own = hook->CallPreviousProc(message, wParam, lParam);
    answer = own + 1;
    cancel = true;
  });
  hook = Hooked(sink, window.Hwnd());
  const Neighbour neighbour(window, Neighbour::Way::kSwallowing);
  EXPECT_EQ(Send(window, kFirst), kFirst + 1001);
  EXPECT_EQ(own, kFirst + 1000);
  EXPECT_EQ(TestWindow::reached.size(), 1u);
  EXPECT_EQ(hook->CallPreviousProc(kFirst, 1, 2), 0);  // there is no way to the window from outside its messages
  EXPECT_EQ(Send(window, kSecond), kSecond + 1000);
}

}  // namespace strandline::win32test
