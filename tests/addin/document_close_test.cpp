// What the close of a document and a change of the active one bring about.

#include "platform/runtime.h"
#include "tests/addin/main2_fixture.h"
#include "tests/support/scripted_object.h"

namespace strandline {
namespace {

class DocumentClose : public Main2Test {
 protected:
  TextLines Calls() { return Did().Of(Doings::kUse, "call"); }
  std::size_t TemplatesMarked() { return Did().Count(Doings::kUse, "let template Quillmere.dot Saved(True)"); }
};

TEST_F(DocumentClose, TwoInARow_LeaveOneEntryAndThenTheSameOneWaiting) {
  TheWorld().Open(u"One.doc");
  TheWorld().Open(u"Two.doc");
  Did().Clear();
  EXPECT_TRUE(TheWorld().Close(u"Two.doc"));
  EXPECT_EQ(Registry(), "top 1");
  EXPECT_FALSE(Inside::MoveToolbarFlag(Main()));
  EXPECT_TRUE(BarShows());
  EXPECT_TRUE(Inside::Enabled(Main()));
  EXPECT_EQ(Block(MainLogs()),
            "log 0 HandleCloseDocument for Two.doc\n"
            "log 0 RemoveActiveToolbarEntry\n"
            "log 1 Remove Toolbar (" +
                HexOf(Top("top 2")) +
                ")\n"
                "log 0 Removed toolbar, the remaining count 1\n");

  const Ref<Toolbar> last = ToolbarOf("top 1");
  Did().Clear();
  EXPECT_TRUE(TheWorld().Close(u"One.doc"));
  EXPECT_EQ(Registry(), "top 1");
  EXPECT_EQ(ToolbarOf("top 1"), last.get());
  EXPECT_TRUE(Inside::MoveToolbarFlag(Main()));
  EXPECT_EQ(Inside::OldHwnd(Main()), Top("top 1"));
  EXPECT_FALSE(BarShows());
  EXPECT_FALSE(Inside::Enabled(Main()));
  EXPECT_EQ(Block(MainLogs()),
            "log 0 HandleCloseDocument for One.doc\n"
            "log 0 RemoveActiveToolbarEntry, calling AfterLastDocumentClose for " +
                HexOf(Top("top 1")) +
                "\n"
                "log 0 ToggleToolbar False\n"
                "log 0 Setting ToolbarVisible = False\n");

  TheWorld().Open(u"Three.doc");
  EXPECT_EQ(Registry(), "top 1") << "the window that stood empty";
  EXPECT_NE(ToolbarOf("top 1"), last.get());
  EXPECT_FALSE(Inside::MoveToolbarFlag(Main()));
  EXPECT_TRUE(BarShows());
  EXPECT_EQ(TheWorld().desk.Windows().LiveHooks(), 1u);
}

TEST_F(DocumentClose, Cancelled_LeavesEverythingAsItWas) {
  TheWorld().Open(u"One.doc");
  Word().Type(u"One.doc");
  TheWorld().AnswerBox(msgbox::kAnswerCancel);
  Did().Clear();
  EXPECT_FALSE(TheWorld().Close(u"One.doc"));
  EXPECT_EQ(Registry(), "top 1");
  EXPECT_TRUE(Inside::Enabled(Main()));
  EXPECT_FALSE(Inside::MoveToolbarFlag(Main()));
  EXPECT_TRUE(BarShows());
  EXPECT_EQ(TemplatesMarked(), 0u);
  EXPECT_EQ(Block(MainLogs()), "log 0 HandleCloseDocument for One.doc\n");
}

TEST_F(DocumentClose, FailedSave_IsACancel) {
  for (const char16_t* version : {u"11.0", u"12.0"}) {
    Begin(version);
    TheWorld().Open(u"One.doc");
    Word().Type(u"One.doc");
    Word().Faults().Arm("document One.doc", "Save");
    Did().Clear();
    EXPECT_FALSE(TheWorld().HandleClose(u"One.doc"));
    EXPECT_TRUE(Did().Errors().empty());
    EXPECT_EQ(Did().Count(Doings::kUse, "call RibbonHandler.Main2 EnableToolbar(False)"), 0u);
  }
}

TEST_F(DocumentClose, SavedOrGivenUp_GoesOn) {
  for (const Long answer : {msgbox::kAnswerYes, msgbox::kAnswerNo}) {
    Begin(u"11.0");
    TheWorld().Open(u"One.doc");
    Word().Type(u"One.doc");
    TheWorld().AnswerBox(answer);
    EXPECT_TRUE(TheWorld().HandleClose(u"One.doc"));
    EXPECT_TRUE(Inside::MoveToolbarFlag(Main()));
  }
}

// The document that closes serves the save question alone.
TEST_F(DocumentClose, DocumentBehind_CostsTheActiveWindowItsEntry) {
  TheWorld().Open(u"One.doc");
  TheWorld().Open(u"Two.doc");
  EXPECT_TRUE(TheWorld().HandleClose(u"One.doc"));
  EXPECT_EQ(Registry(), "top 1");
}

TEST_F(DocumentClose, WithoutAnyDocumentCounted_OnlyTheTemplateIsMarked) {
  TheWorld();
  Inside::Enabled(Main()) = true;
  Object stray = New<ScriptedObject>([](Use, Name member, const Arguments&) -> Variant {
    if (member == Name("name")) return String(u"Stray.doc");
    return true;
  });
  EXPECT_TRUE(Main().HandleCloseDocument(stray));
  EXPECT_EQ(Block(Did().Logs()), "log 0 HandleCloseDocument for Stray.doc\n");
  EXPECT_EQ(TemplatesMarked(), 1u);
  EXPECT_TRUE(Inside::Enabled(Main()));
  EXPECT_TRUE(BarShows());
}

TEST_F(DocumentClose, DocumentThatIsGone_EndsInTheTemplate) {
  TheWorld().Open(u"One.doc");
  Object gone = Ref<wordsim::Document>(Word().Find(u"One.doc"));
  Word().Close(u"One.doc");
  Did().Clear();
  EXPECT_FALSE(Main().HandleCloseDocument(gone));
  EXPECT_EQ(TemplatesMarked(), 1u);
  EXPECT_EQ(Registry(), "top 1");
  EXPECT_TRUE(Did().Errors().empty());
}

TEST_F(DocumentClose, NoDocument_EndsInTheTemplateWithoutASign) {
  TheWorld().Open(u"One.doc");
  Did().Clear();
  Object nothing;
  EXPECT_FALSE(Main().HandleCloseDocument(nothing));
  EXPECT_TRUE(Did().Errors().empty());
  EXPECT_TRUE(Did().Boxes().empty());
  EXPECT_EQ(TemplatesMarked(), 1u);
  EXPECT_EQ(Registry(), "top 1");
}

// Where a step fails, the template is marked all the same, and the result is as it was at the failure.
TEST_F(DocumentClose, FailingStep_GoesToTheTemplateWithTheResultSoFar) {
  const struct {
    const char16_t* version;
    const char* object;
    const char* member;
    bool result;
    const char* marked;
  } cases[] = {
      {u"11.0", "document One.doc", "name", false, "let template Quillmere.dot Saved(True)"},
      {u"11.0", "Documents", "count", true, "let template Quillmere.dot Saved(True)"},
      {u"12.0", "RibbonHandler.Main2", "EnableToolbar", true, "let template Quillmere.dotm Saved(True)"},
      {u"12.0", "Documents", "count", true, "let template Quillmere.dotm Saved(True)"},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(std::string(row.object) + "." + row.member);
    Begin(row.version);
    TheWorld().Open(u"One.doc");
    Did().Clear();
    Word().Faults().Arm(row.object, row.member);
    EXPECT_EQ(TheWorld().HandleClose(u"One.doc"), row.result);
    EXPECT_EQ(Did().Count(Doings::kUse, row.marked), 1u);
    EXPECT_TRUE(Did().Errors().empty());
    EXPECT_FALSE(Inside::MoveToolbarFlag(Main()));
  }
}

// The save question has a tail of its own, and its answer is then no cancel.
TEST_F(DocumentClose, FailingQuestion_GoesOn) {
  TheWorld().Open(u"One.doc");
  Word().Faults().Arm("document One.doc", "Saved");
  EXPECT_TRUE(TheWorld().HandleClose(u"One.doc"));
  EXPECT_EQ(Block(Did().Errors()), "1000 CommonWordWindowFunctions.CancelCloseDueToSave\n");
}

TEST_F(DocumentClose, Templates_AreMarkedByTheirExactNamesOnEveryWord) {
  for (const char16_t* version : {u"9.0", u"11.0", u"12.0"}) {
    WorldOptions options = ForWord(version);
    options.word.productName = u"Other";
    options.word.templates = {u"quillmere.dot", u"Quillmere.dot",  u"QUILLMERE.DOTM", u"Quillmere.dotm",
                              u"Quillmere",     u"Quillmere.dot ", u"Quillmere.dotx"};
    Begin(options);
    Inside::PreventQueryToSaveTemplate(Main());
    EXPECT_EQ(Block(Did().Of(Doings::kUse, "let")),
              "let template Quillmere.dot Saved(True)\n"
              "let template Quillmere.dotm Saved(True)\n");
  }
}

TEST_F(DocumentClose, TemplateThatCantBeMarked_IsAnErrorOfItsOwn) {
  TheWorld().Open(u"One.doc");
  Word().Faults().Arm("template Quillmere.dot", "Saved");
  EXPECT_TRUE(TheWorld().HandleClose(u"One.doc"));
  EXPECT_EQ(Block(Did().Errors()), "1000 Main2.PreventQueryToSaveTemplate\n");
}

TEST_F(DocumentClose, Ribbon_IsDisabledWithTheLastDocument) {
  Begin(u"12.0");
  TheWorld().Open(u"One.doc");
  TheWorld().Open(u"Two.doc");
  Did().Clear();
  EXPECT_TRUE(TheWorld().Close(u"Two.doc"));
  EXPECT_EQ(Block(Calls()), "");
  EXPECT_TRUE(TheWorld().Close(u"One.doc"));
  EXPECT_EQ(Block(Calls()), "call RibbonHandler.Main2 EnableToolbar(False)\n");
  EXPECT_EQ(Registry(), "none");
}

TEST_F(DocumentClose, MissingRibbon_IsNoErrorAtAClose) {
  WorldOptions options = ForWord(u"12.0");
  options.word.missingComponents = {u"RibbonHandler.Main2"};
  Begin(options);
  Word().Open(u"One.doc");
  EXPECT_TRUE(TheWorld().HandleClose(u"One.doc"));
  EXPECT_TRUE(Did().Errors().empty());
}

TEST_F(DocumentClose, SmallToolbar_DisablesTheControlsOfTheLastDocument) {
  TheWorld();
  ShrinkForReal();
  TheWorld().Open(u"One.doc");
  Did().Clear();
  EXPECT_TRUE(TheWorld().Close(u"One.doc"));
  EXPECT_TRUE(BarShows());
  EXPECT_EQ(Did().Count(Doings::kUse, "let control 2 Enabled(False)"), 1u);
  EXPECT_FALSE(Inside::MoveToolbarFlag(Main()));
}

class DocumentChange : public Main2Test {};

TEST_F(DocumentChange, Bookmark_EnablesTheMenusEntry) {
  TheWorld().Open(u"One.doc");
  for (const bool has : {true, false}) {
    Word().SetBookmark(u"quick", has);
    Did().Clear();
    Main().HandleDocumentChange();
    const std::string value = has ? "True" : "False";
    EXPECT_EQ(Block(Did().Logs()), "log 0 HandleDocumentChange\nlog 0 EnableGotoQuickBookmark " + value + "\n");
    EXPECT_EQ(Did().Count(Doings::kUse, "call bookmarks One.doc Exists(quick)"), 1u);
    EXPECT_EQ(Block(Did().Of(Doings::kUse, "let")), "let menu 17 Enabled(" + value + ")\n");
  }
}

TEST_F(DocumentChange, Bookmark_IsToldToTheRibbon) {
  Begin(u"12.0");
  TheWorld().Open(u"One.doc");
  Word().SetBookmark(u"quick", true);
  Did().Clear();
  Main().HandleDocumentChange();
  EXPECT_EQ(Did().Count(Doings::kUse, "call RibbonHandler.Main2 EnableGotoQuickBookmark(True)"), 1u);
  EXPECT_EQ(Did().Count(Doings::kUse, "let"), 0u);
}

TEST_F(DocumentChange, WithoutADocument_TheEntryIsDisabled) {
  TheWorld();
  Main().HandleDocumentChange();
  EXPECT_EQ(Block(Did().Of(Doings::kUse, "let")), "let menu 17 Enabled(False)\n");
  EXPECT_TRUE(Did().Errors().empty());
}

TEST_F(DocumentChange, FailingMembers_AreIgnored) {
  const struct {
    const char* object;
    const char* member;
  } faults[] = {{"Application", "ActiveDocument"}, {"document One.doc", "Bookmarks"}, {"bookmarks One.doc", "Exists"}};
  for (const auto& [object, member] : faults) {
    SCOPED_TRACE(object);
    Begin(u"11.0");
    TheWorld().Open(u"One.doc");
    Word().SetBookmark(u"quick", true);
    Did().Clear();
    Word().Faults().Arm(object, member);
    Main().HandleDocumentChange();
    EXPECT_EQ(Block(Did().Of(Doings::kUse, "let")), "let menu 17 Enabled(False)\n");
    EXPECT_TRUE(Did().Errors().empty());
  }
}

// The entry is found within the popup that bears the product's name; a bar without either stays silent.
TEST_F(DocumentChange, MissingEntry_IsNoError) {
  const struct {
    const char* object;
    const char* member;
  } faults[] = {{"controls of control 1", "Item"},
                {"controls of bar Quillmere", "Item"},
                {"menu 17", "Enabled"},
                {"productState", "productName"},
                {"control 1", "Controls"}};
  for (const auto& [object, member] : faults) {
    SCOPED_TRACE(object);
    Begin(u"11.0");
    Word().Faults().Arm(object, member);
    Boolean value = true;
    Main().EnableGotoQuickBookmark(value);
    EXPECT_EQ(Did().Count(Doings::kUse, "let"), std::string(object) == "menu 17" ? 1u : 0u);
    EXPECT_TRUE(Did().Errors().empty());
  }
}

TEST_F(DocumentChange, FailingRibbon_IsAnErrorOfTheOperation) {
  Begin(u"12.0");
  Word().Faults().Arm("RibbonHandler.Main2", "EnableGotoQuickBookmark");
  Boolean value = true;
  Main().EnableGotoQuickBookmark(value);
  EXPECT_EQ(Block(Did().Errors()), "1000 Main2.EnableGotoQuickBookmark\n");
}

// Whether a change takes it up, in each state that the toolbar passes through.
TEST_F(DocumentChange, ShrinkThatHadToWait_IsTakenUp) {
  const auto tries = [this] {
    Did().Clear();
    Main().HandleDocumentChange();
    return Did().Count(Doings::kLog, "log 0 ProcessEliteToolbar");
  };
  TheWorld().Open(u"One.doc");
  TheWorld().Open(u"Mail.doc", {.mail = true});
  EXPECT_EQ(tries(), 0u) << "the full toolbar";
  Main().ShrinkToolbar();
  EXPECT_EQ(tries(), 1u) << "the mail is still in front";
  EXPECT_EQ(tries(), 1u);
  Word().Activate(u"One.doc");
  EXPECT_EQ(tries(), 1u) << "now it is done";
  EXPECT_EQ(tries(), 0u);
}

}  // namespace
}  // namespace strandline
