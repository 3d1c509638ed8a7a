// The dropped menu, and Word's own controls under the mouse.

#include "tests/wordsim/world_fixture.h"
#include "wordsim/popup_menu.h"

namespace strandline::wordsim {
namespace {

constexpr Rect kScreen{0, 0, 400, 300};

TEST(Menu_ItsPlace, IsBesideTheBar) {
  const struct {
    const char* where;
    Rect control;
    Rect bar;
    Point at;
  } kCases[] = {
      {"below", {10, 3, 80, 37}, {0, 0, 300, 40}, {10, 40}},
      {"above where there is no room", {10, 253, 80, 287}, {0, 250, 300, 290}, {10, 50}},
      {"kept on the screen", {350, 3, 390, 37}, {300, 0, 400, 40}, {300, 40}},
      {"right of an upright bar", {3, 10, 37, 44}, {0, 0, 40, 300}, {40, 10}},
      {"left of it where there is no room", {363, 150, 397, 184}, {360, 0, 400, 300}, {260, 100}},
  };
  for (const auto& each : kCases) {
    const Rect place = PlaceOfMenu({100, 200}, each.control, each.bar, kScreen);
    EXPECT_EQ(place, (Rect{each.at.x, each.at.y, each.at.x + 100, each.at.y + 200})) << each.where;
  }
}

class Menu : public WorldTest {
 protected:
  Menu() { Start(Begin()); }
  WordWorld& Start(WordWorld& world) {
    world.TheHooks().executeControl = [this](Long control) { did += "control " + std::to_string(control) + "|"; };
    world.TheHooks().executeEntry = [this](Long entry) { did += "entry " + std::to_string(entry) + "|"; };
    world.Open(u"A.doc");
    Wait(10);
    return world;
  }
  void Move(Point place) {
    Windows().MoveTo(place);
    Windows().DoEvents();
  }
  void ClickAt(Point place) {
    Move(place);
    Windows().Press(MouseButton::kLeft);
    Windows().Release(MouseButton::kLeft);
    Windows().DoEvents();
  }
  Point Middle(const Rect& area) { return {(area.left + area.right) / 2, (area.top + area.bottom) / 2}; }
  Point OnControl(Long control) {
    Point place = Middle(World().CellPlace(control));
    Windows().ClientToScreen(World().ActiveBarWindow(), place);
    return place;
  }
  Point OnEntry(const char16_t* caption) { return Middle(World().EntryPlace(caption)); }

