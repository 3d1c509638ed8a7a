// The toolbar across the reading layout and the print preview.

#include "tests/addin/main2_fixture.h"

namespace strandline {
namespace {

class ViewChange : public Main2Test {
 protected:
  // What of the change itself was done, in its order: the view, the bar, the hooks, the commands.
  std::string Steps() {
    static constexpr const char* kSteps[] = {
        "let view",      "let bar Quillmere visible", "unsubclass",       "subclass",
        "call document", "log 0 Toggle ReadingMode",  "log 0 ReadingMode"};
    std::string steps;
    for (const Doings::Line& line : Did().All()) {
      for (const char* step : kSteps) {
        if (line.text.starts_with(step)) steps += line.text + "\n";
      }
    }
    return steps;
  }
  bool IsReading(const char16_t* name = u"One.doc") { return Word().Find(name)->IsInReadingLayout(); }
  bool IsInPreview(const char16_t* name = u"One.doc") { return Word().Find(name)->IsInPreview(); }
  std::size_t Hooks() { return TheWorld().desk.Windows().LiveHooks(); }
};

using ReadingLayout = ViewChange;
using PrintPreview = ViewChange;

TEST_F(ReadingLayout, Toggled_TakesTheToolbarAwayBeforeTheViewChanges) {
  TheWorld().Open(u"One.doc");
  Did().Clear();
  Main().ReadingMode();
  EXPECT_TRUE(IsReading());
  EXPECT_EQ(Registry(), "");
  EXPECT_EQ(Hooks(), 0u);
  EXPECT_FALSE(BarShows());
  EXPECT_EQ(Steps(),
            "log 0 Toggle ReadingMode to True\n"
            "unsubclass bar 1\n"
            "let view One.doc ReadingLayout(True)\n"
            "let bar Quillmere visible(False)\n"
            "log 0 ReadingMode True end\n");
  EXPECT_FALSE(Inside::MoveToolbarFlag(Main())) << "the last document's entry doesn't wait either";
  EXPECT_TRUE(Did().Errors().empty());
}

TEST_F(ReadingLayout, ToggledTwice_ReturnsToTheStartWithAnotherToolbar) {
  TheWorld().Open(u"One.doc");
  const Ref<Toolbar> before = ToolbarOf("top 1");
  Main().ReadingMode();
  Did().Clear();
  Main().ReadingMode();
  EXPECT_FALSE(IsReading());
  EXPECT_TRUE(BarShows());
  EXPECT_EQ(Registry(), "top 1");
  ASSERT_NE(ToolbarOf("top 1"), nullptr);
  EXPECT_NE(ToolbarOf("top 1"), before.get());
  EXPECT_EQ(Hooks(), 1u);
  EXPECT_EQ(Steps(),
            "log 0 Toggle ReadingMode to False\n"
            "let view One.doc ReadingLayout(False)\n"
            "let bar Quillmere visible(True)\n"
            "subclass bar 1\n"
            "log 0 ReadingMode False end\n");
  EXPECT_TRUE(Did().Errors().empty());
}

TEST_F(ReadingLayout, OtherDocuments_KeepTheirToolbars) {
  TheWorld().Open(u"One.doc");
  TheWorld().Open(u"Two.doc");
  const Ref<Toolbar> one = ToolbarOf("top 1");
  Main().ReadingModeLayout();
  EXPECT_EQ(Registry(), "top 1");
  EXPECT_TRUE(IsReading(u"Two.doc"));
  EXPECT_FALSE(IsReading());
  Main().ReadingModeLayout();
  EXPECT_EQ(Registry(), "top 1, top 2");
  EXPECT_EQ(ToolbarOf("top 1"), one.get());
}

TEST_F(ReadingLayout, Closed_OnlyEverLeavesIt) {
  TheWorld().Open(u"One.doc", {.reading = true});
  EXPECT_EQ(Registry(), "") << "opened in the layout, it has none";
  Main().CloseReadingMode();
  EXPECT_FALSE(IsReading());
  EXPECT_TRUE(BarShows());
  EXPECT_EQ(Registry(), "top 1");
  const Ref<Toolbar> first = ToolbarOf("top 1");
  Main().CloseReadingMode();
  EXPECT_FALSE(IsReading());
  EXPECT_EQ(Registry(), "top 1");
  EXPECT_NE(ToolbarOf("top 1"), first.get()) << "a window that has one gets another";
  EXPECT_EQ(Hooks(), 1u);
}

TEST_F(ReadingLayout, ViewThatDoesntChange_LeavesTheToolbarAsTheSequenceSays) {
  TheWorld().Open(u"One.doc");
  Did().during = [&](const Doings::Line& line) {
    if (line.text.starts_with("get view One.doc ReadingLayout")) Word().Faults().Arm("view One.doc", "ReadingLayout");
  };
  Main().ReadingMode();
  Did().during = nullptr;
  EXPECT_FALSE(IsReading());
  EXPECT_FALSE(BarShows());
  EXPECT_EQ(Registry(), "");
  EXPECT_TRUE(Did().Errors().empty());
  EXPECT_EQ(Did().Logs().back(), "log 0 ReadingMode True end");

  Word().Faults().Arm("view One.doc", "ReadingLayout");
  Main().CloseReadingMode();
  EXPECT_TRUE(BarShows());
  EXPECT_EQ(Registry(), "top 1");
  EXPECT_TRUE(Did().Errors().empty());
  EXPECT_EQ(Did().Logs().back(), "log 0 ReadingMode False end");
}

TEST_F(ReadingLayout, WhereItDoesntExist_AskingForItIsAnErrorAndClosingItIsnt) {
  for (const char16_t* version : {u"9.0", u"10.0"}) {
    Begin(version);
    TheWorld().Open(u"One.doc");
    Did().Clear();
    Main().ReadingMode();
    EXPECT_EQ(Block(Did().Errors()), "438 Main2.ReadingMode\n");
    EXPECT_EQ(Did().Count(Doings::kLog, "log 0 Toggle ReadingMode"), 0u);
    EXPECT_EQ(Registry(), "top 1");
    Did().Clear();
    Main().CloseReadingMode();
    EXPECT_TRUE(Did().Errors().empty());
    EXPECT_EQ(Registry(), "top 1");
  }
}

// The call and what it is asked with are one statement.
TEST_F(ReadingLayout, UnreadableViewThatIsPassedOver_TogglesNothing) {
  TheWorld().Open(u"One.doc");
  Word().Faults().Arm("view One.doc", "ReadingLayout");
  TheWorld().AnswerErrors({5});
  Main().ReadingMode();
  EXPECT_EQ(Block(Did().Errors()), "1000 Main2.ReadingMode\n");
  EXPECT_EQ(Did().Count(Doings::kLog, "log 0 Toggle ReadingMode"), 0u);
}

TEST_F(ReadingLayout, WithoutADocument_IsAnError) {
  TheWorld();
  Main().ReadingModeLayout();
  EXPECT_EQ(Block(Did().Errors()), "4248 CommonWordInteractionFunctions.activeWindow[Get]\n91 Main2.ReadingMode\n");
}

TEST_F(ReadingLayout, SmallToolbar_IsHiddenAndShown) {
  TheWorld().Open(u"One.doc");
  ShrinkForReal();
  Main().ReadingMode();
  EXPECT_TRUE(IsReading());
  EXPECT_FALSE(BarShows());
  Main().ReadingMode();
  EXPECT_TRUE(BarShows());
  EXPECT_EQ(Registry(), "");
  EXPECT_EQ(Hooks(), 0u);
  EXPECT_TRUE(Did().Errors().empty());
}

TEST_F(ReadingLayout, FromWord2007On_OnlyTheViewChanges) {
  Begin(u"12.0");
  TheWorld().Open(u"One.doc");
  Did().Clear();
  Main().ReadingMode();
  Main().ReadingMode();
  EXPECT_EQ(Block(Did().Of(Doings::kUse, "let")),
            "let view One.doc ReadingLayout(True)\nlet view One.doc ReadingLayout(False)\n");
  EXPECT_FALSE(BarShows());
  EXPECT_TRUE(Did().Errors().empty());
}

TEST_F(PrintPreview, OfTheLastDocument_KeepsItsEntryAndRenewsItAtTheEnd) {
  for (const char16_t* version : {u"9.0", u"10.0", u"11.0"}) {
    SCOPED_TRACE(ToUtf8(version));
    Begin(version);
    TheWorld().Open(u"One.doc");
    const Ref<Toolbar> before = ToolbarOf("top 1");
    Did().Clear();
    Main().FilePrintPreview2();
    EXPECT_TRUE(IsInPreview());
    EXPECT_FALSE(BarShows());
    EXPECT_EQ(ToolbarOf("top 1"), before.get());
    EXPECT_TRUE(Inside::MoveToolbarFlag(Main()));
    EXPECT_EQ(Steps(), "let bar Quillmere visible(False)\ncall document One.doc PrintPreview()\n");
    Did().Clear();
    Main().ClosePreview();
    EXPECT_FALSE(IsInPreview());
    EXPECT_TRUE(BarShows());
    EXPECT_EQ(Registry(), "top 1");
    EXPECT_NE(ToolbarOf("top 1"), before.get());
    EXPECT_FALSE(Inside::MoveToolbarFlag(Main()));
    EXPECT_EQ(Hooks(), 1u);
    EXPECT_EQ(Steps(),
              "call document One.doc ClosePrintPreview()\nlet bar Quillmere visible(True)\n"
              "unsubclass bar 1\nsubclass bar 1\n");
    EXPECT_TRUE(Did().Errors().empty());
  }
}

TEST_F(PrintPreview, OfOneOfSeveral_TakesItsEntryAwayForThatTime) {
  TheWorld().Open(u"One.doc");
  TheWorld().Open(u"Two.doc");
  Main().FilePrintPreview2();
  EXPECT_EQ(Registry(), "top 1");
  EXPECT_FALSE(Inside::MoveToolbarFlag(Main()));
  EXPECT_TRUE(IsInPreview(u"Two.doc"));
  Main().ClosePreview();
  EXPECT_EQ(Registry(), "top 1, top 2");
  EXPECT_EQ(Hooks(), 2u);
}

TEST_F(PrintPreview, ThatWordRefuses_LeavesTheBarHidden) {
  TheWorld().Open(u"One.doc");
  Word().Faults().Arm("document One.doc", "PrintPreview");
  Main().FilePrintPreview2();
  EXPECT_EQ(Block(Did().Errors()), "1000 Main2.FilePrintPreview2\n");
  EXPECT_FALSE(BarShows());
}

TEST_F(PrintPreview, ThatIsntOpen_CantBeClosedAndNothingElseHappens) {
  TheWorld().Open(u"One.doc");
  const Ref<Toolbar> before = ToolbarOf("top 1");
  TheWorld().Bar().Let("Visible", false);
  Did().Clear();
  Main().ClosePreview();
  EXPECT_EQ(Block(Did().Errors()), "4605 Main2.ClosePreview\n");
  EXPECT_FALSE(BarShows());
  EXPECT_EQ(ToolbarOf("top 1"), before.get());
}

// Up to Word 2000 by its author, later by its envelope.
TEST_F(PrintPreview, OfAMail_IsNotOursToEnd) {
  for (const char16_t* version : {u"9.0", u"10.0", u"11.0", u"12.0"}) {
    SCOPED_TRACE(ToUtf8(version));
    Begin(version);
    TheWorld().Open(u"Mail.doc", {.mail = true});
    TheWorld().Bar().Let("Visible", false);
    const std::string before = Registry();
    Toolbar* const toolbar = ToolbarOf("top 1");
    Did().Clear();
    Main().ClosePreview();
    EXPECT_EQ(Block(Did().Logs()), "log 0 isOutlookDocument\nlog 0 isOutlookDocument True Mail.doc\n");
    EXPECT_EQ(Acts(), "");
    EXPECT_EQ(Registry(), before);
    EXPECT_EQ(ToolbarOf("top 1"), toolbar);
    EXPECT_FALSE(BarShows());
    const bool byAuthor = Did().Count(Doings::kUse, "get email Mail.doc CurrentEmailAuthor") == 1;
    EXPECT_EQ(byAuthor, version[0] == u'9');
    EXPECT_EQ(Did().Count(Doings::kUse, "get window Mail.doc EnvelopeVisible"), byAuthor ? 0u : 1u);
  }
}

TEST_F(PrintPreview, OfAMail_BeginsAllTheSame) {
  TheWorld().Open(u"Mail.doc", {.mail = true});
  Main().FilePrintPreview2();
  EXPECT_TRUE(IsInPreview(u"Mail.doc"));
  EXPECT_FALSE(BarShows());
}

// On Word 2000 the question itself fails for what isn't a mail, and nothing is said of it.
TEST_F(PrintPreview, OfADocument_IsToldFromAMailQuietly) {
  for (const char16_t* version : {u"9.0", u"10.0", u"11.0", u"12.0"}) {
    SCOPED_TRACE(ToUtf8(version));
    Begin(version);
    TheWorld().Open(u"One.doc");
    Main().FilePrintPreview2();
    Did().Clear();
    Main().ClosePreview();
    EXPECT_FALSE(IsInPreview());
    EXPECT_EQ(Block(Did().Of(Doings::kLog, "log 0 isOutlookDocument")),
              version[0] == u'9' ? "log 0 isOutlookDocument\n"
                                 : "log 0 isOutlookDocument\nlog 0 isOutlookDocument False One.doc\n");
    EXPECT_TRUE(Did().Errors().empty());
  }
}

// What can't be asked is answered as far as the answer went.
TEST_F(PrintPreview, MailThatCantBeAsked_CountsAsADocumentUnlessItWasAnswered) {
  const struct {
    const char16_t* version;
    const char* object;
    const char* member;
    bool isMail;
  } cases[] = {{u"9.0", "Application", "ActiveDocument", false},
               {u"9.0", "document Mail.doc", "Email", false},
               {u"9.0", "email Mail.doc", "CurrentEmailAuthor", false},
               {u"9.0", "document Mail.doc", "name", true},
               {u"11.0", "Application", "ActiveWindow", false},
               {u"11.0", "window Mail.doc", "EnvelopeVisible", false},
               {u"11.0", "document Mail.doc", "name", true}};
  for (const auto& row : cases) {
    SCOPED_TRACE(ToUtf8(row.version) + " " + row.member);
    Begin(row.version);
    TheWorld().Open(u"Mail.doc", {.mail = true});
    Main().FilePrintPreview2();
    Did().Clear();
    Word().Faults().Arm(row.object, row.member);
    Main().ClosePreview();
    EXPECT_EQ(IsInPreview(u"Mail.doc"), row.isMail);
    EXPECT_EQ(Did().Count(Doings::kLog, "log 0 isOutlookDocument"), 1u);
    EXPECT_TRUE(Did().Errors().empty());
  }
}

TEST_F(PrintPreview, FromWord2007On_IsWordsAlone) {
  Begin(u"12.0");
  TheWorld().Open(u"One.doc");
  Did().Clear();
  Main().FilePrintPreview2();
  Main().ClosePreview();
  EXPECT_EQ(Acts(), "call document One.doc PrintPreview()\ncall document One.doc ClosePrintPreview()\n");
  EXPECT_TRUE(Did().Errors().empty());
}

}  // namespace
}  // namespace strandline
