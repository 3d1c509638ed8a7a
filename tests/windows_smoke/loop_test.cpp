// Timers and waits through the private message loop.

#include <functional>

#include "check.h"
#include "foundation/SleepReplacement.h"
#include "stage.h"

namespace strandline::smoke {

namespace {

constexpr Long kOwnMessage = 0x0400 + 9;

Ref<MessageLoop> theLoop;
int ticks = 0;
Long tickHwnd = 0;
Long tickMessage = 0;
Long tickId = 0;

void OnTick(Long hwnd, Long message, Long id, Long) {
  tickHwnd = hwnd;
  tickMessage = message;
  tickId = id;
  if (++ticks >= 3) theLoop->ExitBlockingLoop();
}

void RunLoop() {
  ticks = 0;
  theLoop = New<MessageLoop>();
  theLoop->EnterBlockingLoop();
  theLoop = nullptr;
}

class Sink final : public MessageSink {
 public:
  explicit Sink(std::function<void(Long, Long)> handler) : mHandler(std::move(handler)) {}
  void BeforeMessage(Long uMsg, Long wParam, Long, Long&, Boolean&) override { mHandler(uMsg, wParam); }

 private:
  std::function<void(Long message, Long wParam)> mHandler;
};

Long boxAnswer = 0;
void OnBoxTimer(Long hwnd, Long, Long id, Long) {
  const String dialogClass = u"#32770";
  const String title = u"Smoke box";
  const Long box = platform::Windows().FindWindowA(&dialogClass, &title);
  if (box == 0) return;
  platform::Windows().KillTimer(hwnd, id);
  constexpr Long kCommand = 273;
  platform::Windows().SendMessageA(box, kCommand, boxAnswer, 0);
}

}  // namespace

SMOKE_TEST(Timer_WithAProcedure_TicksInThePrivateLoop) {
  Stage stage;
  TestWindow window;
  CHECK(platform::Windows().SetTimer(window.Hwnd(), 77, 10, &OnTick) != 0);
  RunLoop();
  CHECK_EQUAL(ticks, 3);
  CHECK_EQUAL(tickHwnd, window.Hwnd());
  CHECK_EQUAL(tickMessage, wm::kTimer);
  CHECK_EQUAL(tickId, 77);
  CHECK(platform::Windows().KillTimer(window.Hwnd(), 77) != 0);
  CHECK_EQUAL(platform::Windows().KillTimer(window.Hwnd(), 77), 0);
}

SMOKE_TEST(Timer_WithoutAWindow_HasANumberOfItsOwn) {
  Stage stage;
  const Long id = platform::Windows().SetTimer(0, 77, 10, &OnTick);
  CHECK(id != 0);
  RunLoop();
  CHECK_EQUAL(tickId, id);
  CHECK(platform::Windows().KillTimer(0, id) != 0);
}

SMOKE_TEST(Timer_WithoutAProcedure_TicksAsAMessageToTheWindow) {
  Stage stage;
  TestWindow window;
  Sink sink([](Long message, Long wParam) {
    if (message == wm::kTimer && wParam == 78 && ++ticks >= 2) theLoop->ExitBlockingLoop();
  });
  const Ref<Subclasser> hook = platform::Subclassers().Create();
  hook->SetSink(&sink);
  hook->Subclass(window.Hwnd());
  CHECK(platform::Windows().SetTimer(window.Hwnd(), 78, 10, nullptr) != 0);
  RunLoop();
  CHECK_EQUAL(ticks, 2);
  CHECK(platform::Windows().KillTimer(window.Hwnd(), 78) != 0);
}

SMOKE_TEST(Wait_ReturnsAndLetsMessagesRun) {
  Stage stage;
  TestWindow window;
  window.Post(kOwnMessage, 1, 2);
  window.Invalidate();
  SleepReplacement::Wait(50, window.Hwnd());
  CHECK_EQUAL(TestWindow::reached.size(), 1u);
  CHECK(TestWindow::paints > 0);
  CHECK(!SleepReplacement::variables.mMessageLoop);
  CHECK_EQUAL(vbwProtector::variables.mStackCalls, 0);
}

SMOKE_TEST(Wait_InsideAnother_SpinsUntilThatIsOver) {
  Stage stage;
  TestWindow window;
  bool inner = false;
  Sink sink([&](Long message, Long) {
    if (message != kOwnMessage) return;
    SleepReplacement::Wait(20, window.Hwnd());
    inner = true;
  });
  const Ref<Subclasser> hook = platform::Subclassers().Create();
  hook->SetSink(&sink);
  hook->Subclass(window.Hwnd());
  window.Post(kOwnMessage, 0, 0);
  SleepReplacement::Wait(30, window.Hwnd());
  CHECK(inner);
  CHECK(!SleepReplacement::variables.mMessageLoop);
}

SMOKE_TEST(DoEvents_RunsWhatWaitsAndReturns) {
  Stage stage;
  TestWindow window;
  for (Long i = 0; i < 5; ++i) window.Post(kOwnMessage + i, 0, 0);
  platform::Windows().DoEvents();
  CHECK_EQUAL(TestWindow::reached.size(), 5u);
  platform::Windows().DoEvents();
  CHECK_EQUAL(TestWindow::reached.size(), 5u);
}

SMOKE_TEST(DoEvents_AWindowThatNeverValidates_DoesntHoldItUp) {
  Stage stage;
  TestWindow window;
  const Ref<Subclasser> hook = platform::Subclassers().Create();
  class Refusal final : public MessageSink {
   public:
    void BeforeMessage(Long uMsg, Long, Long, Long&, Boolean& Cancel) override { Cancel = uMsg == wm::kPaint; }
  } sink;
  hook->SetSink(&sink);
  hook->Subclass(window.Hwnd());
  window.Invalidate();
  platform::Windows().DoEvents();
  CHECK_EQUAL(TestWindow::paints, 0);
}

SMOKE_TEST(DoEventsUntilNext_WaitsForTheNextTick) {
  Stage stage;
  TestWindow window;
  platform::Windows().DoEvents();
  theLoop = New<MessageLoop>();
  ticks = 0;
  platform::Windows().SetTimer(window.Hwnd(), 79, 20, &OnTick);
  while (ticks == 0) platform::Windows().DoEventsUntilNext();
  CHECK(ticks >= 1);
  platform::Windows().KillTimer(window.Hwnd(), 79);
  theLoop = nullptr;
}

SMOKE_TEST(Windows_FoundByClassAndTitle) {
  Stage stage;
  TestWindow first(u"Smoke first \u00E4");
  TestWindow second(u"Smoke second");
  Windows& windows = platform::Windows();
  const String type = u"StrandlineSmokeWide";
  const String title = u"Smoke first \u00E4";
  const String absent = u"Smoke third";
  CHECK_EQUAL(windows.FindWindowA(&type, &title), first.Hwnd());
  CHECK_EQUAL(windows.FindWindowA(nullptr, &title), first.Hwnd());
  CHECK_EQUAL(windows.FindWindowExA(0, 0, &type, nullptr), second.Hwnd());
  CHECK_EQUAL(windows.FindWindowExA(0, second.Hwnd(), &type, nullptr), first.Hwnd());
  CHECK_EQUAL(windows.FindWindowExA(0, first.Hwnd(), &type, nullptr), 0);
  CHECK_EQUAL(windows.FindWindowA(&type, &absent), 0);
  CHECK_EQUAL(windows.GetWindowTextA(first.Hwnd(), 256), title);
  CHECK_EQUAL(windows.GetWindowTextA(first.Hwnd(), 6), String(u"Smoke"));
  Rect place;
  CHECK(windows.GetWindowRect(first.Hwnd(), place) != 0);
  CHECK(place == (Rect{50, 40, 170, 120}));
  Point point{51, 42};
  windows.ScreenToClient(first.Hwnd(), point);
  CHECK(point == (Point{1, 2}));
  windows.ClientToScreen(first.Hwnd(), point);
  CHECK(point == (Point{51, 42}));
  CHECK(windows.IsWindowVisible(first.Hwnd()) != 0);
  CHECK_EQUAL(windows.IsIconic(first.Hwnd()), 0);
  CHECK(windows.SetForegroundWindow(first.Hwnd()) != 0);
  CHECK_EQUAL(windows.GetForegroundWindow(), first.Hwnd());
  CHECK_EQUAL(windows.GetActiveWindow(), first.Hwnd());
  CHECK_EQUAL(windows.GetWindowThreadProcessId(first.Hwnd()), windows.GetWindowThreadProcessId(second.Hwnd()));
}

SMOKE_TEST(MsgBox_GivesTheUsersAnswer) {
  Stage stage;
  TestWindow window;
  const String title = u"Smoke box";
  for (const Long answer : {msgbox::kAnswerYes, msgbox::kAnswerNo, msgbox::kAnswerCancel}) {
    boxAnswer = answer;
    platform::Windows().SetTimer(window.Hwnd(), 80, 10, &OnBoxTimer);
    CHECK_EQUAL(platform::RunTime().MsgBox(u"Well?", msgbox::kYesNoCancel | msgbox::kExclamation, &title), answer);
  }
}

SMOKE_TEST(RunTime_TellsOfProcessAndScreen) {
  Stage stage;
  CHECK(FindText(platform::RunTime().CommandLine(), u"smoke") > 0);
  CHECK(platform::RunTime().Now().days > 45000);
  CHECK_EQUAL(platform::RunTime().TwipsPerPixelX(), 15.0);
  CHECK_EQUAL(platform::RunTime().TwipsPerPixelY(), 15.0);
  CHECK_EQUAL(platform::RunTime().GetSetting(u"Init", u"absent", u"default"), String(u"default"));
}

}  // namespace strandline::smoke
