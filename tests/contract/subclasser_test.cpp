// The hook on a window.

#include <algorithm>
#include <optional>

#include "tests/contract/window_contract.h"

namespace strandline::contract {
namespace {

constexpr Long kFirst = kOwnMessage;
constexpr Long kSecond = kOwnMessage + 1;

class Sink final : public MessageSink {
 public:
  using Handler = std::function<void(Long message, Long wParam, Long lParam, Long& answer, Boolean& cancel)>;

  explicit Sink(Handler asked) : mAsked(std::move(asked)) {}
  void BeforeMessage(Long uMsg, Long wParam, Long lParam, Long& retValue, Boolean& Cancel) override {
    mAsked(uMsg, wParam, lParam, retValue, Cancel);
  }

 private:
  Handler mAsked;
};

class SubclasserContract : public WindowContract {
 protected:
  // The window's own answer to a message of its own is that and a thousand.
  SubclasserContract() {
    handler = [this](Long hwnd, Long message, Long wParam, Long lParam) {
      return message >= kOwnMessage && message < 0xC000 ? message + 1000
                                                        : Host().DefaultProcedure(hwnd, message, wParam, lParam);
    };
  }
  Ref<Subclasser> Hooked(Sink& sink, Long hwnd) {
    Ref<Subclasser> hook = subclassers.Create();
    hook->SetSink(&sink);
    hook->Subclass(hwnd);
    return hook;
  }
  Long Send(Long hwnd, Long message) { return windows.SendMessageA(hwnd, message, 3, 4); }
};

TEST_F(SubclasserContract, TheSink_IsAskedBeforeTheWindow) {
  const Long hwnd = Open(u"one");
  Settle();
  std::optional<std::size_t> reachedBefore;
  Long parameters = 0;
  Sink sink([&](Long message, Long wParam, Long lParam, Long&, Boolean& cancel) {
    if (message != kFirst) return;
    EXPECT_FALSE(cancel);
    reachedBefore = log.size();
    parameters = wParam * 10 + lParam;
  });
  const Ref<Subclasser> hook = Hooked(sink, hwnd);
  EXPECT_EQ(Send(hwnd, kFirst), kFirst + 1000);
  EXPECT_EQ(reachedBefore, 0u);
  EXPECT_EQ(log, (Log{"one 1033"}));
  EXPECT_EQ(parameters, 34);
  hook->Unsubclass();
  reachedBefore.reset();
  EXPECT_EQ(Send(hwnd, kFirst), kFirst + 1000);
  EXPECT_FALSE(reachedBefore);
}

TEST_F(SubclasserContract, PostedMessagesPaintsAndTicks_GoByTheSinkToo) {
  const Long hwnd = Open(u"one");
  Settle();
  std::vector<Long> asked;
  Sink sink([&](Long message, Long, Long, Long&, Boolean&) { asked.push_back(message); });
  const Ref<Subclasser> hook = Hooked(sink, hwnd);
  Host().Post(hwnd, kFirst, 0, 0);
  Host().InvalidateWindow(hwnd);
  windows.SetTimer(hwnd, 3, 10, nullptr);
  EXPECT_TRUE(Until([&] { return std::count(asked.begin(), asked.end(), wm::kTimer) > 0; }));
  windows.KillTimer(hwnd, 3);
  EXPECT_EQ(std::count(asked.begin(), asked.end(), kFirst), 1);
  EXPECT_EQ(std::count(asked.begin(), asked.end(), wm::kPaint), 1);
}

TEST_F(SubclasserContract, ACancelledMessage_StaysWithTheSink) {
  const Long hwnd = Open(u"one");
  Settle();
  Sink sink([&](Long message, Long, Long, Long& answer, Boolean& cancel) {
    cancel = message == kFirst;
    answer = -7;
  });
  const Ref<Subclasser> hook = Hooked(sink, hwnd);
  EXPECT_EQ(Send(hwnd, kFirst), -7);
  EXPECT_TRUE(log.empty());
  EXPECT_EQ(Send(hwnd, kSecond), kSecond + 1000);
}

TEST_F(SubclasserContract, CallPreviousProc_GivesTheWindowsOwnAnswer) {
  const Long hwnd = Open(u"one");
  Settle();
  Ref<Subclasser> hook;
  Long own = 0;
  Sink sink([&](Long message, Long wParam, Long lParam, Long& answer, Boolean& cancel) {
    if (message != kFirst) return;
    own = hook->CallPreviousProc(message, wParam, lParam);
    answer = own + 1;
    cancel = true;
  });
  hook = Hooked(sink, hwnd);
  EXPECT_EQ(Send(hwnd, kFirst), kFirst + 1001);
  EXPECT_EQ(own, kFirst + 1000);
  EXPECT_EQ(log.size(), 1u);
  EXPECT_EQ(hook->CallPreviousProc(kSecond, 0, 0), kSecond + 1000);
}

TEST_F(SubclasserContract, DroppedInsideItsOwnEvent_TheMessageStillReachesTheWindow) {
  const Long hwnd = Open(u"one");
  Ref<Subclasser> hook;
  int asked = 0;
  Sink sink([&](Long message, Long, Long, Long&, Boolean&) {
    if (message != kFirst) return;
    ++asked;
    hook->Unsubclass();
    hook->SetSink(nullptr);
    hook = nullptr;
  });
  hook = Hooked(sink, hwnd);
  EXPECT_EQ(Send(hwnd, kFirst), kFirst + 1000);
  EXPECT_EQ(Send(hwnd, kFirst), kFirst + 1000);
  EXPECT_EQ(asked, 1);
}

TEST_F(SubclasserContract, DroppedWithoutUnsubclass_LetsTheWindowGo) {
  const Long hwnd = Open(u"one");
  int asked = 0;
  Sink sink([&](Long, Long, Long, Long&, Boolean&) { ++asked; });
  { const Ref<Subclasser> hook = Hooked(sink, hwnd); }
  EXPECT_EQ(Send(hwnd, kFirst), kFirst + 1000);
  EXPECT_EQ(asked, 0);
}

TEST_F(SubclasserContract, WithoutASink_MessagesPass) {
  const Long hwnd = Open(u"one");
  int asked = 0;
  Sink sink([&](Long, Long, Long, Long&, Boolean&) { ++asked; });
  const Ref<Subclasser> hook = Hooked(sink, hwnd);
  hook->SetSink(nullptr);
  EXPECT_EQ(Send(hwnd, kFirst), kFirst + 1000);
  EXPECT_EQ(asked, 0);
}

TEST_F(SubclasserContract, TheWindowDiesFirst_TheHookHearsOfItAndIsEmpty) {
  const Long hwnd = Open(u"one");
  bool heard = false;
  Sink sink([&](Long message, Long, Long, Long&, Boolean&) { heard = heard || message == kWmDestroy; });
  const Ref<Subclasser> hook = Hooked(sink, hwnd);
  Host().DestroyWindow(hwnd);
  EXPECT_TRUE(heard);
  EXPECT_EQ(hook->CallPreviousProc(kFirst, 0, 0), 0);
  hook->Unsubclass();
}

TEST_F(SubclasserContract, TheWindowDiesInsideTheEvent) {
  const Long hwnd = Open(u"one");
  Ref<Subclasser> hook;
  Sink sink([&](Long message, Long, Long, Long&, Boolean&) {
    if (message != kFirst) return;
    Host().DestroyWindow(hwnd);
    hook = nullptr;
  });
  hook = Hooked(sink, hwnd);
  Send(hwnd, kFirst);
  EXPECT_FALSE(hook);
  EXPECT_EQ(Send(hwnd, kFirst), 0);
}

TEST_F(SubclasserContract, OfTwoHooks_TheNewerIsAskedFirstAndTheOlderMayGoFirst) {
  const Long hwnd = Open(u"one");
  std::vector<int> asked;
  const auto note = [&asked](int who) {
    return [&asked, who](Long message, Long, Long, Long&, Boolean&) {
      if (message == kFirst) asked.push_back(who);
    };
  };
  Sink olderSink(note(1));
  Sink newerSink(note(2));
  const Ref<Subclasser> older = Hooked(olderSink, hwnd);
  const Ref<Subclasser> newer = Hooked(newerSink, hwnd);
  Send(hwnd, kFirst);
  EXPECT_EQ(asked, (std::vector<int>{2, 1}));
  older->Unsubclass();
  Send(hwnd, kFirst);
  EXPECT_EQ(asked, (std::vector<int>{2, 1, 2}));
  newer->Unsubclass();
  EXPECT_EQ(Send(hwnd, kFirst), kFirst + 1000);
  EXPECT_EQ(asked.size(), 3u);
}

TEST_F(SubclasserContract, PutOnInsideAnEvent_ItHearsOnlyOfTheNext) {
  const Long hwnd = Open(u"one");
  int inner = 0;
  Sink innerSink([&](Long message, Long, Long, Long&, Boolean&) { inner += message == kFirst; });
  Ref<Subclasser> second;
  Sink outerSink([&](Long message, Long, Long, Long&, Boolean&) {
    if (message == kFirst && !second) second = Hooked(innerSink, hwnd);
  });
  const Ref<Subclasser> first = Hooked(outerSink, hwnd);
  Send(hwnd, kFirst);
  EXPECT_EQ(inner, 0);
  Send(hwnd, kFirst);
  EXPECT_EQ(inner, 1);
}

TEST_F(SubclasserContract, OnNoWindow_DoesNothing) {
  Sink sink([](Long, Long, Long, Long&, Boolean&) { ADD_FAILURE(); });
  for (const Long hwnd : {Long{0}, Long{0x7FFFFFF0}}) {
    const Ref<Subclasser> hook = Hooked(sink, hwnd);
    EXPECT_EQ(hook->CallPreviousProc(kFirst, 0, 0), 0);
    hook->Unsubclass();
  }
}

}  // namespace
}  // namespace strandline::contract