  std::string did;
};

TEST_F(Menu, Opened_DropsBesideItsControlWithTheCapture) {
  ASSERT_TRUE(World().OpenMenu());
  const Long window = World().WindowByName("popup 1");
  ASSERT_TRUE(IsShown(window));
  EXPECT_EQ(RectOf(window).top, RectOf(World().ActiveBarWindow()).bottom);
  EXPECT_EQ(Windows().GetCapture(), window);
  EXPECT_EQ(Windows().GetActiveWindow(), World().ActiveTopWindow());
}

TEST_F(Menu, OpenedAgain_IsANewOne) {
  World().OpenMenu();
  const Long first = World().WindowByName("popup 1");
  World().OpenMenu();
  EXPECT_FALSE(Windows().IsWindow(first));
  EXPECT_TRUE(IsShown(World().WindowByName("popup 2")));
}

TEST_F(Menu, AnEntryClicked_IsPickedAndTheMenuCloses) {
  World().OpenMenu();
  Windows().ReleaseCapture();
  ClickAt(OnEntry(u"P&aragraph"));
  EXPECT_EQ(did, "entry 9|");
  EXPECT_FALSE(World().IsMenuOpen());
  EXPECT_EQ(Windows().GetCapture(), 0);
}

TEST_F(Menu, ADisabledEntryClicked_StaysWhereItIs) {
  Entry(9).Let("Enabled", false);
  World().OpenMenu();
  ClickAt(OnEntry(u"P&aragraph"));
  EXPECT_EQ(did, "");
  EXPECT_TRUE(World().IsMenuOpen());
  EXPECT_FALSE(World().PickEntry(u"P&aragraph"));
}

TEST_F(Menu, AHiddenEntry_LeavesNoGap) {
  World().OpenMenu();
  const Rect before = World().EntryPlace(u"&Quotation");
  Entry(9).Let("Visible", false);
  EXPECT_EQ(World().EntryPlace(u"P&aragraph"), Rect());
  EXPECT_EQ(World().EntryPlace(u"&Quotation").bottom, before.top);
}

TEST_F(Menu, WithTheCapture_ClosesAsThePointerLeaves) {
  World().OpenMenu();
  Move(OnEntry(u"P&aragraph"));
  EXPECT_TRUE(World().IsMenuOpen());
  Move(OnControl(5));
  EXPECT_FALSE(World().IsMenuOpen());
}

TEST_F(Menu, WithoutTheCapture_StaysUntilSomethingIsPressed) {
  World().OpenMenu();
  Windows().ReleaseCapture();
  Move(OnEntry(u"P&aragraph"));
  Move(OnControl(5));
  EXPECT_TRUE(World().IsMenuOpen());
  ClickAt({900, 500});
  EXPECT_FALSE(World().IsMenuOpen());
  EXPECT_EQ(did, "");
}

TEST_F(Menu, AnEntryUnderThePointer_LooksDifferent) {
  World().OpenMenu();
  Wait(10);
  const Rect row = World().EntryPlace(u"P&aragraph");
  const auto pixel = [&] { return *mDesk.Screen().At(row.right - 4, row.top + 2); };
  const auto before = pixel();
  Move(OnEntry(u"P&aragraph"));
  EXPECT_NE(pixel(), before);
  Move(OnEntry(u"&Quotation"));
  EXPECT_EQ(pixel(), before);
}

TEST_F(Menu, WhatTakesItsBarAway_ClosesIt) {
  World().Open(u"B.doc");
  Wait(10);
  const std::function<void()> kCases[] = {
      [&] { World().Activate(u"A.doc"); },  [&] { World().Cover(true); },
      [&] { World().Cover(false); },        [&] { World().DockBar(BarPosition::kLeft); },
      [&] { World().ShowDialog(112); },     [&] { World().Minimise(u"A.doc"); },
      [&] { Bar().Let("Visible", false); },
  };
  int number = 0;
  for (const auto& each : kCases) {
    World().OpenMenu();
    each();
    if (++number != 3) {
      EXPECT_FALSE(World().IsMenuOpen()) << number;
    }
    World().Cover(false);
    World().CloseMenu();
  }
  EXPECT_FALSE(World().OpenMenu()) << "a hidden bar has no control to drop it from";
}

TEST_F(Menu, TheWorldGone_IsGoneToo) {
  World().OpenMenu();
  const Long window = World().WindowByName("popup 1");
  mWorld.reset();
  EXPECT_FALSE(Windows().IsWindow(window));
}

TEST_F(Menu, ItsControlDeleted_GoesWithIt) {
  World().OpenMenu();
  const Long window = World().WindowByName("popup 1");
  Control(1).Call("Delete");
  EXPECT_FALSE(World().IsMenuOpen());
  EXPECT_FALSE(Windows().IsWindow(window));
  EXPECT_FALSE(World().OpenMenu());
}

TEST_F(Menu, ItsControlExecuted_DropsBeforeTheMacroRuns_AndAnotherOneClosesIt) {
  std::vector<bool> open;
  World().TheHooks().executeControl = [&](Long) { open.push_back(World().IsMenuOpen()); };
  for (const Long control : {1, 1, 5, 1}) Control(control).Call("Execute");
  EXPECT_EQ(open, (std::vector<bool>{true, true, false, true}));
  World().TheHooks().executeControl = nullptr;
  Entry(9).Call("Execute");
  EXPECT_FALSE(World().IsMenuOpen());
  Control(1).Call("Execute");
  EXPECT_TRUE(World().IsMenuOpen()) << "whether or not anybody plays its macro";
}

TEST_F(Menu, ItsControlExecutedOnAHiddenBar_RunsWithoutAMenu) {
  Bar().Let("Visible", false);
  Control(1).Call("Execute");
  EXPECT_FALSE(World().IsMenuOpen());
  EXPECT_EQ(did, "control 1|");
}

TEST_F(Menu, WhileADialogIsOpen_NothingCanBeExecuted) {
  std::vector<Long> numbers;
  World().TheHooks().showDialog = [&](Long) {
    for (const Object& each : {Control(1), Control(5), Entry(9)}) {
      numbers.push_back(NumberRaised([&] { each.Call("Execute"); }));
    }
    EXPECT_FALSE(World().IsMenuOpen());
  };
  World().ShowDialog(112);
  EXPECT_EQ(numbers, std::vector<Long>(3, word_errors::kNotAvailable));
  EXPECT_EQ(did, "");
  Control(5).Call("Execute");
  EXPECT_EQ(did, "control 5|");
}

using OwnControls = Menu;

TEST_F(OwnControls, ClickedWithTheMouse_Run) {
  ClickAt(OnControl(5));
  EXPECT_EQ(did, "control 5|");
}

TEST_F(OwnControls, ReleasedElsewhere_DontRun) {
  Move(OnControl(5));
  Windows().Press(MouseButton::kLeft);
  Move(OnControl(6));
  Windows().Release(MouseButton::kLeft);
  Windows().DoEvents();
  Windows().Release(MouseButton::kLeft);
  Windows().DoEvents();
  EXPECT_EQ(did, "");
}

TEST_F(OwnControls, OnesThatCantRun_Dont) {
  Control(5).Let("Enabled", false);
  ClickAt(OnControl(5));
  const Point six = OnControl(6);
  World().DropCell(6, true);
  ClickAt(six);
  World().TheHooks().showDialog = [&](Long) { ClickAt(OnControl(7)); };
  World().ShowDialog(112);
  EXPECT_EQ(did, "");
  ClickAt(OnControl(7));
  EXPECT_EQ(did, "control 7|");
}

TEST_F(OwnControls, AMacroThatClosesTheDocument_EndsTheClickInPeace) {
  World().Open(u"B.doc");
  Wait(10);
  World().TheHooks().executeControl = [&](Long) { World().Close(u"B.doc"); };
  const Long bar = World().ActiveBarWindow();
  ClickAt(OnControl(5));
  EXPECT_FALSE(Windows().IsWindow(bar));
  EXPECT_EQ(World().Documents().size(), 1u);
}

TEST_F(OwnControls, TheMenusControl_OpensOnThePressAndClosesOnTheNext) {
  Move(OnControl(1));
  Windows().Press(MouseButton::kLeft);
  Windows().DoEvents();
  EXPECT_TRUE(World().IsMenuOpen());
  Windows().Release(MouseButton::kLeft);
  Windows().DoEvents();
  EXPECT_TRUE(World().IsMenuOpen());
  Windows().ReleaseCapture();
  ClickAt(OnControl(1));
  EXPECT_FALSE(World().IsMenuOpen());
  EXPECT_EQ(did, "control 1|");
}

}  // namespace
}  // namespace strandline::wordsim
