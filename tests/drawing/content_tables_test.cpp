// What each cell of the strip shows: pictures, tooltips, whether it starts enabled, and where the tables come from.

#include "tests/drawing/content_fixture.h"
#include "tests/support/variables.h"

namespace strandline {
namespace {

using namespace ToolbarUtilities;

struct CellCase {
  Integer index;
  const char16_t* text;  // as the module keeps it
  bool enabled;
  Integer large, small;
};

const CellCase kCellCases[] = {
    {1, u"Click for menu options...", false, 101, 201},
    {2, u"Apply Quillmere to this document...", false, 102, 202},
    {3, u"Insert Reference entry... (Ctrl+Shift+F)", false, 103, 203},
    {4, u"Paste Reference entry... (Alt+P)", false, 104, 204},
    {5, u"Hunt for a Reference... (Ctrl+Shift+F)", false, 105, 205},
    {6, u"Start a New Chapter (Alt+C)", false, 106, 206},
    {7, u"Set as Heading Level 1 (Ctrl+1)", false, 107, 207},
    {8, u"Set as Heading Level 2 (Ctrl+2)", false, 108, 208},
    {9, u"Set as Heading Level 3 (Ctrl+3)", false, 109, 209},
    {10, u"Set as Heading Level 4 (Ctrl+4)", false, 110, 210},
    {11, u"Update Pages, Figures, and Tables (Ctrl+Shift+U)", false, 111, 211},
    {12, u"Set as Paragraph (Ctrl+Shift+P)", false, 112, 212},
    {13, u"Set as Quotation (Ctrl+Q)", false, 113, 213},
    {14, u"Turn on Lumivex to show synonyms and dictionary definitions of any word in your document (Ctrl+Shift+X)",
     false, 114, 214},
    {15, u"Open User Manual", true, 115, 215},
    {16, u"Go to Website Offer", true, 116, 216},
};

TEST_F(ContentTest, EachCell_HasItsPicturesTextAndStart) {
  ProductNameChanged(u"Quillmere");
  ASSERT_EQ(std::size(kCellCases), static_cast<std::size_t>(kCells));
  for (const CellCase& each : kCellCases) {
    SCOPED_TRACE(each.index);
    EXPECT_EQ(pictureIndex(each.index, false), each.large);
    EXPECT_EQ(pictureIndex(each.index, true), each.small);
    EXPECT_EQ(ToUtf8(tooltipText(each.index, true)), ToUtf8(each.text));
    EXPECT_EQ(EnableList(each.index), each.enabled);
  }
}

TEST_F(ContentTest, IndexZero_HoldsNothing) {
  EXPECT_EQ(tooltipText(0, true), u"");
  EXPECT_EQ(tooltipText(0, false), u"");
  EXPECT_FALSE(EnableList(0));
  EXPECT_EQ(pictureIndex(0, false), 100);
}

TEST_F(ContentTest, AnIndexOutsideTheTables_IsABoundsError) {
  for (const Integer index : {17, 18, 32767, -1, -32768}) {
    SCOPED_TRACE(index);
    EXPECT_EQ(tooltipText(index, true), u"");
    EXPECT_EQ(Listed(TakeErrors()), Listed({"9 ToolbarUtilities.tooltipText"}));
    EXPECT_EQ(tooltipText(index, false), u"");
    EXPECT_EQ(Listed(TakeErrors()), Listed({"9 ToolbarUtilities.tooltipText"}));
    EXPECT_FALSE(EnableList(index));
    EXPECT_EQ(Listed(TakeErrors()), Listed({"9 ToolbarUtilities.EnableList"}));
  }
}

TEST_F(ContentTest, PictureIndex_KnowsNoBoundsButThoseOfAnInteger) {
  EXPECT_EQ(pictureIndex(17, false), 117);
  EXPECT_EQ(pictureIndex(-1, true), 199);
  EXPECT_EQ(pictureIndex(32667, false), 32767);
  EXPECT_EQ(pictureIndex(32668, false), 0);
  EXPECT_EQ(Listed(TakeErrors()), Listed({"6 ToolbarUtilities.pictureIndex"}));
}

struct ProductCase {
  const char16_t* name;
  Integer large, small;
};

TEST_F(ContentTest, PictureIndex_OfCell2_IsTheSecondProductsForItsExactName) {
  const ProductCase cases[] = {
      {u"Halcyra", 118, 218}, {u"halcyra", 102, 202},   {u"HALCYRA", 102, 202}, {u"Halcyra ", 102, 202},
      {u"Halcyr", 102, 202},  {u"Quillmere", 102, 202}, {u"", 102, 202},
  };
  for (const ProductCase& each : cases) {
    floor->word.TheProduct().Rename(each.name);
    EXPECT_EQ(pictureIndex(2, false), each.large) << ToUtf8(each.name);
    EXPECT_EQ(pictureIndex(2, true), each.small) << ToUtf8(each.name);
  }
  floor->word.TheProduct().Rename(u"Halcyra");
  for (Integer index = 1; index <= kCells; ++index) {
    if (index == 2) continue;
    EXPECT_EQ(pictureIndex(index, false), 100 + index);
  }
}

TEST_F(ContentTest, InTheUserManual_Cell15IsForFinding) {
  floor->word.Open(kManual);
  EXPECT_EQ(pictureIndex(15, false), 117);
  EXPECT_EQ(pictureIndex(15, true), 217);
  for (Integer index = 1; index <= kCells; ++index) {
    if (index == 15) continue;
    EXPECT_EQ(pictureIndex(index, true), 200 + index);
  }
  EXPECT_EQ(tooltipText(15, true), u"Open User Manual");
  uses.lines.clear();
  EXPECT_EQ(tooltipText(15, false), u"Find... (Ctrl+F)");
  EXPECT_EQ(Listed(uses.Of("tooltip")), Listed({"tooltip TooltipBackground 'Find... (Ctrl+F)'"}));
  EXPECT_EQ(tooltipText(16, false), u"Go to Website Offer");
}

TEST_F(ContentTest, AnotherDocumentInFrontOfTheManual_MakesCell15AsUsual) {
  floor->word.Open(kManual);
  floor->word.Open(u"Thesis.doc");
  EXPECT_EQ(pictureIndex(15, false), 115);
  EXPECT_EQ(tooltipText(15, false), u"Open User Manual");
  floor->word.Activate(kManual);
  EXPECT_EQ(pictureIndex(15, false), 117);
}

struct ManualCase {
  const char16_t* document;
  bool expected;
};

TEST_F(ContentTest, InUserManual_TakesTheNameToTheLetter) {
  const ManualCase cases[] = {
      {u"Quillmere user manual.doc", true},   {u"quillmere user manual.doc", false},
      {u"Quillmere User Manual.doc", false},  {u"Quillmere user manual.DOC", false},
      {u"Quillmere user manual", false},      {u"Quillmere user manual.docx", false},
      {u" Quillmere user manual.doc", false}, {u"Thesis.doc", false},
  };
  for (const ManualCase& each : cases) {
    LoadContent();
    floor->word.Open(each.document);
    EXPECT_EQ(inUserManual(), each.expected) << ToUtf8(each.document);
  }
}

TEST_F(ContentTest, InUserManual_WithoutADocument_IsFalseAndAsksForNone) {
  uses.lines.clear();
  EXPECT_FALSE(inUserManual());
  EXPECT_EQ(Listed(uses.Of("Application")), Listed({"Application Documents"}));
}

// Cells 3, 4 and 14 show captions in full and their own texts in the reduced form.
TEST_F(ContentTest, TooltipText_InFull_GoesThroughTheProductsTooltip) {
  ProductNameChanged(u"Quillmere");
  for (const CellCase& each : kCellCases) {
    SCOPED_TRACE(each.index);
    String expected = each.text;
    if (each.index == 3) expected = u"Start Tomehaven or Insert Citation / Reference entry... (Ctrl+Shift+F)";
    if (each.index == 4) expected = u"Paste Citation / Reference entry... (Alt+P)";
    if (each.index == 14) {
      expected =
          u"Turn on Lumivex (Ctrl+Shift+X) It shows synonyms and dictionary definitions of any word in your document";
    }
    uses.lines.clear();
    EXPECT_EQ(ToUtf8(tooltipText(each.index, false)), ToUtf8(expected));
    EXPECT_EQ(Listed(uses.Of("tooltip")), Listed({"tooltip TooltipBackground '" + ToUtf8(expected) + "'"}));
    uses.lines.clear();
    tooltipText(each.index, true);
    EXPECT_EQ(Listed(uses.Of("tooltip")), "");
  }
}

TEST_F(ContentTest, TooltipText_WhoseTooltipFails_IsEmptyAndHeardOf) {
  floor->word.Faults().Arm("tooltip", "TooltipBackground", 1, 1234);
  EXPECT_EQ(tooltipText(1, false), u"");
  EXPECT_EQ(Listed(TakeErrors()), Listed({"1234 ToolbarUtilities.tooltipText"}));
}

TEST_F(ContentTest, ProductNameChanged_WritesTheTextOfCell2AndNotTheNameOfTheBar) {
  EXPECT_EQ(tooltipText(2, true), u"");  // until it is called
  ProductNameChanged(u"Halcyra");
  EXPECT_EQ(tooltipText(2, true), u"Apply Halcyra to this document...");
  EXPECT_EQ(variables.mProductName, u"Quillmere");
  ProductNameChanged(u"");
  EXPECT_EQ(tooltipText(2, true), u"Apply  to this document...");
}

TEST_F(ContentTest, Initialize_BelowWord2007_MakesTheFactoryAndTheConverter) {
  for (const char16_t* version : {kWord2000, kWord2002, kWord2003}) {
    SCOPED_TRACE(ToUtf8(version));
    LoadContent(version);
    EXPECT_EQ(Listed(factoryCalls), Listed({"made", "initialized with the callback"}));
    EXPECT_TRUE(variables.adFactory);
    EXPECT_TRUE(variables.converter);
    EXPECT_EQ(variables.productState, floor->word.ProductState());
    EXPECT_EQ(variables.mProductName, u"Quillmere");
  }
}

TEST_F(ContentTest, Initialize_FromWord2007On_KeepsStateAndNameAlone) {
  for (const char16_t* version : {kWord2007, u"14.0"}) {
    SCOPED_TRACE(ToUtf8(version));
    LoadContent(version);
    EXPECT_EQ(Listed(factoryCalls), "");
    EXPECT_FALSE(variables.adFactory);
    EXPECT_FALSE(variables.converter);
    EXPECT_EQ(variables.productState, floor->word.ProductState());
    EXPECT_EQ(variables.mProductName, u"Quillmere");
  }
}

TEST_F(ContentTest, FromWord2007On_TheTablesAnswerAndAreEmpty) {
  LoadContent(kWord2007);
  for (Integer index = 0; index <= kCells; ++index) {
    SCOPED_TRACE(index);
    EXPECT_EQ(tooltipText(index, true), u"");
    EXPECT_FALSE(EnableList(index));
    EXPECT_EQ(pictureIndex(index, false), 100 + index);
    EXPECT_EQ(pictureIndex(index, true), 200 + index);
    if (index != 3 && index != 4 && index != 14) {
      EXPECT_EQ(tooltipText(index, false), u"");
    }
  }
  EXPECT_EQ(tooltipText(4, false), u"Paste Citation / Reference entry... (Alt+P)");
  EXPECT_FALSE(EnableList(17));
  EXPECT_EQ(Listed(TakeErrors()), Listed({"9 ToolbarUtilities.EnableList"}));
}

TEST_F(ContentTest, Terminate_LetsGoOfWhatItMadeAndKeepsTheTables) {
  Terminate();
  EXPECT_EQ(Listed(factoryCalls), Listed({"made", "initialized with the callback", "gone"}));
  EXPECT_FALSE(variables.adFactory);
  EXPECT_FALSE(variables.converter);
  EXPECT_TRUE(variables.productState.IsNothing());
  EXPECT_EQ(tooltipText(16, true), u"Go to Website Offer");
}

TEST_F(ContentTest, TheModule_ReportsItsVariablesInOrder) {
  const VariableSnapshot reported = VariableSnapshot::Of(&ReportModule);
  EXPECT_EQ(Listed(reported.Names()),
            Listed({"adFactory", "productState", "converter", "mEnableList", "mTooltipText", "mProductName", "mWidth",
                    "mHeight", "mCachedBuffer", "mCachedBufferHandle"}));
  EXPECT_EQ(Shown(reported[u"mEnableList"]), "[0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 1 1]");
  EXPECT_EQ(Shown(reported[u"mTooltipText"]).substr(0, 36), "[0 '' 'Click for menu options...' ''");
}

}  // namespace
}  // namespace strandline
