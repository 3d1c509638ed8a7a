// What the loaded library tells of itself, for the desk's journal: each module, then each toolbar with its objects.

#include "tests/addin/main2_fixture.h"

namespace strandline {
namespace {

// The names of modules and objects, a toolbar's in brackets, each with its number of variables.
class Outline final : public StateVisitor {
 public:
  void BeginModule(const char16_t* name) override {
    mText += ToUtf8(name);
    mVariables = 0;
  }
  void EndModule() override { mText += " " + std::to_string(mVariables) + "\n"; }
  void BeginToolbar() override { mText += "[\n"; }
  void EndToolbar() override { mText += "]\n"; }
  void Variable(TextView, const Variant&) override { ++mVariables; }
  const std::string& Text() const { return mText; }

 private:
  std::string mText;
  int mVariables = 0;
};

class LibraryState : public Main2Test {
 protected:
  std::string State() {
    Outline outline;
    TheWorld().TheLibrary().ReportState(outline);
    return outline.Text();
  }
};

TEST_F(LibraryState, ListsModulesAndThenTheToolbarsOfTheRegistry) {
  TheWorld().Open(u"One.doc");
  TheWorld().Open(u"Two.doc");
  const std::string toolbar = "[\nToolbar 6\nButtons 94\nPainter 12\nAdvertisements 13\n]\n";
  EXPECT_EQ(State(),
            "Main2 8\nToolbarUtilities 10\nCommonPropertyFunctions 6\nCommonWordInteractionFunctions 1\n"
            "AdvertisementsFactory 15\nSleepReplacement 1\nLanguageExtensions 1\nCommonLogger 1\nvbwProtector 10\n" +
                toolbar + toolbar);
}

TEST_F(LibraryState, PassesOverWhatIsntThere) {
  Begin(u"12.0");
  EXPECT_EQ(State(),
            "Main2 8\nToolbarUtilities 10\nCommonPropertyFunctions 6\nCommonWordInteractionFunctions 1\n"
            "SleepReplacement 1\nLanguageExtensions 1\nCommonLogger 1\nvbwProtector 10\n");
}

// An entry that ClickOnAd leaves has no toolbar to tell of.
TEST_F(LibraryState, PassesOverAnEmptyEntry) {
  TheWorld();
  Main().ClickOnAd();
  EXPECT_EQ(State().find('['), std::string::npos);
}

}  // namespace
}  // namespace strandline
