// What of the bar stays usable while no document is open.

#include "drawing/ToolbarUtilities.h"
#include "tests/addin/main2_fixture.h"

namespace strandline {
namespace {

class EmptyToolbar : public Main2Test {
 protected:
  void Toggle(bool enabled) { Inside::ToggleToolbarForNoDocuments(Main(), enabled); }
  TextLines Writes() { return Did().Of(Doings::kUse, "let"); }
};

// Documents, the state before, what is asked for, the state after, and whether anything was done.
TEST_F(EmptyToolbar, Toggle_ConcernsTheStepBetweenNoneAndOneDocument) {
  const struct {
    int documents;
    bool before;
    bool asked;
    bool after;
    bool acts;
  } cases[] = {
      {0, false, true, true, true},    {0, true, false, false, true},   {0, true, true, true, false},
      {0, false, false, false, false}, {1, false, true, true, true},    {1, true, false, false, true},
      {1, true, true, true, false},    {1, false, false, false, false}, {2, false, true, false, false},
      {2, true, false, true, false},   {3, true, false, true, false},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(std::to_string(row.documents) + (row.before ? " on" : " off") + (row.asked ? " to on" : " to off"));
    Begin(u"11.0");
    const char16_t* names[] = {u"One.doc", u"Two.doc", u"Three.doc"};
    for (int i = 0; i < row.documents; ++i) Word().Open(names[i]);
    Inside::Enabled(Main()) = row.before;
    Did().Clear();
    Toggle(row.asked);
    EXPECT_EQ(Inside::Enabled(Main()), row.after);
    EXPECT_EQ(Did().Count(Doings::kLog, std::string("log 0 ToggleToolbar ") + (row.asked ? "True" : "False")),
              row.acts ? 1u : 0u);
    EXPECT_EQ(Did().Count(Doings::kLog, "log 0 ToggleToolbar"), row.acts ? 1u : 0u);
  }
}

// In either form, on a bar that isn't as it would be written.
TEST_F(EmptyToolbar, ToggleThatDoesntAct_WritesNothing) {
  const struct {
    bool isSmall;
    int documents;
    bool before;
    bool asked;
  } cases[] = {{false, 1, true, true}, {false, 0, false, false}, {false, 2, true, false}, {false, 2, false, true},
               {true, 1, true, true},  {true, 0, false, false},  {true, 2, true, false},  {true, 2, false, true}};
  for (const auto& row : cases) {
    SCOPED_TRACE(std::string(row.isSmall ? "small " : "full ") + std::to_string(row.documents) +
                 (row.before ? " on" : " off") + (row.asked ? " to on" : " to off"));
    Begin(u"11.0");
    if (row.isSmall) ShrinkForReal();
    if (row.before) Toggle(true);
    const char16_t* names[] = {u"One.doc", u"Two.doc"};
    for (int i = 0; i < row.documents; ++i) Word().Open(names[i]);
    TheWorld().Bar().Let("Visible", !row.asked);
    Did().Clear();
    Toggle(row.asked);
    EXPECT_EQ(Block(Writes()), "");
    EXPECT_TRUE(Did().Logs().empty());
    EXPECT_EQ(BarShows(), !row.asked);
    EXPECT_EQ(Inside::Enabled(Main()), row.before);
  }
}

TEST_F(EmptyToolbar, State_IsKeptBeforeItIsLogged) {
  TheWorld();
  std::string state = "no log";
  Did().during = [&](const Doings::Line& line) {
    if (line.text == "log 0 ToggleToolbar True") state = Inside::Enabled(Main()) ? "on" : "off";
  };
  Toggle(true);
  Did().during = nullptr;
  EXPECT_EQ(state, "on");
}

TEST_F(EmptyToolbar, FullToolbar_IsShownAndHidden) {
  TheWorld();
  Inside::Enabled(Main()) = true;
  Toggle(false);
  EXPECT_FALSE(BarShows());
  EXPECT_EQ(Block(Writes()), "let bar Quillmere visible(False)\n");
  Did().Clear();
  Toggle(true);
  EXPECT_TRUE(BarShows());
  EXPECT_EQ(Block(Writes()), "let bar Quillmere visible(True)\n");
}

// The offer stands only on a bar that was small before the library came.
TEST_F(EmptyToolbar, SmallToolbar_KeepsTheManualAndTheOfferUsable) {
  for (const bool wasSmall : {true, false}) {
    Begin(wasSmall ? WithSmallBar() : WorldOptions());
    ShrinkForReal();
    Toggle(true);
    Did().Clear();
    Toggle(false);
    TextLines expected;
    for (int i = 1; i <= (wasSmall ? 16 : 15); ++i) {
      expected.push_back("let control " + std::to_string(i) + " Enabled(" + (i >= 15 ? "True)" : "False)"));
    }
    EXPECT_EQ(Block(Writes()), Block(expected));
    EXPECT_EQ(Did().Count(Doings::kUse, "get controls of bar Quillmere count()"), 1u) << "counted once";
    EXPECT_TRUE(BarShows());
  }
}

TEST_F(EmptyToolbar, SmallToolbarWithADocument_IsUsableAltogether) {
  Begin(WithSmallBar());
  ShrinkForReal();
  Toggle(true);
  TextLines expected;
  for (int i = 1; i <= 16; ++i) expected.push_back("let control " + std::to_string(i) + " Enabled(True)");
  EXPECT_EQ(Block(Writes()), Block(expected));
  EXPECT_TRUE(Did().Errors().empty());
}

TEST_F(EmptyToolbar, SmallToolbarThatWasHidden_IsShown) {
  for (const bool enabled : {true, false}) {
    Begin(u"11.0");
    ShrinkForReal();
    if (!enabled) Toggle(true);
    TheWorld().Bar().Let("Visible", false);
    Toggle(enabled);
    EXPECT_TRUE(BarShows());
  }
}

// A bar may have more or fewer controls than the strip has cells.
TEST_F(EmptyToolbar, OtherNumbersOfControls_AreAllGoneThrough) {
  for (const Long count : {0, 1, 15, 18}) {
    SCOPED_TRACE(count);
    WorldOptions options = WithSmallBar();
    options.word.controlCount = count;
    Begin(options);
    ShrinkForReal();
    Toggle(true);
    Did().Clear();
    Toggle(false);
    EXPECT_EQ(Writes().size(), static_cast<std::size_t>(count));
    // Beyond the cells there is no list.
    EXPECT_EQ(Did().Errors().size(), count > 16 ? 2u : 0u);
    for (const std::string& error : Did().Errors()) EXPECT_EQ(error, "9 ToolbarUtilities.EnableList");
  }
}

TEST_F(EmptyToolbar, ControlThatCantBeWritten_EndsTheRound) {
  TheWorld();
  ShrinkForReal();
  Word().Faults().Arm("control 4", "Enabled");
  Toggle(true);
  EXPECT_EQ(Block(Did().Errors()), "1000 Main2.ToggleToolbarForNoDocuments\n");
  EXPECT_EQ(Did().Count(Doings::kUse, "let control 5"), 0u);
  EXPECT_TRUE(Inside::Enabled(Main()));
}

TEST_F(EmptyToolbar, ControlThatCantBeWritten_CanBePassedOver) {
  TheWorld();
  ShrinkForReal();
  Word().Faults().Arm("control 4", "Enabled");
  TheWorld().AnswerErrors({5});
  Toggle(true);
  EXPECT_EQ(Did().Count(Doings::kUse, "let control 15 Enabled(True)"), 1u);
}

}  // namespace
}  // namespace strandline
