#include "tests/wordsim/world_fixture.h"

namespace strandline::wordsim {
namespace {

using FramesTest = WorldTest;

TEST_F(FramesTest, EachDocumentHasAWindow_ThatBearsItsName) {
  World().Open(u"A.doc");
  World().Open(u"B.doc");
  const Long top = World().ActiveTopWindow();
  EXPECT_EQ(ClassOf(top), "OpusApp");
  EXPECT_EQ(TitleOf(top), "B.doc - Microsoft Word");
  EXPECT_EQ(Windows().GetActiveWindow(), top);
  EXPECT_EQ(World().WindowName(top), "top 2");
  EXPECT_EQ(TitleOf(World().WindowByName("top 1")), "A.doc - Microsoft Word");
}

struct MailCase {
  const char16_t* version;
  const char* className;
  const char* title;
};

TEST_F(FramesTest, AMail_StandsInAnOutlookWindow_BeforeWord2003) {
  const MailCase kCases[] = {
      {u"9.0", "rctrl_renwnd32", "Hello - Message"},
      {u"10.0", "rctrl_renwnd32", "Hello - Message"},
      {u"11.0", "OpusApp", "Hello - Microsoft Word"},
  };
  for (const MailCase& one : kCases) {
    BeginVersion(one.version).Open(u"Hello", {.mail = true});
    EXPECT_EQ(ClassOf(World().ActiveTopWindow()), one.className);
    EXPECT_EQ(TitleOf(World().ActiveTopWindow()), one.title);
    EXPECT_TRUE(World().Active()->IsMail());
  }
}

TEST_F(FramesTest, ABarThatComesUp_HasItsFaceAtOnce) {
  const auto shown = [&] {
    const Rect bar = RectOf(World().ActiveBarWindow());
    return desk::CutOut(mDesk.Screen(), {bar.left, bar.top, bar.right, bar.bottom});
  };
  for (Long position = 0; position <= 4; ++position) {
    Settings settings;
    settings.barPosition = static_cast<BarPosition>(position);
    Begin(settings).Open(u"A.doc");
    const desk::Surface first = shown();
    ASSERT_GT(first.width, 0);
    Wait(0);
    EXPECT_TRUE(first == shown()) << position;
    World().DockBar(position == 1 ? BarPosition::kBottom : BarPosition::kTop);
    const desk::Surface docked = shown();
    Wait(0);
    EXPECT_TRUE(docked == shown()) << position;
  }
}

TEST_F(FramesTest, TheBarIsFound_WhereverItIsDocked) {
  for (Long position = 0; position <= 4; ++position) {
    Settings settings;
    settings.barPosition = static_cast<BarPosition>(position);
    Begin(settings).Open(u"A.doc");
    World().Open(u"B.doc");
    EXPECT_EQ(FindBar(), World().ActiveBarWindow()) << position;
    EXPECT_EQ(ClassOf(World().ActiveBarWindow()), "MsoCommandBar");
    EXPECT_TRUE(IsShown(World().ActiveBarWindow()));
    EXPECT_EQ(World().WindowName(World().ActiveBarWindow()), "bar 2");
    EXPECT_EQ(World().BarWindowOf(u"A.doc"), World().WindowByName("bar 1"));
  }
}

TEST_F(FramesTest, FromTheRibbonOn_ThereIsNoBarWindow) {
  BeginVersion(u"12.0").Open(u"A.doc");
  Wait(0);
  EXPECT_EQ(World().ActiveBarWindow(), 0);
  EXPECT_EQ(FindBar(), 0);
  EXPECT_FALSE(World().ResizeBar(100, 100));
  EXPECT_FALSE(World().DockBar(BarPosition::kLeft));
  EXPECT_EQ(World().SendToBar(wm::kSize, 0, 0), 0);
  Bar().Let("Visible", false);
  EXPECT_FALSE(Bar().Get("Visible").ToBoolean());
}

TEST_F(FramesTest, TheLastDocument_LeavesItsWindowEmpty_ForTheNextOne) {
  World().Open(u"A.doc");
  World().Open(u"B.doc");
  World().Close(u"B.doc");
  EXPECT_FALSE(Windows().IsWindow(World().WindowByName("top 2")));
  EXPECT_FALSE(Windows().IsWindow(World().WindowByName("bar 2")));
  World().Close(u"A.doc");
  const Long top = World().WindowByName("top 1");
  EXPECT_EQ(TitleOf(top), "Microsoft Word");
  EXPECT_EQ(World().ActiveTopWindow(), top);
  EXPECT_TRUE(IsShown(World().ActiveBarWindow()));
  World().Open(u"C.doc");
  EXPECT_EQ(World().ActiveTopWindow(), top);
  EXPECT_EQ(TitleOf(top), "C.doc - Microsoft Word");
}

TEST_F(FramesTest, WindowState_FollowsTheWindow) {
  World().Open(u"A.doc");
  const Object window = Application().Get("ActiveWindow").ToObject();
  const Long top = World().ActiveTopWindow();
  const Rect normal = RectOf(top);
  EXPECT_EQ(window.Get("WindowState").ToLong(), 0);
  window.Let("WindowState", Long{1});
  EXPECT_EQ(RectOf(top), RectOf(Windows().GetDesktopWindow()));
  EXPECT_EQ(window.Get("WindowState").ToLong(), 1);
  window.Let("WindowState", Long{2});
  EXPECT_TRUE(Windows().IsIconic(top));
  EXPECT_EQ(window.Get("WindowState").ToLong(), 2);
  Windows().ShowWindow(top, 9);
  EXPECT_EQ(window.Get("WindowState").ToLong(), 1);
  window.Let("WindowState", Long{0});
  EXPECT_EQ(RectOf(top), normal);
  EXPECT_EQ(NumberRaised([&] { window.Let("WindowState", Long{3}); }), errors::kInvalidArgument);
  EXPECT_TRUE(World().Minimise(u"A.doc"));
  EXPECT_EQ(window.Get("WindowState").ToLong(), 2);
  EXPECT_TRUE(World().Restore(u"A.doc"));
  EXPECT_EQ(window.Get("WindowState").ToLong(), 0);
}

TEST_F(FramesTest, AWindowThatWasMinimised_ComesBackWithItsActivation) {
  World().Open(u"A.doc");
  World().Open(u"B.doc");
  World().Minimise(u"A.doc");
  World().Activate(u"A.doc");
  EXPECT_FALSE(Windows().IsIconic(World().ActiveTopWindow()));
  EXPECT_EQ(Windows().GetActiveWindow(), World().ActiveTopWindow());
}

TEST_F(FramesTest, AMinimisedDocument_GivesTheFrontToTheNextOne_AndTakesItBackWhenRestored) {
  World().Open(u"A.doc");
  World().Open(u"B.doc");
  World().Minimise(u"B.doc");
  EXPECT_EQ(World().Active(), World().Find(u"A.doc"));
  EXPECT_EQ(Windows().GetActiveWindow(), World().ActiveTopWindow());
  World().Minimise(u"A.doc");
  EXPECT_EQ(World().Active(), World().Find(u"A.doc")) << "nobody is left to take it";
  World().Restore(u"B.doc");
  EXPECT_EQ(World().Active(), World().Find(u"B.doc"));
  EXPECT_EQ(Windows().GetActiveWindow(), World().ActiveTopWindow());
}

TEST_F(FramesTest, AFloatingBar_GoesWithItsMinimisedWindow) {
  Settings settings;
  settings.barPosition = BarPosition::kFloating;
  Begin(settings).Open(u"A.doc");
  const Long bar = World().ActiveBarWindow();
  EXPECT_NE(Windows().IsWindowVisible(bar), 0);
  World().Minimise(u"A.doc");
  EXPECT_EQ(Windows().IsWindowVisible(bar), 0);
  World().Restore(u"A.doc");
  EXPECT_NE(Windows().IsWindowVisible(bar), 0);
}

TEST_F(FramesTest, AnotherProgram_TakesActivationAndForeground_AndGivesThemBack) {
  World().Open(u"A.doc");
  World().Cover(true);
  EXPECT_EQ(Windows().GetActiveWindow(), 0);
  World().Cover(false);
  EXPECT_EQ(Windows().GetActiveWindow(), World().ActiveTopWindow());
}

TEST_F(FramesTest, EveryWindowValidates_AndNothingIsLost) {
  for (const char16_t* version : {u"9.0", u"10.0", u"11.0", u"12.0"}) {
    for (Long position = 0; position <= 4; ++position) {
      Settings settings;
      settings.wordVersion = version;
      settings.barPosition = static_cast<BarPosition>(position);
      Begin(settings).Open(u"A.doc");
      World().Open(u"B.doc", {.mail = true});
      Wait(10);
      World().Close(u"B.doc");
      World().Close(u"A.doc");
      Wait(10);
    }
  }
  mWorld.reset();
  EXPECT_TRUE(mDesk.Objects().Lost().empty());
  EXPECT_TRUE(mDesk.Misuses().All().empty());
}

TEST_F(FramesTest, APrintOfTheBar_IsTheBarAsItShows) {
  for (const char16_t* version : {u"10.0", u"11.0"}) {
    BeginVersion(version).Open(u"A.doc");
    Wait(0);
    const Long hwnd = World().ActiveBarWindow();
    const Rect bar = RectOf(hwnd);
    const Platform services = mDesk.Services();
    const Long window = services.graphics->GetDC(hwnd);
    const Long memory = services.graphics->CreateCompatibleDC(window);
    const Long bitmap = services.graphics->CreateCompatibleBitmap(window, bar.right - bar.left, bar.bottom - bar.top);
    const Long former = services.graphics->SelectObject(memory, bitmap);
    Windows().SendMessageA(hwnd, wm::kPrint, memory, 14);
    for (const Point at : {Point{0, 0}, Point{4, 7}, Point{100, 0}, Point{300, 20}, Point{700, 39}}) {
      EXPECT_EQ(services.graphics->GetPixel(memory, at.x, at.y), services.graphics->GetPixel(window, at.x, at.y));
    }
    services.graphics->SelectObject(memory, former);
    services.graphics->DeleteObject(bitmap);
    services.graphics->DeleteDC(memory);
    services.graphics->ReleaseDC(hwnd, window);
  }
}

TEST_F(FramesTest, TheBarOfWord2003_IsAGradient_TheOneBeforeItFlat) {
  const auto pixel = [&](Long x, Long y) {
    const Rect bar = RectOf(World().ActiveBarWindow());
    return *mDesk.Screen().At(bar.left + x, bar.top + y);
  };
  BeginVersion(u"11.0").Open(u"A.doc");
  Wait(0);
  EXPECT_EQ(pixel(200, 0), 0xE3EFFFu);
  EXPECT_NE(pixel(200, 0), pixel(200, 20));
  BeginVersion(u"10.0").Open(u"A.doc");
  Wait(0);
  EXPECT_EQ(pixel(200, 0), 0xECE9D8u);
  EXPECT_EQ(pixel(200, 0), pixel(200, 39));
}

}  // namespace
}  // namespace strandline::wordsim
