// How a toolbar begins: it waits for the bar's window, however long that takes, then builds the strip, then hooks.

#include <functional>

#include "tests/toolbar/fake_ads.h"
#include "tests/toolbar/toolbar_fixture.h"

namespace strandline {
namespace {

class ToolbarStart : public ToolbarTest {};

wordsim::Settings Late(Long milliseconds, const char16_t* version = u"11.0") {
  wordsim::Settings settings = WordOf(version);
  settings.barLate = milliseconds;
  return settings;
}

TEST_F(ToolbarStart, Initialize_TakesItsStepsInOrder_TheHookAfterTheStripAndLumivexLast) {
  Begin();
  ToolbarUtilities::variables.adFactory = New<NoAds>();  // who has a document of their own to ask for
  trace().Listen(Trace::kProcedures | Trace::kHooks | Trace::kLogs | Trace::kUses);
  trace().Only({"log Toolbar", "log Buttons", "log BltBuffer", "get bar Quillmere visible", "let bar Quillmere",
                "ToolbarUtilities.ToolbarWindowHandle", "CommonPropertyFunctions.docId", "Buttons.Initialize",
                "Buttons.PaintIcons", "Buttons.UpdateLumivexIcon", "hook subclass", "Toolbar."});
  toolbar = New<Toolbar>();
  toolbar->Initialize(world->Top());
  EXPECT_EQ(trace().TakeText(),
            "Toolbar.Initialize(top 1)\n"
            "log Toolbar initialize for Thesis.doc " +
                Hex(world->Top()) +
                "\n"
                "get bar Quillmere visible = True\n"
                "ToolbarUtilities.ToolbarWindowHandle(top 1)\n"
                "CommonPropertyFunctions.docId(document Thesis.doc)\n"
                "Buttons.Initialize(top 1, bar 1, True)\n"
                "log Buttons Initialize\n"
                "Buttons.PaintIcons(top 1, False, True)\n"
                "Buttons.UpdateLumivexIcon()\n"
                "log BltBuffer\n"
                "hook subclass(bar 1)\n"
                "Toolbar.UpdateLumivexIcon()\n"
                "Buttons.UpdateLumivexIcon()\n");
  EXPECT_EQ(ToolbarNumber(u"mParentHwnd"), world->Top());
  EXPECT_EQ(ToolbarNumber(u"mHwnd"), world->Bar());
  EXPECT_EQ(ToolbarNumber(u"mDocId"), world->word.Active()->Identity());
  EXPECT_EQ(world->desk.Windows().LiveHooks(), 1u);
}

TEST_F(ToolbarStart, Initialize_OfAHiddenBar_ShowsItBeforeItLooksForIt) {
  Begin();
  Object bar(Ref<wordsim::CommandBar>(&world->word.ProductBar()));
  bar.Let("Visible", false);
  ASSERT_EQ(world->desk.Windows().IsWindowVisible(world->Bar()), 0);
  trace().Listen(Trace::kUses | Trace::kWindows);
  trace().Only({"get bar Quillmere visible", "let bar Quillmere", "IsWindowVisible"});
  MakeToolbar();
  EXPECT_EQ(trace().TakeText(),
            "get bar Quillmere visible = False\n"
            "let bar Quillmere visible = True\n"
            "IsWindowVisible(bar 1)\n");
  EXPECT_EQ(world->word.ProductBar().IsVisible(), true);
}

TEST_F(ToolbarStart, Initialize_OfAVisibleBar_WritesNothingToIt) {
  Begin();
  trace().Listen(Trace::kUses);
  trace().Only({"let"});
  MakeToolbar();
  EXPECT_EQ(trace().TakeText(), "");
}

// Without a document there is no name to log; its identity can't be told either, and whoever goes on has a toolbar that
// belongs to none.
TEST_F(ToolbarStart, Initialize_WithoutADocument_LogsNoNameAndBelongsToNone) {
  Begin();
  const Long top = world->Top();
  world->word.Close(kDocument);
  trace().Listen(Trace::kLogs);
  trace().Only({"log Toolbar initialize"});
  world->errors.Answer({Variant(vbwProtector::kIgnore), Variant(vbwProtector::kIgnore)});
  toolbar = New<Toolbar>();
  toolbar->Initialize(top);
  EXPECT_EQ(trace().TakeText(), "");
  EXPECT_EQ(ToolbarNumber(u"mDocId"), 0);
  EXPECT_EQ(world->desk.Windows().LiveHooks(), 1u);
  TakeErrors();
}

// The change of the window is a step of the start: where Word refuses it, the start ends there, without strip or hook.
TEST_F(ToolbarStart, Initialize_WhereTheWindowRefusesToChange_EndsThere) {
  Begin(Late(4000));
  world->word.Faults().Arm("window Thesis.doc", "WindowState");
  toolbar = New<Toolbar>();
  toolbar->Initialize(world->Top());
  EXPECT_EQ(world->boxes.size(), 1u);
  EXPECT_EQ(world->desk.Windows().LiveHooks(), 0u);
  EXPECT_EQ(ToolbarNumber(u"mDocId"), 0);
  TakeErrors();
}

struct LateCase {
  Long late;  // milliseconds until the window comes
  int waits;  // of 50 ms each
  int boxes;
};

TEST_F(ToolbarStart, Initialize_WaitsInStepsOf50Milliseconds_AndForcesTheWindowOnceAt3000) {
  const LateCase cases[] = {
      {0, 0, 0},     {1, 1, 0},     {50, 1, 0},    {51, 2, 0},     {2900, 58, 0},  {2950, 59, 0},
      {2951, 60, 1}, {3000, 60, 1}, {3001, 61, 1}, {6000, 120, 1}, {6050, 121, 1}, {9000, 180, 1},
  };
  for (const LateCase& each : cases) {
    SCOPED_TRACE(each.late);
    Begin(Late(each.late));
    trace().Listen(Trace::kLogs | Trace::kTimers | Trace::kUses);
    trace().Only({"log(1) Waiting", "SetTimer", "let window"});
    const std::int64_t begun = world->desk.Clock().Milliseconds();
    MakeToolbar();
    EXPECT_EQ(world->desk.Clock().Milliseconds() - begun, each.waits * 50);
    const Trace::Lines lines = trace().Take();
    const Trace::Lines waits = Beginning(lines, "log(1) Waiting for toolbar to show up");
    EXPECT_EQ(static_cast<int>(waits.size()), each.waits);
    EXPECT_EQ(static_cast<int>(world->boxes.size()), each.boxes);
    EXPECT_EQ(static_cast<int>(Beginning(lines, "let window").size()), 2 * each.boxes);
    for (const std::string& timer : Beginning(lines, "SetTimer")) {
      EXPECT_TRUE(timer.starts_with("SetTimer(top 1, ") && timer.ends_with(", 50)")) << timer;
    }
    EXPECT_EQ(world->desk.Windows().LiveHooks(), 1u);
    EXPECT_EQ(world->desk.Windows().LiveTimers(), 0u);
    EXPECT_EQ(ToolbarNumber(u"mHwnd"), world->Bar());
  }
}

TEST_F(ToolbarStart, Initialize_WhileItWaits_LetsMessagesAndTimersRun) {
  Begin(Late(400));
  std::vector<std::int64_t> moments;
  world->desk.Clock().After(120, [&] { moments.push_back(world->desk.Clock().Milliseconds()); });
  const Long stranger = world->desk.Host().CreateWindowOf(u"Stranger", u"", 0, {0, 0, 10, 10}, nullptr);
  OtherHook other(*world, stranger);
  trace().Listen(Trace::kLogs);
  trace().Only({"word gets"});
  world->desk.Host().Post(stranger, 1025, 3, 4);
  world->desk.Windows().SetTimer(stranger, 5, 150, nullptr);
  const std::int64_t begun = world->desk.Clock().Milliseconds();
  MakeToolbar();
  EXPECT_EQ(moments, std::vector<std::int64_t>{begun + 120});
  EXPECT_EQ(trace().TakeText(),
            "word gets 1025(3, 4)\n"
            "word gets 275(5, 0)\n"
            "word gets 275(5, 0)\n");
  world->desk.Windows().KillTimer(stranger, 5);
}

constexpr const char* kBoxText =
    "It appears that Word is taking a long time to show the Quillmere toolbar. This usually happens only on the first "
    "time after installation. Quillmere will resize your window to force Word to display the toolbar. Please wait a "
    "few seconds after that for the Quillmere toolbar to appear.";

TEST_F(ToolbarStart, Initialize_TheMessageAt3000_HasItsTextAndNoTitleOfItsOwn) {
  Begin(Late(4000));
  MakeToolbar();
  ASSERT_EQ(world->boxes.size(), 1u);
  EXPECT_EQ(world->boxes[0].text, kBoxText);
  EXPECT_EQ(world->boxes[0].title, "(none)");
  EXPECT_EQ(world->boxes[0].style, 0);
}

TEST_F(ToolbarStart, Initialize_TheMessageAt3000_ReadsTheProductsNameAtEachPlace) {
  Begin(Late(4000));
  trace().Listen(Trace::kUses);
  const char16_t* const names[] = {u"One", u"Two", u"Three"};
  int reads = 0;
  trace().during = [&](const std::string& line) {
    if (!line.starts_with("get productState productName") || reads >= 3) return;
    world->word.TheProduct().Rename(names[reads++]);
  };
  world->word.TheProduct().Rename(u"Zero");
  MakeToolbar();
  trace().during = nullptr;
  ASSERT_EQ(world->boxes.size(), 1u);
  const std::string& text = world->boxes[0].text;
  EXPECT_NE(text.find("to show the Zero toolbar."), std::string::npos) << text;
  EXPECT_NE(text.find("installation. One will resize"), std::string::npos) << text;
  EXPECT_NE(text.find("for the Two toolbar to appear."), std::string::npos) << text;
}

struct StateCase {
  Long state;
  const char* expected;
};

TEST_F(ToolbarStart, Initialize_TheForcedChange_MinimisesAndComesBackToWhatTheWindowWas) {
  const StateCase cases[] = {{0, "let window Thesis.doc WindowState = 2\nlet window Thesis.doc WindowState = 0\n"},
                             {1, "let window Thesis.doc WindowState = 2\nlet window Thesis.doc WindowState = 1\n"},
                             {2, "let window Thesis.doc WindowState = 2\nlet window Thesis.doc WindowState = 0\n"}};
  for (const StateCase& each : cases) {
    Begin(Late(4000));
    Object(world->word.Active()->WindowObject()).Let("WindowState", each.state);
    trace().Listen(Trace::kUses);
    trace().Only({"let window"});
    MakeToolbar();
    EXPECT_EQ(trace().TakeText(), each.expected) << each.state;
  }
}

TEST_F(ToolbarStart, Initialize_TheForcedChange_ComesAfterTheMessageAndBeforeTheActivation) {
  Begin(Late(3400));
  trace().Listen(Trace::kUses | Trace::kWindows);
  trace().Only({"get window", "let window", "SetForegroundWindow", "box"});
  world->word.Cover(true);
  world->desk.RunTime().SetBoxHandler([&](const String&, Long, const String*) {
    trace().Note("box");
    return msgbox::kAnswerOk;
  });
  MakeToolbar();
  EXPECT_EQ(trace().TakeText(),
            "box\n"
            "get window Thesis.doc WindowState = 0\n"
            "let window Thesis.doc WindowState = 2\n"
            "let window Thesis.doc WindowState = 0\n"
            "SetForegroundWindow(top 1)\n");
  world->word.Cover(false);
}

TEST_F(ToolbarStart, Initialize_AMessageThatWaitsForTheBar_MeetsAStripThatIsWhole) {
  Begin(Late(300));
  // Right when the window comes, a mouse message and a paint wait for it; neither is the toolbar's before it is up.
  bool painted = false;
  world->desk.Clock().After(300, [&] {
    painted = true;
    world->desk.Host().Post(world->Bar(), wm::kMouseMove, 0, 0);
    world->desk.Host().InvalidateWindow(world->Bar());
  });
  trace().Listen(Trace::kHooks | Trace::kLogs);
  trace().Only({"hook", "log BltBuffer"});
  MakeToolbar();
  EXPECT_TRUE(painted);
  const Trace::Lines lines = trace().Take();
  ASSERT_GE(lines.size(), 2u);
  EXPECT_EQ(lines[0], "log BltBuffer");
  EXPECT_EQ(lines[1], "hook subclass(bar 1)");
}

TEST_F(ToolbarStart, Initialize_WhereTheHookCannotBePutOn_GoesOnWithoutASign) {
  Begin();
  world->faults.Arm("subclass", 1);
  MakeToolbar();
  EXPECT_EQ(world->desk.Windows().LiveHooks(), 0u);
  EXPECT_EQ(ToolbarNumber(u"mHwnd"), world->Bar());
}

TEST_F(ToolbarStart, IsDocument_IsTrueForTheDocumentThatWasActiveAlone) {
  BeginWithToolbar();
  const Object thesis(Ref<wordsim::Document>(world->word.Active()));
  world->OpenInWord(u"Notes.doc");
  const Object notes(Ref<wordsim::Document>(world->word.Active()));
  EXPECT_TRUE(toolbar->isDocument(thesis));
  EXPECT_FALSE(toolbar->isDocument(notes));
  EXPECT_FALSE(toolbar->isDocument(world->word.Application()));
}

TEST_F(ToolbarStart, IsDocument_OfNothing_IsFalseAndAnError) {
  BeginWithToolbar();
  EXPECT_FALSE(toolbar->isDocument(Object()));
  EXPECT_FALSE(TakeErrors().empty());
}

TEST_F(ToolbarStart, Toolbar_BeforeItsStart_HasNoStripToAsk) {
  Begin();
  toolbar = New<Toolbar>();
  toolbar->Redraw();
  toolbar->UpdateLumivexIcon();
  toolbar->ClickOnAd();
  toolbar->ReprimeTimerCycle();
  toolbar->ValueChanged({}, u"x");
  EXPECT_EQ(TakeErrors(),
            "91 Toolbar.Redraw\n91 Toolbar.UpdateLumivexIcon\n91 Toolbar.ClickOnAd\n91 Toolbar.ReprimeTimerCycle\n"
            "91 Toolbar.ValueChanged\n");
}

}  // namespace
}  // namespace strandline
