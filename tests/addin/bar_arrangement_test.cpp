// Where the command bar stands, whether it shows, and what bears the product's name.

#include "drawing/ToolbarUtilities.h"
#include "tests/addin/main2_fixture.h"
#include "wordsim/product_objects.h"

namespace strandline {
namespace {

using wordsim::BarPosition;

class BarArrangement : public Main2Test {
 protected:
  static WorldOptions At(BarPosition position) {
    WorldOptions options;
    options.word.barPosition = position;
    return options;
  }
  TextLines Writes() { return Did().Of(Doings::kUse, "let"); }
  void Visible(bool value) { Inside::ToolbarVisible(Main(), value); }
};

TEST_F(BarArrangement, Visibility_IsWrittenOnlyWhenItChanges) {
  const struct {
    bool before;
    bool asked;
  } cases[] = {{true, true}, {true, false}, {false, true}, {false, false}};
  for (const auto& [before, asked] : cases) {
    Begin(u"11.0");
    TheWorld().Bar().Let("Visible", before);
    Did().Clear();
    Visible(asked);
    const std::string value = asked ? "True" : "False";
    EXPECT_EQ(Block(Writes()), before == asked ? "" : "let bar Quillmere visible(" + value + ")\n");
    EXPECT_EQ(Block(Did().Logs()), before == asked ? "" : "log 0 Setting ToolbarVisible = " + value + "\n");
    EXPECT_EQ(BarShows(), asked);
  }
}

TEST_F(BarArrangement, VisibilityOfAMissingBar_IsNoError) {
  TheWorld();
  ToolbarUtilities::variables.mProductName = u"Elsewhere";
  Visible(false);
  EXPECT_TRUE(Did().Errors().empty());
  EXPECT_TRUE(Did().Logs().empty());
  EXPECT_TRUE(BarShows());
}

TEST_F(BarArrangement, VisibilityFromWord2007On_IsLeftAlone) {
  Begin(u"12.0");
  Visible(true);
  EXPECT_FALSE(BarShows());
  EXPECT_EQ(Did().Count(Doings::kUse, "get Application CommandBars"), 0u);
}

TEST_F(BarArrangement, VisibilityThatCantBeRead_IsAnError) {
  TheWorld();
  Word().Faults().Arm("bar Quillmere", "visible");
  Visible(false);
  EXPECT_EQ(Block(Did().Errors()), "1000 Main2.ToolbarVisible[Let]\n");
}

// Where the bar stands at the start, and what is written then.
TEST_F(BarArrangement, Start_GivesTheBarARowOfItsOwn) {
  const struct {
    BarPosition position;
    const char* writes;
  } cases[] = {
      {BarPosition::kTop, "let bar Quillmere RowIndex(-1)\nlet bar Quillmere left(0)\n"},
      {BarPosition::kBottom,
       "let bar Drawing Position(3)\nlet bar Drawing RowIndex(1)\nlet bar Drawing left(0)\n"
       "let bar Drawing visible(True)\nlet bar Quillmere RowIndex(1)\nlet bar Quillmere left(999)\n"},
      {BarPosition::kLeft, ""},
      {BarPosition::kRight, ""},
      {BarPosition::kFloating, ""},
  };
  for (const auto& [position, writes] : cases) {
    for (const char16_t* version : {u"9.0", u"10.0", u"11.0"}) {
      SCOPED_TRACE(static_cast<int>(position));
      WorldOptions options = At(position);
      options.word.wordVersion = version;
      Prepare(options).Start();
      TextLines barWrites = Did().Of(Doings::kUse, "let bar");
      EXPECT_EQ(Block(barWrites), writes);
      EXPECT_EQ(Did().Count(Doings::kLog, "log 0 EnsureToolbarIsOnItsOwnRow"), 1u);
    }
  }
}

TEST_F(BarArrangement, HiddenDrawingBar_ShowsWithABarAtTheBottom) {
  Prepare(At(BarPosition::kBottom));
  const Object drawing = Word().Application().Get("CommandBars").ToObject().Get("Item", u"Drawing").ToObject();
  drawing.Let("Visible", false);
  drawing.Let("Position", Long{1});
  TheWorld().Start();
  EXPECT_TRUE(drawing.Get("Visible").ToBoolean());
  EXPECT_EQ(drawing.Get("Position").ToLong(), 3);
  EXPECT_EQ(drawing.Get("Left").ToLong(), 0);
  EXPECT_EQ(drawing.Get("RowIndex").ToLong(), TheWorld().Bar().Get("RowIndex").ToLong());
}

TEST_F(BarArrangement, FromWord2007On_NoRowIsGiven) {
  WorldOptions options = At(BarPosition::kBottom);
  options.word.wordVersion = u"12.0";
  Prepare(options).Start();
  EXPECT_EQ(Block(Did().Of(Doings::kUse, "let bar")), "let bar Quillmere visible(False)\n");
}

TEST_F(BarArrangement, FailureWithTheBar_EndsQuietly) {
  const struct {
    BarPosition position;
    const char* member;
    const char* writes;
  } cases[] = {
      {BarPosition::kTop, "Position", ""},
      {BarPosition::kTop, "RowIndex", "let bar Quillmere RowIndex() ! 1000\n"},
      {BarPosition::kTop, "left", "let bar Quillmere RowIndex(-1)\nlet bar Quillmere left() ! 1000\n"},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.member);
    Prepare(At(row.position)).Load();
    Word().Faults().Arm("bar Quillmere", row.member);
    TheWorld().Initialize();
    EXPECT_EQ(Block(Did().Of(Doings::kUse, "let bar")), row.writes);
    EXPECT_TRUE(Did().Errors().empty());
    EXPECT_TRUE(Did().Boxes().empty());
  }
}

TEST_F(BarArrangement, MissingBar_IsQuiet) {
  Prepare(ForWord(u"11.0")).Load();
  Object application = Word().Application();
  Object properties = Word().Properties();
  Object productState = Word().ProductState();
  String name = u"Elsewhere";
  Main().Initialize(application, properties, productState, name);
  EXPECT_TRUE(Did().Errors().empty());
  EXPECT_EQ(Registry(), "");
}

// The drawing bar has a tail of its own; the product's bar is placed all the same.
TEST_F(BarArrangement, MissingDrawingBar_IsAnErrorOfItsOwn) {
  Prepare(At(BarPosition::kBottom)).Load();
  Word().Faults().Arm("CommandBars", "Item(Drawing)");
  TheWorld().Initialize();
  EXPECT_EQ(Block(Did().Errors()), "1000 Main2.EnsureAnotherToolbarIsAtTheBottom\n");
  EXPECT_EQ(Block(Did().Of(Doings::kUse, "let bar")), "let bar Quillmere RowIndex(1)\nlet bar Quillmere left(999)\n");
}

TEST_F(BarArrangement, ProductsName_DecidesTheTooltipsIcon) {
  const struct {
    const char16_t* name;
    Long icon;
  } cases[] = {{u"Quillmere", 401}, {u"Tomehaven", 402}, {u"quillmere", 402}, {u"Quillmere ", 402}, {u"", 402}};
  for (const auto& [name, icon] : cases) {
    for (const char16_t* version : {u"11.0", u"12.0"}) {
      SCOPED_TRACE(ToUtf8(name));
      Begin(version);
      Word().TheProduct().Rename(name);
      Main().ProductNameChanged();
      EXPECT_EQ(Word().TheProduct().Tooltip().IconIndex(), icon);
    }
  }
}

TEST_F(BarArrangement, NewName_StandsInTheTooltipAndNotInTheBarsName) {
  TheWorld();
  Word().TheProduct().Rename(u"Tomehaven");
  Main().ProductNameChanged();
  EXPECT_EQ(ToolbarUtilities::variables.mTooltipText(2), u"Apply Tomehaven to this document...");
  EXPECT_EQ(ToolbarUtilities::variables.mProductName, u"Quillmere");
  EXPECT_EQ(Did().Count(Doings::kLog, "log 0 ProcessEliteToolbar"), 1u);
}

TEST_F(BarArrangement, NewName_RedrawsEachToolbar) {
  TheWorld().Open(u"One.doc");
  Word().Open(u"Two.doc");
  TheWorld().desk.Clock().Wait(200);
  Main().ClickOnAd();
  TheWorld().Open(u"Three.doc");
  ASSERT_EQ(Registry(), "top 1, top 2, top 3");
  Did().Clear();
  Word().TheProduct().Rename(u"Tomehaven");
  Main().ProductNameChanged();
  EXPECT_TRUE(Did().Errors().empty()) << "an empty entry is passed over";
  EXPECT_EQ(Did().Count(Doings::kLog, "log 0 PaintIcons"), 2u) << "the two that are registered";
}

TEST_F(BarArrangement, NewNameFromWord2007On_IsToldToTheRibbon) {
  Begin(u"12.0");
  Word().TheProduct().Rename(u"Tomehaven");
  Main().ProductNameChanged();
  EXPECT_EQ(Block(Did().Of(Doings::kUse, "call")),
            "call RibbonHandler.Main2 ProductNameChanged(Tomehaven)\n"
            "call RibbonHandler.Main2 UpdateLumivexIcon(False)\n"
            "call properties ExecuteQLMCommand(LumivexToggled)\n");
}

TEST_F(BarArrangement, NameThatCantBeRead_EndsTheChange) {
  TheWorld();
  Word().Faults().Arm("productState", "productName");
  Main().ProductNameChanged();
  EXPECT_EQ(Block(Did().Errors()), "1000 Main2.ProductNameChanged\n");
  EXPECT_TRUE(Writes().empty());
}

TEST_F(BarArrangement, FullToolbar_Stands) {
  TheWorld().Open(u"One.doc");
  Did().Clear();
  Inside::ProcessEliteToolbar(Main(), false);
  EXPECT_EQ(Block(Did().Of(Doings::kUse | Doings::kLog | Doings::kHook)),
            "log 0 ProcessEliteToolbar\nget Application Version() = 11.0\n");
  EXPECT_EQ(Registry(), "top 1");
  EXPECT_FALSE(Inside::SmallToolbar(Main()));
}

}  // namespace
}  // namespace strandline
