#include "tests/wordsim/world_fixture.h"

namespace strandline::wordsim {
namespace {

using DocumentsTest = WorldTest;

TEST_F(DocumentsTest, WithoutADocument_TheActiveOnesAreRefused) {
  EXPECT_EQ(NumberRaised([&] { Application().Get("ActiveDocument"); }), word_errors::kNoDocumentOpen);
  EXPECT_EQ(NumberRaised([&] { Application().Get("ActiveWindow"); }), word_errors::kNoDocumentOpen);
  EXPECT_EQ(Application().Get("Documents").ToObject().Get("Count").ToLong(), 0);
}

TEST_F(DocumentsTest, Documents_AreFoundByIndexAndName_TheLastOpenedFirst) {
  World().Open(u"A.doc");
  World().Open(u"B.doc");
  World().Activate(u"A.doc");
  const Object documents = Application().Get("Documents").ToObject();
  EXPECT_EQ(documents.Get("Count").ToLong(), 2);
  EXPECT_EQ(documents.Get("Item", Long{1}).ToObject().Get("Name").ToText(), u"B.doc");
  EXPECT_EQ(documents.Get("Item", u"a.DOC").ToObject().Get("Name").ToText(), u"A.doc");
  EXPECT_EQ(ActiveDocument().Get("Name").ToText(), u"A.doc");
  EXPECT_EQ(NumberRaised([&] { documents.Get("Item", Long{3}); }), word_errors::kNoSuchElement);
  EXPECT_EQ(NumberRaised([&] { documents.Get("Item", u"C.doc"); }), word_errors::kBadFileName);
}

TEST_F(DocumentsTest, AnOpenDocumentThatIsOpenedAgain_IsActivated) {
  World().Open(u"A.doc");
  World().Open(u"B.doc");
  World().Open(u"A.doc");
  EXPECT_EQ(World().Documents().size(), 2u);
  EXPECT_EQ(ActiveDocument().Get("Name").ToText(), u"A.doc");
}

TEST_F(DocumentsTest, ANewDocument_IsBlankAndNeverSaved) {
  World().Open(u"Document1", {.blank = true});
  EXPECT_TRUE(ActiveDocument().Get("Path").ToText().IsEmpty());
  EXPECT_EQ(ActiveDocument().Get("Characters").ToObject().Get("Count").ToLong(), 1);
  EXPECT_TRUE(ActiveDocument().Get("Saved").ToBoolean());
}

TEST_F(DocumentsTest, Typing_LeavesUnsavedChanges_UntilItIsSaved) {
  World().Open(u"Document1", {.blank = true});
  EXPECT_TRUE(World().Type(u"Document1", 5));
  EXPECT_FALSE(ActiveDocument().Get("Saved").ToBoolean());
  EXPECT_EQ(ActiveDocument().Get("Characters").ToObject().Get("Count").ToLong(), 6);
  ActiveDocument().Call("Save");
  EXPECT_TRUE(ActiveDocument().Get("Saved").ToBoolean());
  EXPECT_FALSE(ActiveDocument().Get("Path").ToText().IsEmpty());
  EXPECT_FALSE(World().Type(u"Other.doc"));
}

TEST_F(DocumentsTest, AClosedDocument_IsGoneWithItsParts) {
  World().Open(u"A.doc");
  World().Open(u"B.doc");
  World().SetVariable(u"Key", u"Value");
  const Object document = ActiveDocument();
  const Object variables = document.Get("Variables").ToObject();
  const Object variable = variables.Get("Item", u"key").ToObject();
  const Object window = Application().Get("ActiveWindow").ToObject();
  const Object view = window.Get("View").ToObject();
  EXPECT_TRUE(World().Close(u"B.doc"));
  for (const Object& part : {document, variables, variable, window, view}) {
    EXPECT_EQ(NumberRaised([&] { part.Get("Name"); }), word_errors::kObjectDeleted) << JournalNameOf(part);
  }
  EXPECT_EQ(JournalNameOf(variables), "variables B.doc");
}

TEST_F(DocumentsTest, AfterAClose_TheMostRecentlyActiveOneIsActive) {
  World().Open(u"A.doc");
  World().Open(u"B.doc");
  World().Open(u"C.doc");
  World().Activate(u"A.doc");
  World().Activate(u"C.doc");
  World().Close(u"C.doc");
  EXPECT_EQ(ActiveDocument().Get("Name").ToText(), u"A.doc");
  EXPECT_EQ(Windows().GetActiveWindow(), World().ActiveTopWindow());
}

TEST_F(DocumentsTest, Variables_KeepTheirOrder_AndAreChangedInPlace) {
  World().Open(u"A.doc");
  World().SetVariable(u"OutputType", u"footnote");
  World().SetVariable(u"FormatType", u"MLA");
  World().SetVariable(u"OutputType", u"endnote");
  const Object variables = ActiveDocument().Get("Variables").ToObject();
  std::vector<std::string> seen;
  Walk walk;
  Object variable;
  for (bool going = walk.First(variables, variable); going; going = walk.Next(variable)) {
    seen.push_back(ToUtf8(variable.Get("name").ToText()) + "=" + ToUtf8(variable.Get("value").ToText()));
  }
  EXPECT_EQ(seen, (std::vector<std::string>{"OutputType=endnote", "FormatType=MLA"}));
  EXPECT_EQ(NumberRaised([&] { variables.Get("Item", u"Other"); }), word_errors::kObjectDeleted);
}

TEST_F(DocumentsTest, Bookmarks_AreKnownWithoutCase) {
  World().Open(u"A.doc");
  const auto exists = [&] { return ActiveDocument().Get("Bookmarks").ToObject().Call("Exists", u"quick").ToBoolean(); };
  EXPECT_FALSE(exists());
  EXPECT_TRUE(World().SetBookmark(u"Quick", true));
  EXPECT_TRUE(exists());
  World().SetBookmark(u"quick", false);
  EXPECT_FALSE(exists());
}

struct VersionCase {
  const char16_t* version;
  Long readingLayout;
  Long envelope;
  Long ctrlClick;
  Long ribbonBar;
  Long facePicture;
};

TEST_F(DocumentsTest, FeaturesFollowTheVersion) {
  const VersionCase kCases[] = {
      {u"9.0", 438, 438, 438, 5, 438}, {u"10.0", 438, 0, 0, 5, 0}, {u"11.0", 0, 0, 0, 5, 0},
      {u"12.0", 0, 0, 0, 0, 0},        {u"11,5", 0, 0, 0, 5, 0},   {u"9", 438, 438, 438, 5, 438},
  };
  for (const VersionCase& one : kCases) {
    BeginVersion(one.version).Open(u"A.doc");
    const Object window = Application().Get("ActiveWindow").ToObject();
    const Object view = window.Get("View").ToObject();
    const Object options = Application().Get("Options").ToObject();
    SCOPED_TRACE(ToUtf8(one.version));
    EXPECT_EQ(Application().Get("Version").ToText(), one.version);
    EXPECT_EQ(NumberRaised([&] { view.Get("ReadingLayout"); }), one.readingLayout);
    EXPECT_EQ(NumberRaised([&] { window.Get("EnvelopeVisible"); }), one.envelope);
    EXPECT_EQ(NumberRaised([&] { options.Let("CtrlClickHyperlinkToOpen", false); }), one.ctrlClick);
    EXPECT_EQ(NumberRaised([&] { Bar(u"Ribbon"); }), one.ribbonBar);
    EXPECT_EQ(NumberRaised([&] { Control(2).Get("Picture"); }), one.facePicture);
  }
}

TEST_F(DocumentsTest, OnlyAMail_HasAnAuthor) {
  BeginVersion(u"9.0").Open(u"A.doc");
  const auto author = [&] { return ActiveDocument().Get("Email").ToObject().Get("CurrentEmailAuthor").ToObject(); };
  EXPECT_EQ(NumberRaised(author), word_errors::kNotAvailable);
  World().SetEmail(true);
  EXPECT_FALSE(author().IsNothing());
}

TEST_F(DocumentsTest, TheReadingLayout_IsPartOfTheOpening) {
  World().Open(u"A.doc", {.reading = true});
  const Object view = Application().Get("ActiveWindow").ToObject().Get("View").ToObject();
  EXPECT_TRUE(view.Get("ReadingLayout").ToBoolean());
  view.Let("ReadingLayout", false);
  EXPECT_FALSE(view.Get("ReadingLayout").ToBoolean());
}

TEST_F(DocumentsTest, APreviewIsClosed_OnlyWhereThereIsOne) {
  World().Open(u"A.doc");
  EXPECT_EQ(NumberRaised([&] { ActiveDocument().Call("ClosePrintPreview"); }), word_errors::kNotAvailable);
  ActiveDocument().Call("PrintPreview");
  EXPECT_EQ(NumberRaised([&] { ActiveDocument().Call("ClosePrintPreview"); }), 0);
}

TEST_F(DocumentsTest, Templates_AreNormalTheProductsAndTheOthers) {
  Settings settings;
  settings.productName = u"Halcyra";
  settings.templates = {u"Letters.dot"};
  Begin(settings);
  const Object templates = Application().Get("Templates").ToObject();
  EXPECT_EQ(templates.Get("Count").ToLong(), 3);
  EXPECT_EQ(templates.Get("Item", Long{2}).ToObject().Get("Name").ToText(), u"Halcyra.dot");
  EXPECT_EQ(NumberRaised([&] { templates.Get("Item", u"letters.dot"); }), 0);
  BeginVersion(u"12.0");
  EXPECT_EQ(NumberRaised([&] { Application().Get("Templates").ToObject().Get("Item", u"Quillmere.dotm"); }), 0);
}

TEST_F(DocumentsTest, ADialog_IsShownToWhoeverPlaysUser) {
  Long shown = 0;
  World().TheHooks().showDialog = [&](Long number) { shown = number; };
  Application().Get("Dialogs").ToObject().Get("Item", Long{112}).ToObject().Call("Show");
  EXPECT_EQ(shown, 112);
}

}  // namespace
}  // namespace strandline::wordsim
