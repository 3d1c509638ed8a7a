// Where the state of Lumivex shows, and who hears of it.

#include "drawing/ToolbarUtilities.h"
#include "tests/addin/main2_fixture.h"

namespace strandline {
namespace {

class LumivexUpdate : public Main2Test {
 protected:
  void Update() { Inside::UpdateLumivexIcon(Main()); }
  // The product hears of every update, once.
  std::size_t Notices() { return Did().Count(Doings::kUse, "call properties ExecuteQLMCommand(LumivexToggled)"); }
  // How often a strip showed the state.
  std::size_t Strips() { return Did().Count(Doings::kLog, "log 0 UpdateLumivexIcon enabled"); }
};

TEST_F(LumivexUpdate, Strips_AreAllUpdated) {
  TheWorld().Open(u"One.doc");
  TheWorld().Open(u"Two.doc");
  for (const bool isOn : {true, false}) {
    Word().TheProduct().SetLumivex(isOn);
    Did().Clear();
    Update();
    EXPECT_EQ(Did().Count(Doings::kLog, std::string("log 0 UpdateLumivexIcon enabled = ") + (isOn ? "true" : "false")),
              2u);
    EXPECT_EQ(Did().Logs()[0], "log 0 UpdateLumivexIcon");
    EXPECT_EQ(Notices(), 1u);
    EXPECT_EQ(Did().Of(Doings::kUse).back(), "call properties ExecuteQLMCommand(LumivexToggled)");
  }
}

TEST_F(LumivexUpdate, EmptyEntry_IsPassedOver) {
  TheWorld().Open(u"One.doc");
  Word().Open(u"Two.doc");
  Main().ClickOnAd();
  TheWorld().Open(u"Three.doc");
  ASSERT_EQ(Registry(), "top 1, top 2, top 3");
  Did().Clear();
  Update();
  EXPECT_EQ(Strips(), 2u);
  EXPECT_EQ(Notices(), 1u);
  EXPECT_TRUE(Did().Errors().empty());
}

TEST_F(LumivexUpdate, WithoutAnyStrip_TheProductStillHears) {
  TheWorld();
  Update();
  EXPECT_EQ(Block(Did().Of(Doings::kUse | Doings::kLog)),
            "log 0 UpdateLumivexIcon\ncall properties ExecuteQLMCommand(LumivexToggled)\n");
}

// State and text of Word's own button.
TEST_F(LumivexUpdate, SmallToolbar_ShowsItOnItsFourteenthControl) {
  for (const char16_t* version : {u"9.0", u"10.0", u"11.0"}) {
    Begin(version);
    ShrinkForReal();
    for (const bool isOn : {true, false, true}) {
      Word().TheProduct().SetLumivex(isOn);
      Did().Clear();
      Update();
      const Object control = TheWorld().Bar().Get("Controls").ToObject().Get("Item", Long{14}).ToObject();
      EXPECT_EQ(control.Get("State").ToLong(), isOn ? -1 : 0);
      EXPECT_TRUE(
          ToUtf8(control.Get("TooltipText").ToText()).starts_with(isOn ? "Turn off Lumivex" : "Turn on Lumivex"));
      EXPECT_EQ(control.Get("TooltipText").ToText(), ToolbarUtilities::lumivexCaption(false));
      const TextLines writes = Did().Of(Doings::kUse, "let");
      ASSERT_EQ(writes.size(), 2u);
      EXPECT_TRUE(writes[0].starts_with("let control 14 tooltipText(Turn o"));
      EXPECT_EQ(writes[1], std::string("let control 14 state(") + (isOn ? "-1)" : "0)"));
      EXPECT_EQ(Notices(), 1u);
    }
  }
}

TEST_F(LumivexUpdate, SmallToolbarWithTooFewControls_IsAnErrorAndNoNotice) {
  WorldOptions options = WithSmallBar();
  options.word.controlCount = 13;
  Begin(options);
  ShrinkForReal();
  Update();
  ASSERT_EQ(Did().Errors().size(), 1u);
  EXPECT_TRUE(Did().Errors()[0].ends_with(" Main2.UpdateLumivexIcon"));
  EXPECT_EQ(Notices(), 0u);
}

TEST_F(LumivexUpdate, SmallToolbar_LeavesStripsAlone) {
  OpenAndShrinkMeanwhile();
  Update();
  EXPECT_EQ(Strips(), 0u);
}

TEST_F(LumivexUpdate, Ribbon_IsToldTheState) {
  Begin(u"12.0");
  for (const bool isOn : {true, false}) {
    Word().TheProduct().SetLumivex(isOn);
    Did().Clear();
    Update();
    EXPECT_EQ(Block(Did().Of(Doings::kUse, "call")), std::string("call RibbonHandler.Main2 UpdateLumivexIcon(") +
                                                         (isOn ? "True" : "False") +
                                                         ")\ncall properties ExecuteQLMCommand(LumivexToggled)\n");
    EXPECT_EQ(Did().Count(Doings::kUse, "let"), 0u);
  }
}

TEST_F(LumivexUpdate, FailingProduct_EndsInItsOwnTail) {
  TheWorld();
  Word().Faults().Arm("properties", "ExecuteQLMCommand");
  Update();
  EXPECT_EQ(Block(Did().Errors()), "1000 CommonPropertyFunctions.ExecuteQLMCommand\n");
}

}  // namespace
}  // namespace strandline
