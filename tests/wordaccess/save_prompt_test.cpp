// What the user is asked when a document with unsaved changes closes.

#include "tests/support/scripted_object.h"
#include "tests/wordaccess/word_access_fixture.h"

namespace strandline {
namespace {

using CommonWordWindowFunctions::CancelCloseDueToSave;

class SavePrompt : public WordAccessTest {
 protected:
  Object Open(const char16_t* name, bool blank = false) {
    wordsim::OpenFlags flags;
    flags.blank = blank;
    Object document = Ref<wordsim::Document>(&Word().Open(name, flags));
    Did().Clear();
    return document;
  }
  Object OpenChanged(const char16_t* name) {
    Object document = Open(name);
    Word().Type(name);
    return document;
  }
  TextLines Uses() { return Did().Of(Doings::kUse); }
};

TEST_F(SavePrompt, SavedDocument_ClosesUnasked) {
  const Object document = Open(u"One.doc");
  EXPECT_FALSE(CancelCloseDueToSave(document));
  EXPECT_EQ(Block(Uses()), "get document One.doc Saved() = True\n");
  EXPECT_TRUE(Did().Boxes().empty());
}

// Path, characters, and whether the user is asked.
TEST_F(SavePrompt, OnlyABlankNewDocument_ClosesUnaskedWithChanges) {
  const struct {
    bool isNew;
    Long typed;
    bool asked;
  } cases[] = {{true, 0, false}, {true, 1, true}, {true, 100, true}, {false, 0, true}, {false, 5, true}};
  for (const auto& [isNew, typed, asked] : cases) {
    SCOPED_TRACE(std::string(isNew ? "new, typed " : "of a file, typed ") + std::to_string(typed));
    Begin(u"11.0");
    const Object document = Open(u"One.doc", isNew);
    Word().Type(u"One.doc", typed);
    ASSERT_FALSE(document.Get("Saved").ToBoolean());
    EXPECT_FALSE(CancelCloseDueToSave(document));
    EXPECT_EQ(Did().Boxes().size(), asked ? 1u : 0u);
  }
}

TEST_F(SavePrompt, NoMemoryToSave_CancelsTheClosing) {
  TheWorld().AnswerBox(msgbox::kAnswerYes);
  const Object document = New<ScriptedObject>([](Use use, Name member, const Arguments&) -> Variant {
    if (use == Use::kCall) throw std::bad_alloc();
    return member == Name("Saved") ? Variant(false) : Variant(u"One.doc");
  });
  EXPECT_TRUE(CancelCloseDueToSave(document));
  EXPECT_EQ(vbwProtector::lastError.number, errors::kOutOfMemory);
  EXPECT_EQ(vbwProtector::lastError.description, u"Out of memory");
  EXPECT_TRUE(Did().Errors().empty());
}

// A file that holds a single character has a path, and so isn't new.
TEST_F(SavePrompt, DocumentOfOneCharacterWithAPath_IsAskedAbout) {
  const Object document = Open(u"One.doc", true);
  document.Call("Save");
  document.Let("Saved", false);
  ASSERT_EQ(document.Get("Characters").ToObject().Get("Count").ToLong(), 1);
  CancelCloseDueToSave(document);
  EXPECT_EQ(Did().Boxes().size(), 1u);
}

// The user's answer, what then happens to the document, and the result.
TEST_F(SavePrompt, Answer_DecidesWhatHappens) {
  const struct {
    Long answer;
    const char* use;
    bool cancels;
  } cases[] = {
      {msgbox::kAnswerCancel, nullptr, true},
      {msgbox::kAnswerYes, "call document One.doc Save()", false},
      {msgbox::kAnswerNo, "let document One.doc Saved(True)", false},
      {msgbox::kAnswerOk, nullptr, false},
      {0, nullptr, false},
  };
  for (const auto& [answer, use, cancels] : cases) {
    SCOPED_TRACE(answer);
    Begin(u"11.0");
    const Object document = OpenChanged(u"One.doc");
    TheWorld().AnswerBox(answer);
    EXPECT_EQ(CancelCloseDueToSave(document), cancels);
    EXPECT_EQ(Block(Did().Boxes()),
              "box 51 [Microsoft Word] Do you want to save the changes to One.doc? = " + std::to_string(answer) + "\n");
    // What was asked of the document before the box is told elsewhere.
    TextLines uses = Uses();
    std::erase_if(uses, [](const std::string& line) { return line.starts_with("get "); });
    const TextLines expected = use ? TextLines{use} : TextLines{};
    EXPECT_EQ(Block(uses), Block(expected));
    EXPECT_TRUE(Did().Errors().empty());
  }
}

TEST_F(SavePrompt, Question_ComesAfterSavedAndPath) {
  const Object document = OpenChanged(u"One.doc");
  CancelCloseDueToSave(document);
  const TextLines uses = Uses();
  ASSERT_GE(uses.size(), 4u);
  EXPECT_EQ(uses[0], "get document One.doc Saved() = False");
  EXPECT_TRUE(uses[1].starts_with("get document One.doc Path()")) << uses[1];
  EXPECT_EQ(uses[uses.size() - 2], "get document One.doc name() = One.doc");
  EXPECT_EQ(uses[uses.size() - 1], "call document One.doc Save()");
}

TEST_F(SavePrompt, No_LeavesTheDocumentMarkedSaved) {
  const Object document = OpenChanged(u"One.doc");
  TheWorld().AnswerBox(msgbox::kAnswerNo);
  EXPECT_FALSE(CancelCloseDueToSave(document));
  EXPECT_TRUE(document.Get("Saved").ToBoolean());
}

TEST_F(SavePrompt, Cancel_LeavesTheDocumentAsItIs) {
  const Object document = OpenChanged(u"One.doc");
  TheWorld().AnswerBox(msgbox::kAnswerCancel);
  EXPECT_TRUE(CancelCloseDueToSave(document));
  EXPECT_FALSE(document.Get("Saved").ToBoolean());
}

TEST_F(SavePrompt, FailedSave_CancelsTheCloseWithoutASign) {
  const Object document = OpenChanged(u"One.doc");
  Word().Faults().Arm("document One.doc", "Save");
  TheWorld().AnswerBox(msgbox::kAnswerYes);
  EXPECT_TRUE(CancelCloseDueToSave(document));
  EXPECT_TRUE(Did().Errors().empty());
  EXPECT_EQ(Did().Boxes().size(), 1u);
  EXPECT_FALSE(document.Get("Saved").ToBoolean());
}

// Only the save has a handler of its own.
TEST_F(SavePrompt, OtherFailures_ReachTheTailAndLetTheCloseGoOn) {
  for (const char* member : {"Saved", "Path", "Characters", "name"}) {
    SCOPED_TRACE(member);
    Begin(u"11.0");
    const Object document = Open(u"One.doc", true);
    Word().Type(u"One.doc", 10);
    Word().Faults().Arm("document One.doc", member);
    EXPECT_FALSE(CancelCloseDueToSave(document));
    EXPECT_EQ(Block(Did().Errors()), "1000 CommonWordWindowFunctions.CancelCloseDueToSave\n");
    EXPECT_TRUE(Did().Boxes().empty());
  }
}

TEST_F(SavePrompt, DocumentThatCantBeMarkedSaved_IsAnErrorInTheTail) {
  const Object document = OpenChanged(u"One.doc");
  TheWorld().AnswerBox(msgbox::kAnswerNo);
  TheWorld().did.during = [this](const Doings::Line& line) {
    if (line.kind == Doings::kBox) Word().Faults().Arm("document One.doc", "Saved");
  };
  EXPECT_FALSE(CancelCloseDueToSave(document));
  EXPECT_EQ(Block(Did().Errors()), "1000 CommonWordWindowFunctions.CancelCloseDueToSave\n");
}

// The question and its box are one: without a name there is nothing to ask.
TEST_F(SavePrompt, NameThatCantBeRead_GoneOnWith_AsksNothing) {
  const Object document = OpenChanged(u"One.doc");
  Word().Faults().Arm("document One.doc", "name");
  TheWorld().AnswerErrors({5});
  EXPECT_FALSE(CancelCloseDueToSave(document));
  EXPECT_TRUE(Did().Boxes().empty());
  EXPECT_FALSE(document.Get("Saved").ToBoolean());
  EXPECT_EQ(Block(Did().Errors()), "1000 CommonWordWindowFunctions.CancelCloseDueToSave\n");
}

TEST_F(SavePrompt, NoDocument_IsAnError) {
  TheWorld();
  EXPECT_FALSE(CancelCloseDueToSave(nullptr));
  EXPECT_EQ(Block(Did().Errors()), "91 CommonWordWindowFunctions.CancelCloseDueToSave\n");
}

}  // namespace
}  // namespace strandline
