// The hook on real windows.

#include <functional>
#include <vector>

#include "check.h"
#include "stage.h"

namespace strandline::smoke {

namespace {

constexpr Long kFirst = 0x0400 + 1;  // a message of the window's own
constexpr Long kSecond = kFirst + 1;
constexpr Long kDestroyed = 130;  // the last message of a window

class Sink final : public MessageSink {
 public:
  using Handler = std::function<void(Long message, Long wParam, Long lParam, Long& answer, Boolean& cancel)>;

  explicit Sink(Handler handler) : mHandler(std::move(handler)) {}
  void BeforeMessage(Long uMsg, Long wParam, Long lParam, Long& retValue, Boolean& Cancel) override {
    mHandler(uMsg, wParam, lParam, retValue, Cancel);
  }

 private:
  Handler mHandler;
};

Ref<Subclasser> Hooked(Sink& sink, Long hwnd) {
  Ref<Subclasser> hook = platform::Subclassers().Create();
  hook->SetSink(&sink);
  hook->Subclass(hwnd);
  return hook;
}

Long Send(const TestWindow& window, Long message, Long wParam = 3, Long lParam = 4) {
  return platform::Windows().SendMessageA(window.Hwnd(), message, wParam, lParam);
}

}  // namespace

SMOKE_TEST(Subclasser_TheSinkIsAskedBeforeTheWindow) {
  for (const bool wide : {true, false}) {
    Stage stage;
    TestWindow window(u"Smoke", wide);
    std::size_t reachedBefore = 99;
    Long parameters = 0;
    Sink sink([&](Long message, Long wParam, Long lParam, Long&, Boolean& cancel) {
      if (message != kFirst) return;
      CHECK(!cancel);
      reachedBefore = TestWindow::reached.size();
      parameters = wParam * 10 + lParam;
    });
    const Ref<Subclasser> hook = Hooked(sink, window.Hwnd());
    CHECK(!window.HasOwnProcedure());
    CHECK_EQUAL(Send(window, kFirst), kFirst + 1000);
    CHECK_EQUAL(reachedBefore, 0u);
    CHECK_EQUAL(TestWindow::reached.size(), 1u);
    CHECK_EQUAL(parameters, 34);
    hook->Unsubclass();
    CHECK(window.HasOwnProcedure());
  }
}

SMOKE_TEST(Subclasser_ACancelledMessageStaysWithTheSink) {
  Stage stage;
  TestWindow window;
  Sink sink([&](Long message, Long, Long, Long& answer, Boolean& cancel) {
    cancel = message == kFirst;
    answer = -7;
  });
  const Ref<Subclasser> hook = Hooked(sink, window.Hwnd());
  CHECK_EQUAL(Send(window, kFirst), -7);
  CHECK(TestWindow::reached.empty());
  CHECK_EQUAL(Send(window, kSecond), kSecond + 1000);
}

SMOKE_TEST(Subclasser_CallPreviousProc_GivesTheWindowsOwnAnswer) {
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
  CHECK_EQUAL(Send(window, kFirst), kFirst + 1001);
  CHECK_EQUAL(own, kFirst + 1000);
  CHECK_EQUAL(TestWindow::reached.size(), 1u);
  CHECK_EQUAL(hook->CallPreviousProc(kSecond, 0, 0), kSecond + 1000);
}

SMOKE_TEST(Subclasser_DroppedInsideItsOwnEvent_TheMessageStillReachesTheWindow) {
  Stage stage;
  TestWindow window;
  Ref<Subclasser> hook;
  int asked = 0;
  Sink sink([&](Long message, Long, Long, Long&, Boolean&) {
    if (message != kFirst) return;
    ++asked;
    hook->Unsubclass();
    hook->SetSink(nullptr);
    hook = nullptr;
  });
  hook = Hooked(sink, window.Hwnd());
  CHECK_EQUAL(Send(window, kFirst), kFirst + 1000);
  CHECK_EQUAL(Send(window, kFirst), kFirst + 1000);
  CHECK_EQUAL(asked, 1);
  CHECK(window.HasOwnProcedure());
}

SMOKE_TEST(Subclasser_DroppedWithoutUnsubclass_LetsTheWindowGo) {
  Stage stage;
  TestWindow window;
  Sink sink([](Long, Long, Long, Long&, Boolean&) {});
  { const Ref<Subclasser> hook = Hooked(sink, window.Hwnd()); }
  CHECK(window.HasOwnProcedure());
}

SMOKE_TEST(Subclasser_TheWindowDiesFirst) {
  Stage stage;
  TestWindow window;
  bool last = false;
  Sink sink([&](Long message, Long, Long, Long&, Boolean&) { last = message == kDestroyed; });
  const Ref<Subclasser> hook = Hooked(sink, window.Hwnd());
  window.Destroy();
  CHECK(last);
  CHECK_EQUAL(hook->CallPreviousProc(kFirst, 0, 0), 0);
  hook->Unsubclass();
}

SMOKE_TEST(Subclasser_TheWindowDiesInsideTheEvent) {
  Stage stage;
  TestWindow window;
  Ref<Subclasser> hook;
  Sink sink([&](Long message, Long, Long, Long&, Boolean&) {
    if (message != kFirst) return;
    window.Destroy();
    hook = nullptr;
  });
  hook = Hooked(sink, window.Hwnd());
  Send(window, kFirst);
  CHECK(!hook);
}

SMOKE_TEST(Subclasser_TwoHooks_TheNewerIsAskedFirst_AndTheOlderMayGoFirst) {
  Stage stage;
  TestWindow window;
  std::vector<int> asked;
  const auto note = [&asked](int who) {
    return [&asked, who](Long message, Long, Long, Long&, Boolean&) {
      if (message == kFirst) asked.push_back(who);
    };
  };
  Sink olderSink(note(1));
  Sink newerSink(note(2));
  const Ref<Subclasser> older = Hooked(olderSink, window.Hwnd());
  const Ref<Subclasser> newer = Hooked(newerSink, window.Hwnd());
  Send(window, kFirst);
  CHECK(asked == (std::vector<int>{2, 1}));
  older->Unsubclass();
  Send(window, kFirst);
  CHECK(asked == (std::vector<int>{2, 1, 2}));
  newer->Unsubclass();
  CHECK(window.HasOwnProcedure());
}

}  // namespace strandline::smoke
