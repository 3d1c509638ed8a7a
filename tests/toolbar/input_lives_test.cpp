// Clicks whose command takes the ground away: the product's macros close documents, shrink the toolbar, quit the
// library, while the click that ran them isn't over.

#include "tests/addin/main2_fixture.h"

namespace strandline {
namespace {

class ClickLives : public Main2Test {
 protected:
  void BeginWithDocument(bool lumivex = false) {
    WorldOptions options = ForWord(u"11.0");
    options.word.lumivexEnabled = lumivex;
    Begin(options).Open(u"One.doc");
    Settle();
  }
  void Settle() {
    TheWorld().desk.Clock().Wait(1000);
    Did().Clear();
  }
  void OnExecute(std::function<void(Long control)> macro) { Word().TheHooks().executeControl = std::move(macro); }

  // What the user's hand brings, each to the window over which it happens.
  void MoveTo(Long cell) {
    const Rect place = Word().CellPlace(cell);
    Rect bar;
    TheWorld().desk.Windows().GetWindowRect(Word().ActiveBarWindow(), bar);
    mAt = {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    mWindow = Word().ActiveBarWindow();
    TheWorld().desk.Host().PlacePointer({bar.left + mAt.x, bar.top + mAt.y});
    Send(wm::kMouseMove, 0);
  }
  Long Send(Long message, Long wParam) {
    return TheWorld().desk.Windows().SendMessageA(mWindow, message, wParam, mAt.y * 65536 + mAt.x);
  }
  void ClickOn(Long cell) {
    MoveTo(cell);
    Send(wm::kLButtonDown, 1);
    Send(wm::kLButtonUp, 0);
  }
  Buttons* StripOf(Toolbar* toolbar) {
    return toolbar ? dynamic_cast<Buttons*>(VariableSnapshot::Of(*toolbar)[u"mButtons"].ToObject().Target()) : nullptr;
  }
  void ExpectNoErrors() {
    EXPECT_EQ(Block(Did().Errors()), "");
    EXPECT_EQ(TheWorld().desk.Misuses().All().size(), 0u);
  }

 private:
  Point mAt;
  Long mWindow = 0;
};

constexpr Long kCells[] = {1, 5, 14, 16};

TEST_F(ClickLives, AMacroThatClosesTheDocument_EndsTheClickInPeace) {
  for (const Long cell : kCells) {
    SCOPED_TRACE(cell);
    BeginWithDocument();
    bool closed = false;
    OnExecute([&](Long) { closed = TheWorld().Close(u"One.doc"); });
    ClickOn(cell);
    EXPECT_TRUE(closed);
    ExpectNoErrors();
    Settle();
    ExpectNoErrors();
  }
}

TEST_F(ClickLives, AMacroThatClosesOneOfTwoDocuments_LeavesTheOtherOnesStripAlive) {
  BeginWithDocument();
  TheWorld().Open(u"Two.doc");
  Settle();
  const Ref<Toolbar> closed(ToolbarOf(Word().ActiveTopWindow()));
  OnExecute([&](Long) { TheWorld().Close(u"Two.doc"); });
  ClickOn(5);
  ExpectNoErrors();
  TheWorld().Main().HandleDocumentChange();
  Settle();
  int runs = 0;
  OnExecute([&](Long) { ++runs; });
  ClickOn(6);
  EXPECT_EQ(runs, 1);
  ExpectNoErrors();
}

TEST_F(ClickLives, AMacroThatQuits_LetsTheClickEndAndTheStripGo) {
  for (const Long cell : kCells) {
    SCOPED_TRACE(cell);
    BeginWithDocument();
    OnExecute([&](Long) { Main().Quit(); });
    const int contexts = TheWorld().desk.Objects().Count(desk::ObjectKind::kContext);
    ClickOn(cell);
    EXPECT_EQ(Registry(), "");
    EXPECT_LE(TheWorld().desk.Objects().Count(desk::ObjectKind::kContext), contexts);
    EXPECT_EQ(TheWorld().desk.Windows().LiveHooks(), 0u);
    EXPECT_EQ(TheWorld().desk.Misuses().All().size(), 0u);
  }
}

TEST_F(ClickLives, AMacroThatShrinksTheToolbar_EndsTheClickWithoutAStrip) {
  for (const Long cell : kCells) {
    SCOPED_TRACE(cell);
    BeginWithDocument();
    OnExecute([&](Long) { Main().ShrinkToolbar(); });
    ClickOn(cell);
    ExpectNoErrors();
    EXPECT_EQ(TheWorld().desk.Windows().LiveHooks(), 0u);
    Settle();
    ExpectNoErrors();
  }
}

TEST_F(ClickLives, AMacroThatOpensADocument_IsFollowedByTheNextClickThere) {
  BeginWithDocument();
  OnExecute([&](Long) { TheWorld().Open(u"Two.doc"); });
  ClickOn(5);
  ExpectNoErrors();
  Settle();
  int runs = 0;
  OnExecute([&](Long) { ++runs; });
  ClickOn(5);
  EXPECT_EQ(runs, 1);
  ExpectNoErrors();
}

TEST_F(ClickLives, TheProductsToggle_ReachesTheStripThatWasClicked) {
  BeginWithDocument(false);
  OnExecute([&](Long control) {
    if (control == 14) Main().ToggleLumivex();
  });
  Buttons* const strip = StripOf(ToolbarOf(Word().ActiveTopWindow()));
  ASSERT_NE(strip, nullptr);
  const auto state = [&] { return VariableSnapshot::Of(*strip).Number(u"mLumivexButtonState"); };
  ASSERT_EQ(state(), 2);
  ClickOn(14);
  EXPECT_EQ(state(), 1);
  ClickOn(14);
  EXPECT_EQ(state(), 2);
  // The press on the sticky cell was never taken back, and neither is it by its becoming an ordinary one.
  EXPECT_EQ(VariableSnapshot::Of(*strip).Number(u"mButtonState"), 1);
  ExpectNoErrors();
}

// The strip dies inside its own click: it is held until the click is over.
TEST_F(ClickLives, AStripThatIsLetGoInItsClick_LivesToItsEnd) {
  BeginWithDocument();
  TextLines order;
  OnExecute([&](Long) {
    Inside::RemoveToolbarImpl(Main(), Word().ActiveTopWindow());
    order.push_back("removed");
  });
  Did().during = [&](const Doings::Line& line) {
    if (line.text == "log 0 Buttons terminated") order.push_back("terminated");
    if (line.text.starts_with("call tooltip Hide")) order.push_back("hidden");
  };
  ClickOn(5);
  Did().during = nullptr;
  EXPECT_EQ(Block(order), Block({"removed", "hidden", "terminated"}));
  ExpectNoErrors();
}

}  // namespace
}  // namespace strandline
