// What becomes of texts and pictures of the cells when a statement fails: the procedure's result so far, or, where the
// error is passed over, what the next statements make of it.

#include "tests/drawing/content_fixture.h"
#include "tests/support/allocations.h"
#include "tests/support/written_dump.h"

namespace strandline {
namespace {

using namespace ToolbarUtilities;

using ContentFailures = ContentTest;

// What a text of that many characters takes.
std::size_t BytesOf(std::size_t characters) { return (characters + 1) * sizeof(char16_t); }

struct TextCase {
  const char* procedure;
  std::function<String()> text;
  const char* locals;  // of the dump
};

TEST_F(ContentFailures, NoMemoryForAText_IsAnErrorOfItsProcedureAndGivesNoText) {
  const String given(std::u16string(500, u'a'));
  const TextCase cases[] = {
      {"insertCaption", [] { return insertCaption(true); }, "isMenuItem = True\nkind = 'Citation'\n"},
      {"insertCaption", [] { return insertCaption(false); }, "isMenuItem = False\nkind = 'Citation'\n"},
      {"pasteCaption", [] { return pasteCaption(true); }, "isMenuItem = True\nkind = 'Citation'\n"},
      {"pasteCaption", [] { return pasteCaption(false); }, "isMenuItem = False\nkind = 'Citation'\n"},
      {"lumivexCaption", [] { return lumivexCaption(true); }, "isMenuItem = True\naction = 'on'\n"},
      {"lumivexCaption", [] { return lumivexCaption(false); }, "isMenuItem = False\naction = 'on'\n"},
      {"capitalize", [&] { return capitalize(given).IsEmpty() ? String() : given; }, nullptr},
  };
  for (const TextCase& each : cases) {
    SCOPED_TRACE(each.procedure);
    const String whole = each.text();
    ASSERT_GT(whole.Length(), 14);
    floor->errors.log.clear();
    floor->errors.Answer({vbwProtector::kDump});
    FailNextAllocationOf(BytesOf(whole.View().size()));
    EXPECT_EQ(each.text(), u"");
    FailNextAllocationOf(0);
    const std::string name = "ToolbarUtilities." + std::string(each.procedure);
    EXPECT_EQ(Listed(TakeErrors()), Listed({"7 " + name, "-1 " + name}));
    if (each.locals) {
      const std::string dump = WrittenDump(floor->errors.log);
      EXPECT_NE(dump.find("* LOCAL LEVEL VARIABLES  *\n" + std::string(each.locals) + "* MODULE"), std::string::npos)
          << dump;
    }
  }
}

TEST_F(ContentFailures, NoMemoryForTheProductsTooltip_LeavesTheFormerText) {
  ProductNameChanged(u"Quillmere");
  FailNextAllocationOf(BytesOf(std::u16string_view(u"Apply Halcyra to this document...").size()));
  ProductNameChanged(u"Halcyra");
  FailNextAllocationOf(0);
  EXPECT_EQ(tooltipText(2, true), u"Apply Quillmere to this document...");
  EXPECT_EQ(Listed(TakeErrors()), Listed({"7 ToolbarUtilities.ProductNameChanged"}));
}

TEST_F(ContentFailures, AProductNameThatCannotBeRead_IsNoPicture_AndPassedOverIsTheSecondProducts) {
  for (const Long answer : {Long{0}, vbwProtector::kIgnore}) {
    SCOPED_TRACE(answer);
    floor->errors.Answer({answer});
    floor->word.Faults().Arm("productState", "productName", 1, 1234);
    EXPECT_EQ(pictureIndex(2, false), answer == 0 ? 0 : 118);
    EXPECT_EQ(Listed(TakeErrors()), Listed({"1234 ToolbarUtilities.pictureIndex"}));
  }
}

TEST_F(ContentFailures, ALumivexStateThatCannotBeRead_PassedOver_CountsAsOn) {
  floor->errors.Answer({vbwProtector::kIgnore});
  floor->word.Faults().Arm("productState", "lumivexEnabled", 1, 1234);
  EXPECT_EQ(lumivexCaption(true), u"&Turn off Lumivex");
  EXPECT_EQ(Listed(TakeErrors()), Listed({"1234 ToolbarUtilities.lumivexCaption"}));
}

TEST_F(ContentFailures, ANumberOfDocumentsThatCannotBeRead_IsNoManual_AndPassedOverTheNameDecides) {
  floor->word.Open(kManual);
  for (const Long answer : {Long{0}, vbwProtector::kIgnore}) {
    SCOPED_TRACE(answer);
    floor->errors.Answer({answer});
    floor->word.Faults().Arm("Documents", "Count", 1, 1234);
    EXPECT_EQ(inUserManual(), answer != 0);
    EXPECT_EQ(Listed(TakeErrors()), Listed({"1234 ToolbarUtilities.inUserManual"}));
  }
}

TEST_F(ContentFailures, ObjectsThatAreNotThere_AreErrorsOfTheirProcedures) {
  variables.productState = nullptr;
  EXPECT_EQ(pictureIndex(2, true), 0);
  EXPECT_EQ(Listed(TakeErrors()), Listed({"91 ToolbarUtilities.pictureIndex"}));
  EXPECT_EQ(lumivexCaption(false), u"");
  EXPECT_EQ(Listed(TakeErrors()), Listed({"91 ToolbarUtilities.lumivexCaption"}));
  CommonPropertyFunctions::properties(Object());
  EXPECT_EQ(tooltipText(1, false), u"");
  EXPECT_EQ(Listed(TakeErrors()),
            Listed({"91 CommonPropertyFunctions.tooltip[Get]", "91 ToolbarUtilities.tooltipText"}));
}

}  // namespace
}  // namespace strandline
