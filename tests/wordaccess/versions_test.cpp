// Which Word it is, and the objects at Word's root.

#include "tests/support/scripted_object.h"
#include "tests/wordaccess/word_access_fixture.h"

namespace strandline {
namespace {

using namespace CommonWordInteractionFunctions;

class Versions : public WordAccessTest {};

// The text that Word tells, the number, and the answers to the five questions.
struct VersionCase {
  const char16_t* text;
  Integer number;
  const char* is;  // 2000, 2002 or earlier, 2002 or later, 2003 or later, 2007 or later
};

constexpr VersionCase kVersions[] = {
    {u"8.0", 8, "-e---"},        {u"9.0", 9, "=e---"},     {u"9.0.2720", 9, "=e---"}, {u"10.0", 10, "-el--"},
    {u"10.0.6866", 10, "-el--"}, {u"11.0", 11, "--l3-"},   {u"12.0", 12, "--l37"},    {u"14.0", 14, "--l37"},
    {u"16.0", 16, "--l37"},      {u"12", 12, "--l37"},     {u"9", 9, "=e---"},        {u"12,0", 12, "--l37"},
    {u"9,0", 9, "=e---"},        {u"10.0,1", 10, "-el--"}, {u"10.6,1", 11, "--l3-"},  {u"1,1.0", 11, "--l3-"},
    {u" 11 .0", 11, "--l3-"},    {u".9", 1, "-e---"},      {u".4", 0, "-e---"},       {u"32767.0", 32767, "--l37"},
};

std::string Answers() {
  std::string answers;
  answers += isWord2000() ? '=' : '-';
  answers += isWord2002OrEarlier() ? 'e' : '-';
  answers += isWord2002OrLater() ? 'l' : '-';
  answers += isWord2003OrLater() ? '3' : '-';
  answers += isWord2007OrLater() ? '7' : '-';
  return answers;
}

TEST_F(Versions, Text_GivesTheNumberAndWithItTheAnswers) {
  for (const VersionCase& version : kVersions) {
    SCOPED_TRACE(ToUtf8(version.text));
    Begin(version.text);
    EXPECT_EQ(WordVersion(), version.number);
    EXPECT_EQ(Answers(), version.is);
    EXPECT_TRUE(Did().Errors().empty());
  }
}

TEST_F(Versions, EarlierThan2003AndLater_ExcludeEachOther) {
  for (const VersionCase& version : kVersions) {
    SCOPED_TRACE(ToUtf8(version.text));
    Begin(version.text);
    EXPECT_NE(isWord2002OrEarlier(), isWord2003OrLater());
  }
}

TEST_F(Versions, TextThatIsNoNumber_IsAnError) {
  const struct {
    const char16_t* text;
    const char* error;
  } cases[] = {
      {u"Word", "13 CommonWordInteractionFunctions.WordVersion[Get]"},
      {u"eleven.0", "13 CommonWordInteractionFunctions.WordVersion[Get]"},
      {u"", "13 CommonWordInteractionFunctions.WordVersion[Get]"},
      {u".", "13 CommonWordInteractionFunctions.WordVersion[Get]"},
      {u"32768.0", "6 CommonWordInteractionFunctions.WordVersion[Get]"},
      {u"99999999999", "6 CommonWordInteractionFunctions.WordVersion[Get]"},
  };
  for (const auto& [text, error] : cases) {
    SCOPED_TRACE(ToUtf8(text));
    Begin(text);
    EXPECT_EQ(WordVersion(), 0);
    EXPECT_EQ(Block(Did().Errors()), Block({error}));
  }
}

TEST_F(Versions, Version_IsReadAfreshEachTime) {
  TheWorld();
  String told = u"9.0";
  int reads = 0;
  Initialize(New<ScriptedObject>([&](Use use, Name member, const Arguments&) -> Variant {
    EXPECT_EQ(use, Use::kGet);
    EXPECT_EQ(member, Name("Version"));
    ++reads;
    return told;
  }));
  EXPECT_TRUE(isWord2000());
  told = u"12.0";
  EXPECT_FALSE(isWord2000());
  EXPECT_TRUE(isWord2007OrLater());
  EXPECT_EQ(reads, 3);
}

TEST_F(Versions, InitializeWithoutWord_RaisesItsOwnError) {
  TheWorld();
  Initialize(nullptr);
  EXPECT_EQ(Block(Did().Errors()), "12345 CommonWordInteractionFunctions.Initialize\n");
  ASSERT_EQ(Did().Questions().size(), 1u);
  EXPECT_EQ(Did().Questions()[0].description, "word cannot be nothing");
  EXPECT_EQ(Did().Questions()[0].project, "Strandline");
  EXPECT_FALSE(Application().IsNothing()) << "the Word that was there stays";
}

TEST_F(Versions, InitializeWithoutWord_GoneOnWith_HoldsNothing) {
  TheWorld().AnswerErrors({5});
  Initialize(nullptr);
  EXPECT_TRUE(Application().IsNothing());
}

TEST_F(Versions, RootObjects_AreFetchedAtEachCall) {
  const struct {
    Object (*fetch)();
    const char* use;
  } cases[] = {
      {&Templates, "get Application Templates() = Templates"},
      {&Dialogs, "get Application Dialogs() = Dialogs"},
      {&Documents, "get Application Documents() = Documents"},
      {&ActiveDocument, "get Application ActiveDocument() = document One.doc"},
      {&activeWindow, "get Application ActiveWindow() = window One.doc"},
  };
  Word().Open(u"One.doc");
  for (const auto& [fetch, use] : cases) {
    SCOPED_TRACE(use);
    Did().Clear();
    EXPECT_FALSE(fetch().IsNothing());
    EXPECT_FALSE(fetch().IsNothing());
    EXPECT_EQ(Block(Did().Of(Doings::kUse)), Block({use, use}));
  }
  Did().Clear();
  EXPECT_EQ(Application(), Word().Application());
  EXPECT_TRUE(Did().All().empty());
}

TEST_F(Versions, RootObjectsAfterTerminate_FailInTheirOwnName) {
  const struct {
    void (*fetch)();
    const char* error;
  } cases[] = {
      {[] { Templates(); }, "91 CommonWordInteractionFunctions.Templates[Get]"},
      {[] { Dialogs(); }, "91 CommonWordInteractionFunctions.Dialogs[Get]"},
      {[] { Documents(); }, "91 CommonWordInteractionFunctions.Documents[Get]"},
      {[] { ActiveDocument(); }, "91 CommonWordInteractionFunctions.ActiveDocument[Get]"},
      {[] { activeWindow(); }, "91 CommonWordInteractionFunctions.activeWindow[Get]"},
      {[] { WordVersion(); }, "91 CommonWordInteractionFunctions.WordVersion[Get]"},
  };
  TheWorld();
  Terminate();
  EXPECT_TRUE(Application().IsNothing());
  for (const auto& [fetch, error] : cases) {
    Did().Clear();
    fetch();
    EXPECT_EQ(Block(Did().Errors()), Block({error}));
  }
}

TEST_F(Versions, ActiveDocumentWithoutOne_IsAnError) {
  TheWorld();
  EXPECT_TRUE(ActiveDocument().IsNothing());
  EXPECT_EQ(Block(Did().Errors()), "4248 CommonWordInteractionFunctions.ActiveDocument[Get]\n");
}

TEST_F(Versions, ReadingLayoutWithoutADocument_LeavesTheWindowAlone) {
  TheWorld();
  EXPECT_FALSE(ViewingReadingLayout());
  EXPECT_EQ(Block(Did().Of(Doings::kUse)),
            "get Application Version() = 11.0\n"
            "get Application Documents() = Documents\n"
            "get Documents Count() = 0\n");
  EXPECT_TRUE(Did().Errors().empty());
}

TEST_F(Versions, ReadingLayoutBefore2003_AsksForTheVersionAlone) {
  for (const char16_t* version : {u"9.0", u"10.0"}) {
    Begin(version);
    wordsim::OpenFlags flags;
    flags.reading = true;
    Word().Open(u"One.doc", flags);
    EXPECT_FALSE(ViewingReadingLayout());
    EXPECT_EQ(Did().Count(Doings::kUse), 1u);
    EXPECT_TRUE(Did().Errors().empty());
  }
}

TEST_F(Versions, ReadingLayout_IsThatOfTheActiveWindow) {
  for (const char16_t* version : {u"11.0", u"12.0"}) {
    Begin(version);
    wordsim::OpenFlags reading;
    reading.reading = true;
    Word().Open(u"Plain.doc");
    EXPECT_FALSE(ViewingReadingLayout());
    Word().Open(u"Book.doc", reading);
    EXPECT_TRUE(ViewingReadingLayout());
    Word().Activate(u"Plain.doc");
    EXPECT_FALSE(ViewingReadingLayout());
    EXPECT_TRUE(Did().Errors().empty());
  }
}

}  // namespace
}  // namespace strandline
