// What toolbar and strip report for a dump: names, order, values.

#include "tests/toolbar/toolbar_fixture.h"

namespace strandline {
namespace {

class DumpOfButtons : public ToolbarTest {};

TEST_F(DumpOfButtons, Buttons_ReportTheirVariablesInTheirOrder) {
  BeginWithToolbar();
  std::string expected = "mButtons\n";
  for (int i = 0; i < 16; ++i) {
    for (const char* field : {"isPriorityDropped", "left", "top", "right", "bottom"}) {
      expected += "mButtons(" + std::to_string(i) + ")." + field + "\n";
    }
  }
  expected +=
      "mHighlightedButton\nmButtonState\nmHwnd\nmLastUpIndex\nmBoundingRect.left\nmBoundingRect.top\n"
      "mBoundingRect.right\nmBoundingRect.bottom\nmIsHandling\nmLumivexButtonState\nmPainter\nmMenu\nmAdvert\n";
  EXPECT_EQ(AsText(VariableSnapshot::Of(Strip()).Names()), expected);
}

TEST_F(DumpOfButtons, Buttons_ReportTheirValues) {
  BeginWithToolbar();
  world->word.DropCell(16, true);
  Strip().UpdateButtonRects();
  const VariableSnapshot variables = VariableSnapshot::Of(Strip());
  EXPECT_EQ(ToUtf8(variables.Text(u"mButtons")), " (User Defined Type Array)");
  EXPECT_EQ(variables.Number(u"mHwnd"), world->Bar());
  EXPECT_EQ(variables.Number(u"mButtons(4).left"), world->word.CellPlace(5).left);
  EXPECT_TRUE(variables.Flag(u"mButtons(15).isPriorityDropped"));
  EXPECT_FALSE(variables.Flag(u"mButtons(14).isPriorityDropped"));
  EXPECT_EQ(variables.Number(u"mLumivexButtonState"), 2);
  EXPECT_FALSE(variables.Flag(u"mIsHandling"));
  EXPECT_FALSE(variables[u"mPainter"].ToObject().IsNothing());
  EXPECT_FALSE(variables[u"mMenu"].ToObject().IsNothing());
  EXPECT_FALSE(variables[u"mAdvert"].ToObject().IsNothing());
}

TEST_F(DumpOfButtons, Buttons_WithoutAnAdPanel_ReportNothingForIt) {
  BeginWithoutAds();
  EXPECT_TRUE(VariableSnapshot::Of(Strip())[u"mAdvert"].ToObject().IsNothing());
}

TEST_F(DumpOfButtons, Buttons_AsTheyAreMade_HaveAPainterAndAMenuAndNothingElse) {
  Begin();
  const Ref<Buttons> strip = New<Buttons>();
  const VariableSnapshot variables = VariableSnapshot::Of(*strip);
  for (const std::string& name : variables.Names()) {
    if (name == "mButtons") continue;
    const Variant& value = variables[FromUtf8(name)];
    if (const Object* object = value.If<Object>()) {
      EXPECT_EQ(object->IsNothing(), name == "mAdvert") << name;
    } else {
      EXPECT_EQ(value.ToLong(), 0) << name;
    }
  }
}

TEST_F(DumpOfButtons, Toolbar_ReportsItsVariablesInTheirOrder) {
  BeginWithToolbar();
  const VariableSnapshot variables = VariableSnapshot::Of(*toolbar);
  EXPECT_EQ(AsText(variables.Names()), "mParentHwnd\nmHwnd\nmQuitting\nmDocId\nmHook\nmButtons\n");
  EXPECT_FALSE(variables.Flag(u"mQuitting"));
  EXPECT_NE(variables.Number(u"mDocId"), 0);
}

// The paint's own record, as the error component gets it when something fails inside the paint.
TEST_F(DumpOfButtons, HandlePaint_ReportsThePaintsRecordFieldByField) {
  BeginWithToolbar();
  class Names final : public Reporter {
   public:
    void Variable(TextView name, const Variant&) override { list += ToUtf8(name) + "\n"; }
    std::string list;
  };
  Names names;
  names.Tell(u"paint", PaintStruct());
  EXPECT_EQ(names.list,
            "paint.hdc\npaint.fErase\npaint.rcPaint.left\npaint.rcPaint.top\npaint.rcPaint.right\n"
            "paint.rcPaint.bottom\npaint.fRestore\npaint.fIncUpdate\npaint.rgbReserved\n");
}

}  // namespace
}  // namespace strandline
