#include <memory>

#include "tests/desk/window_system_fixture.h"

namespace strandline::desk {
namespace {

constexpr Long kUser = 1024;

class WindowSystem_Hooks : public WindowSystemTest {
 protected:
  struct Sink : MessageSink {
    using Event = std::function<void(Long message, Long& answer, Boolean& cancel)>;
    Sink(WindowSystem_Hooks& owner, std::string sinkName) : test(owner), name(std::move(sinkName)) {}
    void BeforeMessage(Long uMsg, Long, Long, Long& retValue, Boolean& Cancel) override {
      test.Note(name);
      if (event) event(uMsg, retValue, Cancel);
    }
    WindowSystem_Hooks& test;
    std::string name;
    Event event;
  };

  void SetUp() override {
    hwnd = Open(u"w");
    Settle();
    handler = [this](Long, Long, Long wParam, Long) {
      log.back() = "own";
      return wParam;
    };
  }
  Ref<Subclasser> Hook(Sink& sink) {
    Ref<Subclasser> hook = system.Create();
    hook->SetSink(&sink);
    hook->Subclass(hwnd);
    return hook;
  }
  Long Send(Long wParam = 5) { return system.SendMessageA(hwnd, kUser, wParam, 0); }

  Long hwnd = 0;
  Sink one{*this, "one"};
  Sink two{*this, "two"};
  Sink three{*this, "three"};
};

TEST_F(WindowSystem_Hooks, TheNewestComesFirstAndTheOwnProcedureLast) {
  const Ref<Subclasser> first = Hook(one);
  const Ref<Subclasser> second = Hook(two);
  EXPECT_EQ(system.LiveHooks(), 2u);
  EXPECT_EQ(Send(), 5);
  EXPECT_EQ(log, (Log{"two", "one", "own"}));
}

TEST_F(WindowSystem_Hooks, CancelAnswersAndEndsTheWay) {
  const Ref<Subclasser> first = Hook(one);
  const Ref<Subclasser> second = Hook(two);
  two.event = [](Long, Long& answer, Boolean& cancel) {
    EXPECT_EQ(answer, 0);
    EXPECT_FALSE(cancel);
    answer = 42;
    cancel = true;
  };
  EXPECT_EQ(Send(), 42);
  EXPECT_EQ(log, (Log{"two"}));
}

TEST_F(WindowSystem_Hooks, AnAnswerWithoutCancelIsNone) {
  const Ref<Subclasser> hook = Hook(one);
  one.event = [](Long, Long& answer, Boolean&) { answer = 42; };
  EXPECT_EQ(Send(), 5);
}

TEST_F(WindowSystem_Hooks, ThePreviousProcedureIsWhatComesAfterTheHook) {
  const Ref<Subclasser> first = Hook(one);
  const Ref<Subclasser> second = Hook(two);
  EXPECT_EQ(second->CallPreviousProc(kUser, 6, 0), 6);
  EXPECT_EQ(log, (Log{"one", "own"}));
  log.clear();
  EXPECT_EQ(first->CallPreviousProc(kUser, 7, 0), 7);
  EXPECT_EQ(log, (Log{"own"}));
}

TEST_F(WindowSystem_Hooks, OneTakenOffLeavesTheOthers) {
  const Ref<Subclasser> first = Hook(one);
  const Ref<Subclasser> second = Hook(two);
  const Ref<Subclasser> third = Hook(three);
  second->Unsubclass();
  second->Unsubclass();
  EXPECT_EQ(system.LiveHooks(), 2u);
  Send();
  EXPECT_EQ(log, (Log{"three", "one", "own"}));
  EXPECT_EQ(second->CallPreviousProc(kUser, 6, 0), 0);
}

TEST_F(WindowSystem_Hooks, AnObjectServesOneSubclassing) {
  const Long other = Hidden(u"other");
  const Ref<Subclasser> hook = Hook(one);
  hook->Subclass(other);
  EXPECT_EQ(system.LiveHooks(), 1u);
  hook->Unsubclass();
  hook->Subclass(hwnd);
  EXPECT_EQ(system.LiveHooks(), 0u);
  Send();
  EXPECT_EQ(log, (Log{"own"}));
}

TEST_F(WindowSystem_Hooks, WithoutASinkMessagesPassThrough) {
  const Ref<Subclasser> hook = Hook(one);
  hook->SetSink(nullptr);
  EXPECT_EQ(Send(), 5);
  EXPECT_EQ(log, (Log{"own"}));
}

TEST_F(WindowSystem_Hooks, MayBeTakenOffInTheirOwnEvent) {
  const Ref<Subclasser> first = Hook(one);
  const Ref<Subclasser> second = Hook(two);
  two.event = [&](Long, Long&, Boolean&) { second->Unsubclass(); };
  EXPECT_EQ(Send(), 5);
  EXPECT_EQ(log, (Log{"two", "one", "own"}));
  log.clear();
  Send();
  EXPECT_EQ(log, (Log{"one", "own"}));
}

TEST_F(WindowSystem_Hooks, TheLowerOneMayBeTakenOffInTheUpperOnesEvent) {
  const Ref<Subclasser> first = Hook(one);
  const Ref<Subclasser> second = Hook(two);
  const Ref<Subclasser> third = Hook(three);
  three.event = [&](Long, Long&, Boolean&) { second->Unsubclass(); };
  Send();
  EXPECT_EQ(log, (Log{"three", "one", "own"}));
}

TEST_F(WindowSystem_Hooks, MayBeDroppedInTheirOwnEvent) {
  Ref<Subclasser> hook = Hook(one);
  one.event = [&](Long, Long&, Boolean&) { hook = nullptr; };
  EXPECT_EQ(Send(), 5);
  EXPECT_EQ(log, (Log{"one", "own"}));
  EXPECT_EQ(system.LiveHooks(), 0u);
  log.clear();
  Send();
  EXPECT_EQ(log, (Log{"own"}));
}

TEST_F(WindowSystem_Hooks, OnePutOnMeanwhileWaitsForTheNextMessage) {
  const Ref<Subclasser> first = Hook(one);
  Ref<Subclasser> second;
  one.event = [&](Long, Long&, Boolean&) {
    if (!second) second = Hook(two);
  };
  Send();
  EXPECT_EQ(log, (Log{"one", "own"}));
  log.clear();
  Send();
  EXPECT_EQ(log, (Log{"two", "one", "own"}));
}

TEST_F(WindowSystem_Hooks, TheWindowMayGoInAnEvent) {
  const Ref<Subclasser> first = Hook(one);
  const Ref<Subclasser> second = Hook(two);
  two.event = [&](Long message, Long&, Boolean&) {
    if (message == kUser) system.DestroyWindow(hwnd);
  };
  EXPECT_EQ(Send(), 0);
  EXPECT_EQ(log, (Log{"two", "two", "one", "own"})) << "the message, then the window's end on all its way";
  EXPECT_EQ(system.LiveHooks(), 0u);
  second->Unsubclass();
  EXPECT_EQ(first->CallPreviousProc(kUser, 1, 0), 0);
}

TEST_F(WindowSystem_Hooks, WhatIsNoWindowCantBeHooked) {
  const Ref<Subclasser> hook = system.Create();
  hook->SetSink(&one);
  hook->Subclass(12345);
  hook->Subclass(0);
  EXPECT_EQ(system.LiveHooks(), 0u);
  hook->Subclass(hwnd);
  EXPECT_EQ(system.LiveHooks(), 1u) << "nothing was used up";
}

TEST_F(WindowSystem_Hooks, PaintsAndTicksComeThroughThem) {
  const Ref<Subclasser> hook = Hook(one);
  Log messages;
  one.event = [&](Long message, Long&, Boolean& cancel) {
    messages.push_back(std::to_string(message));
    cancel = true;
    if (message == wm::kPaint) system.Validate(hwnd);
  };
  system.SetTimer(hwnd, 1, 10, nullptr);
  system.InvalidateWindow(hwnd);
  system.Wait(20);
  EXPECT_EQ(messages, (Log{"15", "275", "275"}));
}

TEST(WindowSystem_HookLife, AHookMayOutliveTheWindowSystem) {
  auto system = std::make_unique<WindowSystem>();
  const Long hwnd = system->CreateWindowOf(u"Test", u"w", 0, {}, nullptr);
  Ref<Subclasser> hooked = system->Create();
  hooked->Subclass(hwnd);
  const Ref<Subclasser> fresh = system->Create();
  system.reset();
  EXPECT_EQ(hooked->CallPreviousProc(kUser, 0, 0), 0);
  hooked->Unsubclass();
  fresh->Subclass(hwnd);
  fresh->Unsubclass();
}

}  // namespace
}  // namespace strandline::desk
