// The product's command bar and its window.

#include "tests/drawing/content_fixture.h"

namespace strandline {
namespace {

using namespace ToolbarUtilities;

class CommandBarTest : public ContentTest {
 protected:
  // A window that shows unless told otherwise.
  Long Window(const char16_t* title, Long parent, bool shown = true) {
    const Long hwnd = floor->desk.Host().CreateWindowOf(u"Test", title, parent, {10, 10, 60, 40}, nullptr);
    if (shown) floor->desk.Windows().ShowWindow(hwnd, 8);
    return hwnd;
  }
};

TEST_F(CommandBarTest, CommandBar_IsTheOneOfTheProductsName) {
  const Object bar = CommandBar();
  ASSERT_FALSE(bar.IsNothing());
  EXPECT_EQ(bar.Get("Name").ToText(), u"Quillmere");
  uses.lines.clear();
  CommandBar();
  EXPECT_EQ(Listed(uses.lines), Listed({"Application CommandBars", "CommandBars Item 'Quillmere'"}));
}

TEST_F(CommandBarTest, CommandBar_KeepsItsNameWhenTheProductIsRenamed) {
  ProductNameChanged(u"Halcyra");
  ASSERT_FALSE(CommandBar().IsNothing());
  EXPECT_EQ(CommandBar().Get("Name").ToText(), u"Quillmere");
}

TEST_F(CommandBarTest, CommandBar_ThatDoesNotExist_IsNothingWithoutAnError) {
  variables.mProductName = u"Halcyra";
  EXPECT_TRUE(CommandBar().IsNothing());
  variables.mProductName = u"";
  EXPECT_TRUE(CommandBar().IsNothing());
}

TEST_F(CommandBarTest, CommandBar_WhenAnyStepToItFails_IsNothingWithoutAnError) {
  for (const char* step : {"Application", "CommandBars"}) {
    floor->word.Faults().Arm(step, step == std::string("Application") ? "CommandBars" : "Item");
    EXPECT_TRUE(CommandBar().IsNothing()) << step;
    EXPECT_FALSE(CommandBar().IsNothing());
  }
  CommonWordInteractionFunctions::Terminate();
  EXPECT_TRUE(CommandBar().IsNothing());
}

TEST_F(CommandBarTest, ToolbarWindowHandle_OfAnOpenDocument_IsItsOwnBar) {
  floor->word.Open(u"Thesis.doc");
  const Long first = floor->word.ActiveTopWindow();
  floor->word.Open(u"Letter.doc");
  ASSERT_NE(floor->word.ActiveTopWindow(), first);
  EXPECT_EQ(ToolbarWindowHandle(first), floor->word.BarWindowOf(u"Thesis.doc"));
  EXPECT_EQ(ToolbarWindowHandle(floor->word.ActiveTopWindow()), floor->word.BarWindowOf(u"Letter.doc"));
}

TEST_F(CommandBarTest, ToolbarWindowHandle_WithoutAnyBar_IsNone) {
  const Long document = Window(u"Thesis.doc", 0);
  Window(u"", document);
  EXPECT_EQ(ToolbarWindowHandle(document), 0);
}

TEST_F(CommandBarTest, ToolbarWindowHandle_PrefersAVisibleBarInTheDocumentToAFloatingOne) {
  const Long document = Window(u"Thesis.doc", 0);
  const Long dock = Window(u"", document);
  const Long inside = Window(u"Quillmere", dock);
  const Long floating = Window(u"Quillmere", 0);
  EXPECT_EQ(ToolbarWindowHandle(document), inside);
  floor->desk.Windows().ShowWindow(inside, 0);
  EXPECT_EQ(ToolbarWindowHandle(document), floating);
  floor->desk.Windows().ShowWindow(inside, 8);
  floor->desk.Windows().ShowWindow(dock, 0);
  EXPECT_EQ(ToolbarWindowHandle(document), floating);
  // Of a floating one it isn't asked whether it shows.
  floor->desk.Windows().ShowWindow(floating, 0);
  EXPECT_EQ(ToolbarWindowHandle(document), floating);
}

TEST_F(CommandBarTest, ToolbarWindowHandle_GoesThroughTheChildrenInOrderPastHiddenBars) {
  const Long document = Window(u"Thesis.doc", 0);
  const Long last = Window(u"", document);  // the window made last comes first
  const Long middle = Window(u"", document);
  const Long first = Window(u"", document);
  const Long inLast = Window(u"Quillmere", last);
  const Long inMiddle = Window(u"Quillmere", middle);
  const Long hidden = Window(u"Quillmere", first, false);
  floor->calls.Name(document, "document");
  floor->calls.Name(first, "first dock");
  floor->calls.Name(middle, "second dock");
  floor->calls.Name(hidden, "hidden bar");
  floor->calls.Name(inMiddle, "second bar");
  floor->calls.Clear();
  EXPECT_EQ(ToolbarWindowHandle(document), inMiddle);
  EXPECT_EQ(Listed(floor->calls.Take()), Listed({
                                             "FindWindowExA(document, 0, null, null) = first dock",
                                             "FindWindowExA(first dock, 0, null, 'Quillmere') = hidden bar",
                                             "IsWindowVisible(hidden bar)",
                                             "FindWindowExA(document, first dock, null, null) = second dock",
                                             "FindWindowExA(second dock, 0, null, 'Quillmere') = second bar",
                                             "IsWindowVisible(second bar)",
                                         }));
  floor->desk.Host().DestroyWindow(inMiddle);
  EXPECT_EQ(ToolbarWindowHandle(document), inLast);
}

TEST_F(CommandBarTest, ToolbarWindowHandle_WhenTheChildrenRunOut_LooksAmongTopLevelWindows) {
  const Long document = Window(u"Thesis.doc", 0);
  const Long dock = Window(u"", document);
  floor->calls.Name(document, "document");
  floor->calls.Name(dock, "dock");
  floor->calls.Clear();
  EXPECT_EQ(ToolbarWindowHandle(document), 0);
  EXPECT_EQ(Listed(floor->calls.Take()),
            Listed({"FindWindowExA(document, 0, null, null) = dock", "FindWindowExA(dock, 0, null, 'Quillmere') = 0",
                    "FindWindowExA(document, dock, null, null) = 0", "FindWindowA(null, 'Quillmere') = 0"}));
}

TEST_F(CommandBarTest, ToolbarWindowHandle_LooksAtChildrenOfChildrenAlone) {
  const Long document = Window(u"Thesis.doc", 0);
  Window(u"Quillmere", document);
  const Long dock = Window(u"", document);
  Window(u"Quillmere", Window(u"", dock));
  Window(u"Quillmere 2", dock);
  EXPECT_EQ(ToolbarWindowHandle(document), 0);
}

TEST_F(CommandBarTest, ToolbarWindowHandle_OfAnotherDocumentsWindow_DoesNotFindThisOnes) {
  const Long document = Window(u"Thesis.doc", 0);
  Window(u"Quillmere", Window(u"", document));
  EXPECT_EQ(ToolbarWindowHandle(Window(u"Letter.doc", 0)), 0);
}

}  // namespace
}  // namespace strandline
