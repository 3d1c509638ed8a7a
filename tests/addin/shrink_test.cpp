// From the full toolbar to the small one: the steps in their order, what comes again later, and what fails.

#include "drawing/ToolbarUtilities.h"
#include "tests/addin/main2_fixture.h"
#include "wordsim/product_objects.h"

namespace strandline {
namespace {

constexpr Long kPictureOfTheSecondProduct = 218;

class Shrink : public Main2Test {
 protected:
  static WorldOptions Height(Long height, const char16_t* version = u"11.0") {
    WorldOptions options = ForWord(version);
    options.word.controlHeight = height;
    return options;
  }
  World& BeginWithDocument(const WorldOptions& options = Height(30)) {
    World& world = Begin(options);
    world.Open(u"One.doc");
    world.did.Clear();
    return world;
  }
  wordsim::BarControl& Control(Long position) { return *Word().ProductBar().Controls().Control(position); }
  Long Controls() { return Word().ProductBar().Controls().Count(); }
  Object ControlObject(Long position) { return Ref<wordsim::BarControl>(&Control(position)); }
  Object EntryObject(Long position) { return Ref<wordsim::BarControl>(Control(1).Popup()->Control(position)); }
  Long Number(const Object& object, const char* member) { return object.Get(Name::FromText(member)).ToLong(); }
  bool EntryShows() { return Control(1).Popup()->Control(22)->IsVisible(); }
  Long Protection() { return Number(TheWorld().Bar(), "Protection"); }
  TextLines Pictures() { return Did().Of(Doings::kPicture); }
  static std::string SmallTooltip(Integer index) { return ToUtf8(ToolbarUtilities::tooltipText(index, true)); }
  // Writes, calls, loads, logs, messages that run and boxes, in their order; of the strips' own doings none.
  std::string Steps() {
    std::string steps;
    for (const Doings::Line& line : Did().All()) {
      const std::string& text = line.text;
      const bool isWrite = line.kind == Doings::kUse && (text.starts_with("let ") || text.starts_with("call "));
      const bool isRun = line.kind == Doings::kService && text.starts_with("DoEvents");
      const bool isOwnLog = line.kind == Doings::kLog && text.find("Elite") != std::string::npos;
      const bool isTold = line.kind == Doings::kPicture || line.kind == Doings::kBox || line.kind == Doings::kError;
      if (isWrite || isRun || isOwnLog || isTold) steps += (isRun ? "DoEvents" : text) + "\n";
    }
    return steps;
  }
  // The steps of one button that is shrunk.
  static std::string Shrunk(Integer index) {
    const std::string control = "let control " + std::to_string(index);
    return control + " height(22)\n" + control + " width(22)\n" + Renewed(index);
  }
  static std::string Renewed(Integer index) {
    return "let control " + std::to_string(index) + " tooltipText(" + SmallTooltip(index) + ")\n";
  }
  static std::string Painted(Integer index) {
    const std::string control = "let control " + std::to_string(index);
    return "picture " + std::to_string(index + 200) + " own\n" + control + " Picture(picture)\n" + control +
           " Mask(picture)\n";
  }
  // What comes behind the buttons.
  static std::string Ended() {
    return "DoEvents\nlet bar Quillmere Protection(1)\nlet control 14 tooltipText(" +
           ToUtf8(ToolbarUtilities::lumivexCaption(false)) +
           ")\nlet control 14 state(0)\ncall properties ExecuteQLMCommand(LumivexToggled)\n";
  }
};

// ---- The way to the small toolbar.

TEST_F(Shrink, TallBar_LosesItsOffer_AndEveryButtonBecomesSmall) {
  BeginWithDocument();
  const Long menuWidth = Number(ControlObject(1), "Width");
  Main().ShrinkToolbar();
  EXPECT_EQ(Controls(), 15);
  EXPECT_EQ(Number(ControlObject(1), "Height"), 22);
  EXPECT_EQ(Number(ControlObject(1), "Width"), menuWidth);
  for (Long i = 2; i <= 15; ++i) {
    EXPECT_EQ(Number(ControlObject(i), "Height"), 22) << i;
    EXPECT_EQ(Number(ControlObject(i), "Width"), 22) << i;
    EXPECT_TRUE(Control(i).Face()) << i;
    EXPECT_TRUE(Control(i).HasMask()) << i;
  }
  EXPECT_FALSE(EntryShows());
  EXPECT_EQ(Protection(), 1);
  EXPECT_TRUE(BarShows());
  EXPECT_TRUE(Inside::SmallToolbar(Main()));
  EXPECT_TRUE(Inside::HasShrunkToolbar(Main()));
  EXPECT_EQ(Registry(), "");
  EXPECT_TRUE(Did().Errors().empty());
  EXPECT_TRUE(Did().Boxes().empty());
}

TEST_F(Shrink, StepsComeInTheirOrder) {
  BeginWithDocument();
  Inside::RemoveAllToolbars(Main());
  Did().Clear();
  Main().ShrinkToolbar();
  std::string expected =
      "log 0 ProcessEliteToolbar\n"
      "let bar Quillmere visible(True)\n"
      "let bar Quillmere Protection(0)\n"
      "call control 16 Delete()\n"
      "log 0 ProcessEliteButtons True\n"
      "let control 1 height(22)\n"
      "let menu 22 visible(False)\n";
  for (Integer i = 2; i <= 15; ++i) expected += Shrunk(i);
  for (Integer i = 2; i <= 15; ++i) expected += Painted(i);
  EXPECT_EQ(Steps(), expected + Ended());
}

// The strips end as those of a full toolbar do, before the bar itself is touched.
TEST_F(Shrink, StripsGoFirst) {
  BeginWithDocument();
  TheWorld().Open(u"Two.doc");
  Did().Clear();
  std::vector<bool> wasSmall;
  Did().during = [&](const Doings::Line& line) {
    if (line.text.starts_with("unsubclass")) wasSmall.push_back(Inside::SmallToolbar(Main()));
  };
  Main().ShrinkToolbar();
  Did().during = nullptr;
  EXPECT_EQ(wasSmall, (std::vector<bool>{false, false}));
  TextLines order;
  for (const std::string& line : Did().Of(Doings::kHook | Doings::kLog | Doings::kUse)) {
    for (const char* start : {"unsubclass", "log 0 RemoveAllToolbars", "log 0 isOutlookDocument", "let bar"}) {
      if (line.starts_with(start)) order.push_back(line);
    }
  }
  ASSERT_GE(order.size(), 6u);
  order.resize(6);
  EXPECT_EQ(Block(order),
            "log 0 RemoveAllToolbars\nunsubclass bar 1\nunsubclass bar 2\nlog 0 isOutlookDocument\n"
            "log 0 isOutlookDocument False Two.doc\nlet bar Quillmere visible(True)\n");
  EXPECT_EQ(Registry(), "");
}

TEST_F(Shrink, HiddenBar_Shows) {
  BeginWithDocument();
  Inside::ToolbarVisible(Main(), false);
  Main().ShrinkToolbar();
  EXPECT_TRUE(BarShows());
}

TEST_F(Shrink, FlagsAreSetBeforeTheWorkTheyTellOf) {
  BeginWithDocument();
  std::string told;
  Did().during = [&](const Doings::Line& line) {
    const bool isRead = line.text.starts_with("log 0 isOutlookDocument") && line.text.ends_with("Document");
    if (!isRead && line.text != "let bar Quillmere visible(True)") return;
    told += Inside::SmallToolbar(Main()) ? "small " : "full ";
    told += Inside::HasShrunkToolbar(Main()) ? "done\n" : "undone\n";
  };
  Main().ShrinkToolbar();
  Did().during = nullptr;
  EXPECT_EQ(told, "small undone\nsmall done\n");
}

// What tells a small bar is its first control, and 22 is small already.
TEST_F(Shrink, BarThatIsSmallAlready_KeepsItsSizesAndControls) {
  for (const Long height : {22, 23}) {
    BeginWithDocument(Height(height));
    Inside::RemoveAllToolbars(Main());
    Did().Clear();
    Main().ShrinkToolbar();
    EXPECT_EQ(Controls(), height == 22 ? 16 : 15);
    EXPECT_EQ(EntryShows(), height == 22);
    if (height != 22) continue;
    std::string expected =
        "log 0 ProcessEliteToolbar\n"
        "let bar Quillmere visible(True)\n"
        "let bar Quillmere Protection(0)\n"
        "log 0 ProcessEliteButtons False\n";
    for (Integer i = 2; i <= 16; ++i) expected += Renewed(i);
    EXPECT_EQ(Steps(), expected + Painted(2) + Ended());
  }
}

TEST_F(Shrink, SecondTime_RenewsTooltipsAndTheProductsIcon) {
  BeginWithDocument();
  Main().ShrinkToolbar();
  Did().Clear();
  Main().ShrinkToolbar();
  EXPECT_EQ(Controls(), 15);
  EXPECT_EQ(Block(Pictures()), "picture 202 own\n");
  EXPECT_EQ(Did().Count(Doings::kUse, "let menu"), 0u);
  for (Integer i = 2; i <= 15; ++i) {
    EXPECT_EQ(Did().Count(Doings::kUse, "let control " + std::to_string(i) + " tooltipText(" + SmallTooltip(i) + ")"),
              1u);
  }
  EXPECT_EQ(Did().Count(Doings::kUse, "let control 5 "), 1u);
  EXPECT_EQ(Protection(), 1);
}

TEST_F(Shrink, LongerBar_HasAllItsButtonsSmall) {
  WorldOptions options = Height(34);
  options.word.controlCount = 18;
  BeginWithDocument(options);
  Main().ShrinkToolbar();
  EXPECT_EQ(Controls(), 17);
  EXPECT_EQ(Number(ControlObject(15), "Width"), 22);
  EXPECT_EQ(Number(ControlObject(17), "Width"), 22) << "beyond the cells, whose tooltip can't be told";
}

TEST_F(Shrink, DroppedControl_KeepsItsFace) {
  BeginWithDocument();
  Word().DropCell(4, true);
  Main().ShrinkToolbar();
  EXPECT_FALSE(Control(4).Face());
  EXPECT_TRUE(Control(3).Face());
  EXPECT_TRUE(Control(5).Face());
  EXPECT_EQ(Did().Count(Doings::kPicture, "picture 204"), 0u);
  EXPECT_EQ(Number(ControlObject(4), "Height"), 22);
}

TEST_F(Shrink, ManualsButton_ShowsASearchInTheManual) {
  Begin(Height(30)).Open(u"Quillmere user manual.doc");
  Did().Clear();
  Main().ShrinkToolbar();
  EXPECT_EQ(Did().Count(Doings::kPicture, "picture 217 own"), 1u);
  EXPECT_EQ(Did().Count(Doings::kPicture, "picture 215 own"), 0u);
}

TEST_F(Shrink, LumivexStaysAsItIs) {
  WorldOptions options = Height(30);
  options.word.lumivexEnabled = true;
  BeginWithDocument(options);
  Main().ShrinkToolbar();
  EXPECT_TRUE(Control(14).IsDown());
}

// ---- Which Word, and which document.

TEST_F(Shrink, EachWordBefore2007_BecomesSmall_ByItsOwnRoute) {
  for (const char16_t* version : {u"9.0", u"10.0", u"11.0"}) {
    SCOPED_TRACE(ToUtf8(version));
    BeginWithDocument(Height(30, version));
    Main().ShrinkToolbar();
    const bool pastes = version == std::u16string_view(u"9.0");
    EXPECT_EQ(Did().Count(Doings::kUse, "call control"), pastes ? 15u : 1u) << "one of them is the offer's deletion";
    for (Long i = 2; i <= 15; ++i) {
      EXPECT_TRUE(Control(i).Face()) << i;
      EXPECT_EQ(Control(i).HasMask(), !pastes) << i;
    }
    EXPECT_TRUE(Did().Errors().empty());
  }
}

TEST_F(Shrink, OnWord2000_TheUsersRichTextSurvives) {
  BeginWithDocument(Height(30, u"9.0"));
  TheWorld().desk.Clipboard().SetRichTextFromOutside(u"{\\rtf1 mine}");
  Main().ShrinkToolbar();
  const auto content = TheWorld().desk.Clipboard().Content();
  ASSERT_EQ(content.size(), 1u);
  EXPECT_EQ(content[0].text, u"{\\rtf1 mine}");
  EXPECT_TRUE(Control(15).Face());
}

TEST_F(Shrink, FromWord2007On_ChangesNothing) {
  Begin(u"12.0");
  TheWorld().word.Open(u"One.doc");
  Did().Clear();
  const bool small = Inside::SmallToolbar(Main());
  Main().ShrinkToolbar();
  EXPECT_EQ(Block(Did().Of(Doings::kUse | Doings::kLog)),
            "log 0 ProcessEliteToolbar\nget Application Version() = 12.0\n");
  EXPECT_EQ(Controls(), 16);
  EXPECT_EQ(Inside::SmallToolbar(Main()), small);
  EXPECT_FALSE(Inside::HasShrunkToolbar(Main()));
}

TEST_F(Shrink, AtTheStart_TheFullToolbarStands) {
  for (const char16_t* version : {u"9.0", u"10.0", u"11.0"}) {
    Prepare(Height(30, version)).Start();
    EXPECT_EQ(Did().Count(Doings::kLog, "log 0 ProcessEliteToolbar"), 1u);
    EXPECT_EQ(Did().Count(Doings::kLog, "log 0 RemoveAllToolbars"), 0u);
    EXPECT_EQ(Did().Count(Doings::kUse, "let control"), 0u);
    EXPECT_FALSE(Inside::SmallToolbar(Main()));
  }
}

TEST_F(Shrink, WithAMailInFront_HidesTheBar_AndTheNextDocumentFinishesTheWork) {
  for (const char16_t* version : {u"9.0", u"10.0", u"11.0"}) {
    SCOPED_TRACE(ToUtf8(version));
    World& world = Begin(Height(30, version));
    world.Open(u"One.doc");
    world.Open(u"Mail.doc", {.mail = true});
    Did().Clear();
    Main().ShrinkToolbar();
    EXPECT_FALSE(BarShows());
    EXPECT_TRUE(Inside::SmallToolbar(Main()));
    EXPECT_FALSE(Inside::HasShrunkToolbar(Main()));
    EXPECT_EQ(Controls(), 16);
    EXPECT_EQ(Registry(), "");
    EXPECT_EQ(Block(Did().Of(Doings::kUse, "let ")), "let bar Quillmere visible(False)\n");

    Main().HandleDocumentChange();
    EXPECT_FALSE(BarShows()) << "still the mail";
    Word().Activate(u"One.doc");
    Main().HandleDocumentChange();
    EXPECT_TRUE(BarShows());
    EXPECT_TRUE(Inside::HasShrunkToolbar(Main()));
    EXPECT_EQ(Controls(), 15);
    Did().Clear();
    Main().HandleDocumentChange();
    EXPECT_EQ(Did().Count(Doings::kUse, "let control"), 0u) << "it is done";
  }
}

// ---- Another name in the small toolbar.

TEST_F(Shrink, NewNameInTheSmallToolbar_RenewsTooltipsAndTheProductsIcon) {
  BeginWithDocument();
  Main().ShrinkToolbar();
  Did().Clear();
  Word().TheProduct().Rename(u"Halcyra");
  Main().ProductNameChanged();
  EXPECT_EQ(Block(Pictures()), "picture " + std::to_string(kPictureOfTheSecondProduct) + " own\n");
  EXPECT_EQ(Did().Count(Doings::kUse, "let control 2 tooltipText(Apply Halcyra to this document...)"), 1u);
  EXPECT_EQ(Word().TheProduct().Tooltip().IconIndex(), 402);
  EXPECT_EQ(Controls(), 15);
}

// ---- What fails.

TEST_F(Shrink, MenuWithoutTheEntry_ShowsABoxWithoutAText) {
  BeginWithDocument();
  EntryObject(22).Let("Caption", u"&shrink Toolbar");
  Did().Clear();
  Main().ShrinkToolbar();
  EXPECT_EQ(Block(Did().Boxes()), "box 0 []  = 1\n");
  EXPECT_TRUE(EntryShows());
  EXPECT_EQ(Number(ControlObject(15), "Width"), 22) << "the work goes on";
  EXPECT_TRUE(Did().Errors().empty());
}

// An error of long ago is none of this one's.
TEST_F(Shrink, MenuWithoutTheEntry_ShowsNoFormerError) {
  BeginWithDocument();
  EntryObject(22).Let("Caption", u"Something else");
  vbwProtector::lastError = {1000, u"of long ago"};
  Main().ShrinkToolbar();
  EXPECT_EQ(Block(Did().Boxes()), "box 0 []  = 1\n");
}

TEST_F(Shrink, FailureInTheMenu_ShowsItsText) {
  const struct {
    const char* object;
    const char* member;
  } cases[] = {{"menu 3", "caption"}, {"menu 22", "visible"}, {"controls of control 1", "each"}};
  for (const auto& row : cases) {
    SCOPED_TRACE(row.object);
    BeginWithDocument();
    Word().Faults().Arm(row.object, row.member, 1, errors::kSubscriptOutOfRange);
    Main().ShrinkToolbar();
    EXPECT_EQ(Block(Did().Boxes()), "box 0 [] Subscript out of range = 1\n");
    EXPECT_TRUE(Did().Errors().empty());
    EXPECT_TRUE(EntryShows());
    EXPECT_EQ(Number(ControlObject(15), "Width"), 22) << "the work goes on";
  }
}

TEST_F(Shrink, MenusHeightThatCantBeWritten_IsReported_AndTheEntryStays) {
  BeginWithDocument();
  Did().during = [&](const Doings::Line& line) {
    if (line.text.starts_with("log 0 ProcessEliteButtons")) Word().Faults().Arm("control 1", "height");
  };
  Main().ShrinkToolbar();
  Did().during = nullptr;
  EXPECT_EQ(Block(Did().Errors()), "1000 Main2.ShrinkDropDownMenu\n");
  EXPECT_TRUE(Did().Boxes().empty());
  EXPECT_TRUE(EntryShows());
  EXPECT_EQ(Number(ControlObject(2), "Width"), 22);
}

// Behind it the bar is closed again, though no icon was set.
TEST_F(Shrink, ButtonThatCantBeShrunk_EndsTheButtons_AndTheBarIsClosedAgain) {
  for (const char* member : {"height", "width", "tooltipText"}) {
    SCOPED_TRACE(member);
    BeginWithDocument();
    Word().Faults().Arm("control 5", member);
    Main().ShrinkToolbar();
    EXPECT_EQ(Block(Did().Errors()), "1000 Main2.ProcessEliteButtons\n");
    EXPECT_EQ(Number(ControlObject(4), "Width"), 22);
    EXPECT_NE(Number(ControlObject(6), "Width"), 22);
    EXPECT_FALSE(Control(2).Face());
    EXPECT_EQ(Protection(), 1);
    EXPECT_EQ(Did().Count(Doings::kUse, "call properties ExecuteQLMCommand(LumivexToggled)"), 1u);
  }
}

TEST_F(Shrink, ButtonThatCantBeReadForPainting_IsReported_AndTheOthersArePainted) {
  BeginWithDocument();
  Word().Faults().Arm("control 5", "isPriorityDropped");
  Main().ShrinkToolbar();
  EXPECT_EQ(Block(Did().Errors()), "1000 Main2.PaintEliteToolbarIcon\n");
  EXPECT_FALSE(Control(5).Face());
  EXPECT_TRUE(Control(4).Face());
  EXPECT_TRUE(Control(6).Face());
}

TEST_F(Shrink, ButtonThatRefusesItsIcon_KeepsItsFace_AndNobodyHears) {
  BeginWithDocument();
  Word().Faults().Arm("control 5", "Picture");
  Word().Faults().Arm("control 5", "PasteFace");
  Main().ShrinkToolbar();
  EXPECT_TRUE(Did().Errors().empty());
  EXPECT_FALSE(Control(5).Face());
  EXPECT_TRUE(Control(6).Face());
}

// From the painting on errors are ignored: the count is then the one of before.
TEST_F(Shrink, CountThatCantBeReadForPainting_IsPassedOver) {
  BeginWithDocument();
  int counts = 0;
  Did().during = [&](const Doings::Line& line) {
    if (line.text.starts_with("get controls of bar Quillmere count") && ++counts == 1) {
      Word().Faults().Arm("controls of bar Quillmere", "count");
    }
  };
  Main().ShrinkToolbar();
  Did().during = nullptr;
  EXPECT_EQ(counts, 2);
  EXPECT_TRUE(Did().Errors().empty());
  EXPECT_TRUE(Control(2).Face());
  EXPECT_TRUE(Control(15).Face());
  EXPECT_EQ(Did().Count(Doings::kService, "DoEvents"), 1u);
  EXPECT_EQ(Protection(), 1);
}

TEST_F(Shrink, FailuresBeforeTheButtons_EndTheWork) {
  const struct {
    const char* object;
    const char* member;
    bool isDone;
  } cases[] = {{"bar Quillmere", "visible", true},
               {"control 1", "height", true},
               {"bar Quillmere", "Protection", true},
               {"control 16", "Delete", true}};
  for (const auto& row : cases) {
    SCOPED_TRACE(row.member);
    BeginWithDocument();
    Word().Faults().Arm(row.object, row.member);
    Main().ShrinkToolbar();
    EXPECT_EQ(Block(Did().Errors()), "1000 Main2.ProcessEliteToolbar\n");
    EXPECT_EQ(Did().Count(Doings::kLog, "log 0 ProcessEliteButtons"), 0u);
    EXPECT_EQ(Did().Count(Doings::kUse, "call properties ExecuteQLMCommand"), 0u);
    EXPECT_EQ(Inside::HasShrunkToolbar(Main()), row.isDone);
    EXPECT_TRUE(Inside::SmallToolbar(Main()));
  }
}

TEST_F(Shrink, MissingBar_IsAnErrorAndTheToolbarIsSmallAllTheSame) {
  BeginWithDocument();
  ToolbarUtilities::variables.mProductName = u"Elsewhere";
  Main().ShrinkToolbar();
  EXPECT_EQ(Block(Did().Errors()), "91 Main2.ProcessEliteToolbar\n");
  EXPECT_TRUE(Inside::SmallToolbar(Main()));
}

// Messages run while the bar isn't protected yet; who comes in by them finds the buttons done.
TEST_F(Shrink, MessagesRunOnce_WhenTheButtonsAreDoneAndTheBarIsOpen) {
  BeginWithDocument();
  int runs = 0;
  Did().during = [&](const Doings::Line& line) {
    if (!line.text.starts_with("DoEvents")) return;
    ++runs;
    EXPECT_EQ(Protection(), 0);
    EXPECT_TRUE(Control(15).Face());
  };
  Main().ShrinkToolbar();
  Did().during = nullptr;
  EXPECT_EQ(runs, 1);
}

}  // namespace
}  // namespace strandline
