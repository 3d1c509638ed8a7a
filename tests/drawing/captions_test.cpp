// The captions that follow the document's kind of reference and the Lumivex state.

#include "tests/drawing/content_fixture.h"

namespace strandline {
namespace {

using namespace ToolbarUtilities;

using CaptionsTest = ContentTest;

struct KindCase {
  const char16_t* outputType;
  const char16_t* shown;
};

TEST_F(CaptionsTest, InsertAndPaste_NameTheDocumentsKindOfReference) {
  const KindCase cases[] = {{u"citation", u"Citation"},
                            {u"footnote", u"Footnote"},
                            {u"endnote", u"Endnote"},
                            {u"numbered reference", u"Numbered reference"}};
  for (const KindCase& each : cases) {
    SCOPED_TRACE(ToUtf8(each.outputType));
    LoadContent();
    floor->word.Open(u"Thesis.doc");
    floor->word.SetVariable(u"OutputType", each.outputType);
    const std::string kind = ToUtf8(each.shown);
    EXPECT_EQ(ToUtf8(insertCaption(true)), "Start Tomehaven or &Insert " + kind + " / Reference entry...");
    EXPECT_EQ(ToUtf8(insertCaption(false)),
              "Start Tomehaven or Insert " + kind + " / Reference entry... (Ctrl+Shift+F)");
    EXPECT_EQ(ToUtf8(pasteCaption(true)), "&Paste " + kind + " / Reference entry...");
    EXPECT_EQ(ToUtf8(pasteCaption(false)), "Paste " + kind + " / Reference entry... (Alt+P)");
    EXPECT_EQ(tooltipText(3, false), insertCaption(false));
    EXPECT_EQ(tooltipText(4, false), pasteCaption(false));
  }
}

TEST_F(CaptionsTest, Lumivex_IsNamedByWhatTheCommandWillDo) {
  const std::string rest =
      " Lumivex (Ctrl+Shift+X) It shows synonyms and dictionary definitions of any word in your document";
  EXPECT_EQ(lumivexCaption(true), u"&Turn on Lumivex");
  EXPECT_EQ(ToUtf8(lumivexCaption(false)), "Turn on" + rest);
  floor->word.TheProduct().SetLumivex(true);
  EXPECT_EQ(lumivexCaption(true), u"&Turn off Lumivex");
  EXPECT_EQ(ToUtf8(lumivexCaption(false)), "Turn off" + rest);
  EXPECT_EQ(tooltipText(14, false), lumivexCaption(false));
  floor->word.TheProduct().SetLumivex(false);
  EXPECT_EQ(lumivexCaption(true), u"&Turn on Lumivex");
}

TEST_F(CaptionsTest, Lumivex_WhoseStateFails_IsAnEmptyCaption) {
  floor->word.Faults().Arm("productState", "lumivexEnabled", 1, 1234);
  EXPECT_EQ(lumivexCaption(true), u"");
  EXPECT_EQ(Listed(TakeErrors()), Listed({"1234 ToolbarUtilities.lumivexCaption"}));
}

TEST_F(CaptionsTest, Capitalize_RaisesTheFirstLetterAlone) {
  const KindCase cases[] = {{u"", u""},       {u"a", u"A"},         {u"numbered reference", u"Numbered reference"},
                            {u"ABC", u"ABC"}, {u"aBC", u"ABC"},     {u" a", u" a"},
                            {u"1a", u"1a"},   {u"école", u"École"}, {u"жук", u"Жук"}};
  for (const KindCase& each : cases) {
    const Variant raised = capitalize(each.outputType);
    ASSERT_NE(raised.If<String>(), nullptr);
    EXPECT_EQ(ToUtf8(raised.ToText()), ToUtf8(each.shown));
  }
}

}  // namespace
}  // namespace strandline
