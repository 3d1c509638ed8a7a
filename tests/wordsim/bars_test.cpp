#include "tests/wordsim/world_fixture.h"

namespace strandline::wordsim {
namespace {

using BarsTest = WorldTest;

constexpr Long kWmDestroy = 2;

// Keeps the messages of a window that pass its hook.
class Spy final : public MessageSink {
 public:
  Spy(desk::WindowSystem& windows, Long hwnd) : mHook(windows.Create()) {
    mHook->SetSink(this);
    mHook->Subclass(hwnd);
  }
  ~Spy() { mHook->SetSink(nullptr); }
  void BeforeMessage(Long message, Long wParam, Long lParam, Long&, Boolean&) override {
    messages.push_back({0, message, wParam, lParam, 0, {}});
    if (onMessage) onMessage(message);
  }
  Long CountOf(Long number) const {
    Long count = 0;
    for (const Message& message : messages) count += message.message == number;
    return count;
  }

  std::vector<Message> messages;
  std::function<void(Long)> onMessage;

 private:
  Ref<Subclasser> mHook;
};

TEST_F(BarsTest, AnUnknownBarOrControl_IsRefused) {
  EXPECT_EQ(NumberRaised([&] { Bar(u"Nobody"); }), errors::kInvalidArgument);
  EXPECT_EQ(NumberRaised([&] { Control(17); }), errors::kSubscriptOutOfRange);
  EXPECT_EQ(NumberRaised([&] { Control(0); }), errors::kSubscriptOutOfRange);
  EXPECT_EQ(NumberRaised([&] { Controls().Get("Item", u"Nobody"); }), errors::kInvalidArgument);
  EXPECT_EQ(NumberRaised([&] { Control(2).Get("Controls"); }), errors::kNoSuchMember);
}

TEST_F(BarsTest, TheMenu_HasItsEntriesAtTheirPlaces) {
  World();
  const std::pair<Long, const char16_t*> kEntries[] = {
      {17, u"Go to quick bookmark"},    {18, u"&Apply Quillmere to this document..."},
      {19, u"C&onfigure Quillmere..."}, {21, u"Open User &Manual"},
      {22, u"&Shrink Toolbar"},         {25, u"About Quillmere / Login to Quillmere..."},
      {26, u"Contact S&upport..."},
  };
  for (const auto& [position, caption] : kEntries) EXPECT_EQ(Entry(position).Get("Caption").ToText(), caption);
  EXPECT_EQ(Controls().Get("Item", u"QUILLMERE").ToObject(), Control(1));
  const Object entries = Control(1).Get("Controls").ToObject();
  EXPECT_EQ(entries.Get("Item", u"go to Quick bookmark").ToObject(), Entry(17));
  EXPECT_EQ(entries.Get("Item", u"Open User Manual").ToObject(), Entry(21));
}

TEST_F(BarsTest, ControlsStandOnTheScreen_WhereTheirCellsAre) {
  World().Open(u"A.doc");
  const Rect bar = RectOf(World().ActiveBarWindow());
  EXPECT_EQ(bar.bottom - bar.top, 40);
  EXPECT_EQ(Control(1).Get("Left").ToLong(), bar.left + 8);
  EXPECT_EQ(Control(1).Get("Top").ToLong(), bar.top + 3);
  EXPECT_EQ(Control(1).Get("Height").ToLong(), 34);
  EXPECT_EQ(Control(2).Get("Left").ToLong(), Control(1).Get("Left").ToLong() + Control(1).Get("Width").ToLong());
  EXPECT_EQ(Control(16).Get("Left").ToLong() + Control(16).Get("Width").ToLong() + 3, bar.right);
  for (Long i = 1; i <= 16; ++i) EXPECT_FALSE(Control(i).Get("IsPriorityDropped").ToBoolean()) << i;
}

TEST_F(BarsTest, HeightAndNumberOfControls_AreTheScenes) {
  Settings settings;
  settings.controlHeight = 50;
  settings.controlCount = 18;
  Begin(settings).Open(u"A.doc");
  EXPECT_EQ(Controls().Get("Count").ToLong(), 18);
  EXPECT_EQ(Control(18).Get("Height").ToLong(), 50);
  settings.controlCount = 0;
  Begin(settings).Open(u"A.doc");
  EXPECT_EQ(Controls().Get("Count").ToLong(), 0);
}

TEST_F(BarsTest, CellsAndDropping_FollowTheHand) {
  World().Open(u"A.doc");
  const Rect bar = RectOf(World().ActiveBarWindow());
  EXPECT_TRUE(World().PlaceCell(3, {100, 5, 120, 25}));
  EXPECT_EQ(Control(3).Get("Left").ToLong(), bar.left + 100);
  EXPECT_EQ(Control(3).Get("Width").ToLong(), 20);
  EXPECT_TRUE(World().DropCell(4, true));
  EXPECT_TRUE(Control(4).Get("IsPriorityDropped").ToBoolean());
  EXPECT_TRUE(World().DropCell(4, false));
  EXPECT_FALSE(Control(4).Get("IsPriorityDropped").ToBoolean());
  EXPECT_FALSE(World().DropCell(17, true));
  EXPECT_FALSE(World().PlaceCell(0, {}));
}

TEST_F(BarsTest, ANarrowBar_DropsItsLastControls_UntilThereIsRoomAgain) {
  World().Open(u"A.doc");
  const Long width = RectOf(World().ActiveBarWindow()).right - RectOf(World().ActiveBarWindow()).left;
  EXPECT_TRUE(World().ResizeBar(400, 40));
  EXPECT_TRUE(Control(16).Get("IsPriorityDropped").ToBoolean());
  EXPECT_FALSE(Control(5).Get("IsPriorityDropped").ToBoolean());
  EXPECT_TRUE(World().ResizeBar(width, 40));
  EXPECT_FALSE(Control(16).Get("IsPriorityDropped").ToBoolean());
}

TEST_F(BarsTest, AResize_SendsTheSize_AndItsPaintFollows) {
  World().Open(u"A.doc");
  Wait(0);
  const Long hwnd = World().ActiveBarWindow();
  Spy spy(Windows(), hwnd);
  World().ResizeBar(600, 60);
  ASSERT_EQ(spy.messages.size(), 2u);
  EXPECT_EQ(spy.messages[0].message, wm::kSize);
  EXPECT_EQ(spy.messages[0].lParam, 60 << 16 | 600);
  EXPECT_EQ(spy.messages[1].message, wm::kPaint);
  const Rect bar = RectOf(hwnd);
  EXPECT_EQ(bar.right - bar.left, 600);
  EXPECT_EQ(bar.bottom - bar.top, 60);
}

TEST_F(BarsTest, AHiddenBar_HidesItsWindow_AndMakesRoom) {
  World().Open(u"A.doc");
  const Long hwnd = World().ActiveBarWindow();
  EXPECT_TRUE(IsShown(hwnd));
  const Rect paper = RectOf(World().WindowByName("paper 1"));
  Bar().Let("Visible", false);
  EXPECT_FALSE(IsShown(hwnd));
  EXPECT_LT(RectOf(World().WindowByName("paper 1")).top, paper.top);
  Bar().Let("Visible", true);
  EXPECT_TRUE(IsShown(hwnd));
  EXPECT_EQ(RectOf(World().WindowByName("paper 1")), paper);
}

TEST_F(BarsTest, ALateBar_AppearsAfterItsTime_ForEachDocument) {
  Settings settings;
  settings.barLate = 300;
  Begin(settings).Open(u"A.doc");
  EXPECT_EQ(World().ActiveBarWindow(), 0);
  Wait(299);
  EXPECT_EQ(World().ActiveBarWindow(), 0);
  Wait(1);
  EXPECT_TRUE(IsShown(World().ActiveBarWindow()));
  World().Open(u"B.doc");
  EXPECT_EQ(World().ActiveBarWindow(), 0);
  World().Close(u"B.doc");
  Wait(1000);
  EXPECT_TRUE(IsShown(World().ActiveBarWindow()));
}

TEST_F(BarsTest, ALateBar_CountsFromWhenItIsWanted) {
  Settings settings;
  settings.barLate = 300;
  Begin(settings);
  Bar().Let("Visible", false);
  World().Open(u"A.doc");
  Wait(1000);
  EXPECT_EQ(World().ActiveBarWindow(), 0);
  Bar().Let("Visible", true);
  Wait(299);
  EXPECT_EQ(World().ActiveBarWindow(), 0);
  Wait(1);
  EXPECT_NE(World().ActiveBarWindow(), 0);
}

TEST_F(BarsTest, TheLastRow_IsARowOfItsOwn) {
  World().Open(u"A.doc");
  Bar(u"Drawing").Let("Position", Long{1});
  Bar().Let("RowIndex", Long{-1});
  Bar().Let("Left", Long{0});
  EXPECT_EQ(Bar().Get("RowIndex").ToLong(), 2);
  const Rect drawing = RectOf(World().WindowByName("drawing 2"));
  const Rect bar = RectOf(World().ActiveBarWindow());
  EXPECT_EQ(bar.top, drawing.bottom);
  EXPECT_EQ(bar.left, drawing.left);
}

TEST_F(BarsTest, OnTheRowOfTheDrawingBar_TheProductsBarStandsAtItsRight_Whole) {
  Settings settings;
  settings.barPosition = BarPosition::kBottom;
  Begin(settings).Open(u"A.doc");
  Bar(u"Drawing").Let("Position", Long{3});
  Bar(u"Drawing").Let("RowIndex", Long{1});
  Bar(u"Drawing").Let("Left", Long{0});
  Bar().Let("RowIndex", Long{1});
  Bar().Let("Left", Long{999});
  const Rect drawing = RectOf(World().WindowByName("drawing 1"));
  const Rect bar = RectOf(World().ActiveBarWindow());
  EXPECT_EQ(bar.top, drawing.top);
  EXPECT_GE(bar.left, drawing.right);
  EXPECT_FALSE(Control(16).Get("IsPriorityDropped").ToBoolean());
}

TEST_F(BarsTest, ADragToAnotherDock_PassesTheCaptureToTheNewWindow) {
  World().Open(u"A.doc");
  const Long old = World().ActiveBarWindow();
  Spy spy(Windows(), old);
  Long found = 0;
  spy.onMessage = [&](Long message) {
    if (message == wm::kCaptureChanged) found = FindBar();
  };
  EXPECT_TRUE(World().DockBar(BarPosition::kLeft));
  const Long made = World().ActiveBarWindow();
  EXPECT_NE(made, old);
  EXPECT_EQ(found, made);
  EXPECT_FALSE(Windows().IsWindow(old));
  EXPECT_TRUE(IsShown(made));
  EXPECT_EQ(Windows().GetCapture(), 0);
  ASSERT_EQ(spy.CountOf(wm::kCaptureChanged), 1);
  EXPECT_EQ(spy.messages.front().message, wm::kCaptureChanged);
  EXPECT_EQ(spy.messages.front().lParam, made);
  EXPECT_EQ(spy.CountOf(kWmDestroy), 1);
  EXPECT_EQ(Bar().Get("Position").ToLong(), 0);
  EXPECT_EQ(World().WindowName(made), "bar 2");
}

TEST_F(BarsTest, ADraggedBar_KeepsItsDockToTheNextDocument) {
  World().Open(u"A.doc");
  World().DockBar(BarPosition::kFloating);
  const String title = u"Quillmere";
  EXPECT_EQ(Windows().FindWindowA(nullptr, &title), World().ActiveBarWindow());
  World().Open(u"B.doc");
  EXPECT_EQ(Windows().FindWindowA(nullptr, &title), World().ActiveBarWindow());
  EXPECT_FALSE(IsShown(World().BarWindowOf(u"A.doc")));
  World().Activate(u"A.doc");
  EXPECT_EQ(Windows().FindWindowA(nullptr, &title), World().ActiveBarWindow());
}

TEST_F(BarsTest, NumbersBeyondAllReason_AreBorne) {
  constexpr Long kMost = 2147483647;
  constexpr Long kLeast = -kMost - 1;
  Settings settings;
  settings.controlHeight = kMost;
  settings.controlCount = kMost;
  settings.barLate = kLeast;
  Begin(settings).Open(u"A.doc");
  EXPECT_TRUE(World().PlaceCell(3, {kLeast, kLeast, kMost, kMost}));
  Control(3).Get("Left");
  EXPECT_TRUE(World().ResizeBar(kMost, kLeast));
  EXPECT_TRUE(World().Type(u"A.doc", kMost));
  EXPECT_TRUE(World().Type(u"A.doc", kMost));
  EXPECT_GT(ActiveDocument().Get("Characters").ToObject().Get("Count").ToLong(), 0);
  Bar().Let("Left", kLeast);
  Bar().Let("Left", kMost);
  EXPECT_NE(NumberRaised([&] { Bar().Let("RowIndex", kMost); }), 0);
  EXPECT_NE(NumberRaised([&] { Control(1).Let("Height", kMost); }), 0);
  EXPECT_NE(NumberRaised([&] { Control(1).Let("Width", Long{-1}); }), 0);
  Wait(10);
}

TEST_F(BarsTest, ALateFloatingBar_IsNotMistakenForAnotherDocumentsBar) {
  Settings settings;
  settings.barPosition = BarPosition::kFloating;
  settings.barLate = 100;
  Begin(settings).Open(u"A.doc");
  Wait(100);
  EXPECT_EQ(FindBar(), World().ActiveBarWindow());
  World().Open(u"B.doc");
  EXPECT_EQ(FindBar(), 0);
  Wait(100);
  EXPECT_EQ(FindBar(), World().BarWindowOf(u"B.doc"));
  World().Activate(u"A.doc");
  EXPECT_EQ(FindBar(), World().BarWindowOf(u"A.doc"));
}

TEST_F(BarsTest, ShrunkControls_MakeASmallBar) {
  World().Open(u"A.doc");
  Control(16).Call("Delete");
  EXPECT_EQ(Controls().Get("Count").ToLong(), 15);
  for (Long i = 1; i <= 15; ++i) {
    Control(i).Let("Height", Long{22});
    if (i > 1) Control(i).Let("Width", Long{22});
  }
  const Rect bar = RectOf(World().ActiveBarWindow());
  EXPECT_EQ(bar.bottom - bar.top, 28);
  EXPECT_EQ(bar.right - bar.left, 8 + 72 + 14 * 22 + 3);
  EXPECT_EQ(Control(15).Get("Left").ToLong(), bar.left + 8 + 72 + 13 * 22);
}

TEST_F(BarsTest, ADeletedControl_IsGone_AndTheOthersMoveUp) {
  Settings settings;
  settings.controlCount = 17;
  Begin(settings).Open(u"A.doc");
  const Object offer = Control(16);
  const Object extra = Control(17);
  offer.Call("Delete");
  EXPECT_EQ(NumberRaised([&] { offer.Get("Caption"); }), word_errors::kObjectDeleted);
  EXPECT_EQ(JournalNameOf(offer), "control 16");
  EXPECT_EQ(Control(16), extra);
}

TEST_F(BarsTest, Execute_RunsTheMacroOfControlOrEntry) {
  World().Open(u"A.doc");
  std::vector<Long> run;
  World().TheHooks().executeControl = [&](Long control) { run.push_back(control); };
  World().TheHooks().executeEntry = [&](Long entry) { run.push_back(100 + entry); };
  Control(14).Call("Execute");
  Entry(22).Call("Execute");
  EXPECT_TRUE(World().PickEntry(u"&Shrink Toolbar"));
  Entry(22).Let("Visible", false);
  EXPECT_FALSE(World().PickEntry(u"&Shrink Toolbar"));
  EXPECT_EQ(run, (std::vector<Long>{14, 122, 122}));
  Control(2).Let("Enabled", false);
  EXPECT_NE(NumberRaised([&] { Control(2).Call("Execute"); }), 0);
}

TEST_F(BarsTest, AFaceThatIsGiven_ShowsOnTheBar) {
  Settings settings;
  settings.hasIcon = true;
  Begin(settings).Open(u"A.doc");
  Wait(0);
  const auto cell = [&] {
    const Rect bar = RectOf(World().ActiveBarWindow());
    const Rect place = World().CellPlace(2);
    std::vector<std::uint32_t> pixels;
    for (Long y = place.top; y < place.bottom; ++y) {
      for (Long x = place.left; x < place.right; ++x) {
        pixels.push_back(*mDesk.Screen().At(bar.left + x, bar.top + y));
      }
    }
    return pixels;
  };
  const auto before = cell();
  Control(2).Let("Picture", World().ProductState().Get("icon").ToPicture());
  Wait(0);
  EXPECT_NE(cell(), before);
}

}  // namespace
}  // namespace strandline::wordsim
