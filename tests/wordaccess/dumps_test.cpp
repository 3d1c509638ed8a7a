// The whole of a dump, line by line, of a procedure of each module that reaches Word.

#include <algorithm>

#include "tests/foundation/error_component.h"
#include "tests/support/allocations.h"
#include "tests/wordaccess/word_access_fixture.h"

namespace strandline {
namespace {

class WordAccessDumps : public WordAccessTest {
 protected:
  // A world whose error component asks for a dump first.
  World& BeginWithDump(const char16_t* version = u"11.0") {
    World& world = Begin(version);
    world.desk.Components().Register(u"QuillmereError.Main2", [this] { return mScript.Create(); });
    mScript.Answer({Long{8}});
    return world;
  }
  std::string Dump() const {
    const auto from = std::find(mScript.log.begin(), mScript.log.end(), "vbwOpenDumpFile()");
    const auto to = std::find(from, mScript.log.end(), "vbwCloseDumpFile()");
    return Block({from, to});
  }
  static std::string Whole(const TextLines& locals, const TextLines& module) {
    TextLines lines = {"vbwOpenDumpFile()", Banner("LOCAL LEVEL VARIABLES  ")};
    const auto add = [&](const TextLines& variables) {
      for (const std::string& variable : variables) lines.push_back("vbwReportVariable(" + variable + ", 0)");
    };
    add(locals);
    lines.push_back(Banner("MODULE LEVEL VARIABLES "));
    add(module);
    lines.push_back(Banner("GLOBAL LEVEL VARIABLES "));
    add({"'vbwProtector.vbwTraceProc', True", "'vbwProtector.vbwTraceParameters', False",
         "'ToolbarUtilities.adFactory', Nothing", "'ToolbarUtilities.productState', Nothing",
         "'ToolbarUtilities.converter', Nothing"});
    for (const char* object : {"App", "Err", "Screen"}) {
      lines.push_back(std::string("vbwReportObject('") + object + "', 0, object)");
    }
    return Block(lines);
  }

  ErrorScript mScript;

 private:
  static std::string Banner(const std::string& title) {
    return "vbwReportToFile('|**************************|* " + title + "*|**************************|')";
  }
};

TEST_F(WordAccessDumps, OfTheVersion_TellsWhereTheSeparatorsStand) {
  BeginWithDump(u"abc.1,2");
  EXPECT_EQ(CommonWordInteractionFunctions::WordVersion(), 0);
  EXPECT_EQ(Dump(), Whole({"'version', 'abc.1'", "'dot', 4", "'comma', 6", "'separator', 6"}, {"'mWord', object"}));
}

TEST_F(WordAccessDumps, OfTheVersionThatCannotBeRead_TellsNothingYet) {
  BeginWithDump();
  CommonWordInteractionFunctions::Terminate();
  EXPECT_EQ(CommonWordInteractionFunctions::WordVersion(), 0);
  EXPECT_EQ(Dump(), Whole({"'version', ''", "'dot', 0", "'comma', 0", "'separator', 0"}, {"'mWord', Nothing"}));
}

// Who looks for the window hands in whether it was found in Outlook: not yet.
TEST_F(WordAccessDumps, OfTheDocumentsWindow_TellsThatOutlookIsNotFoundYet) {
  void (*const callers[])() = {&CommonWordWindowFunctions::ActivateActiveDocumentWindow,
                               [] { CommonWordWindowFunctions::ActiveDocumentHandle(); }};
  for (void (*const call)() : callers) {
    BeginWithDump();
    mScript.log.clear();
    Word().Faults().Arm("Documents", "Count");
    call();
    EXPECT_EQ(Dump(), Whole({"'inOutlook2000', False", "'name', ''"}, {}));
  }
}

TEST_F(WordAccessDumps, OfADocumentThatDoesNotTellWhetherItIsSaved_HasNoAnswer) {
  BeginWithDump();
  const Object document = Ref<wordsim::Document>(&Word().Open(u"One.doc"));
  Word().Faults().Arm("document One.doc", "Saved");
  EXPECT_FALSE(CommonWordWindowFunctions::CancelCloseDueToSave(document));
  EXPECT_EQ(Dump(), Whole({"'doc', object", "'answer', 0"}, {}));
}

TEST_F(WordAccessDumps, OfTheSavePrompt_TellsTheAnswer) {
  BeginWithDump();
  const Object document = Ref<wordsim::Document>(&Word().Open(u"One.doc"));
  Word().Type(u"One.doc");
  TheWorld().AnswerBox(msgbox::kAnswerNo);
  TheWorld().did.during = [this](const Doings::Line& line) {
    if (line.kind == Doings::kBox) Word().Faults().Arm("document One.doc", "Saved");
  };
  EXPECT_FALSE(CommonWordWindowFunctions::CancelCloseDueToSave(document));
  EXPECT_EQ(Dump(), Whole({"'doc', object", "'answer', 7"}, {}));
}

TEST_F(WordAccessDumps, OfTheFormattersDiscovery_TellsHowFarItCame) {
  BeginWithDump();
  TheWorld().desk.Components().SetMissing(u"StylanthMLA.Main2", true);
  CommonPropertyFunctions::initializeDisplayToClassNames();
  EXPECT_EQ(Dump(),
            Whole({"'classNames', [0 'StylanthAMA' 'StylanthAPA' 'StylanthMLA' 'StylanthTurabian']",
                   "'formatter', object", "'metaData', object", "'displayName', 'APA'", "'upper', 3", "'index', 2"},
                  {"'mFormatDisplayNames', [0 'AMA' 'APA' '' '']", "'mCurrentFormatter', ''",
                   "'mDisplayToClassNames', object", "'mFormatMetaData', object", "'mFormatters', object",
                   "'mProperties', object"}));
}

// The list of class names is never sized, so its bounds raise.
TEST_F(WordAccessDumps, OfTheFormattersDiscoveryWithoutMemoryForTheNames_TellsThatItDidNotBegin) {
  BeginWithDump();
  mScript.Answer({Long{0}, Long{8}});
  FailNextAllocationOf(4 * sizeof(String));
  CommonPropertyFunctions::initializeDisplayToClassNames();
  FailNextAllocationOf(0);
  EXPECT_EQ(Dump(),
            Whole({"'classNames', [unsized]", "'formatter', Nothing", "'metaData', Nothing", "'displayName', ''",
                   "'upper', -1", "'index', 0"},
                  {"'mFormatDisplayNames', [unsized]", "'mCurrentFormatter', ''", "'mDisplayToClassNames', object",
                   "'mFormatMetaData', object", "'mFormatters', object", "'mProperties', object"}));
}

}  // namespace
}  // namespace strandline
