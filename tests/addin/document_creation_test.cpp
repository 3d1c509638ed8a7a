// What a new document brings about.

#include "tests/addin/main2_fixture.h"

namespace strandline {
namespace {

class DocumentCreation : public Main2Test {
 protected:
  static wordsim::OpenFlags Reading() {
    wordsim::OpenFlags flags;
    flags.reading = true;
    return flags;
  }
  // The log's line of that text raises, once.
  void RaiseInLog(const std::string& text, Long number, const char16_t* description) {
    Did().during = [this, text, number, description](const Doings::Line& line) {
      if (line.text != text) return;
      Did().during = nullptr;
      Raise(number, description);
    };
  }
};

TEST_F(DocumentCreation, FirstDocument_GetsAToolbar) {
  for (const char16_t* version : {u"9.0", u"10.0", u"11.0"}) {
    SCOPED_TRACE(ToUtf8(version));
    Begin(version);
    TheWorld().Open(u"One.doc");
    const std::string hex = HexOf(Top("top 1"));
    EXPECT_EQ(Registry(), "top 1");
    EXPECT_EQ(Block(MainLogs()),
              "log 0 HandleDocumentCreateImpl\n"
              "log 0 ToggleToolbar True\n"
              "log 0 AddListener for One.doc (" +
                  hex +
                  ")\n"
                  "log 0 HandleDocumentCreateImpl End for " +
                  hex + "\n");
    ASSERT_NE(ToolbarOf("top 1"), nullptr);
    EXPECT_EQ(ToolbarOf("top 1")->parentHwnd(), Top("top 1"));
    EXPECT_EQ(Block(Did().Of(Doings::kHook, "subclass")), "subclass bar 1\n");
    EXPECT_TRUE(Did().Errors().empty());
  }
}

TEST_F(DocumentCreation, EachFurtherDocument_GetsOneOfItsOwn) {
  TheWorld().Open(u"One.doc");
  TheWorld().Open(u"Two.doc");
  Did().Clear();
  TheWorld().Open(u"Three.doc");
  EXPECT_EQ(Registry(), "top 1, top 2, top 3");
  const std::string hex = HexOf(Top("top 3"));
  EXPECT_EQ(Block(MainLogs()),
            "log 0 HandleDocumentCreateImpl\n"
            "log 0 AddListener for Three.doc (" +
                hex +
                ")\n"
                "log 0 HandleDocumentCreateImpl End for " +
                hex + "\n");
  EXPECT_TRUE(Did().Errors().empty());
}

TEST_F(DocumentCreation, EventBeforeAnyDocument_IsSkipped) {
  TheWorld();
  TheWorld().Create();
  EXPECT_EQ(Block(Did().Logs()), "log 1 Skip creation event that happened too early\n");
  EXPECT_EQ(Registry(), "");
  EXPECT_FALSE(Inside::Enabled(Main()));
}

// Word lets a document go without a word, and makes another.
TEST_F(DocumentCreation, AsManyEntriesAsDocuments_LoseTheFirstWithoutADocument) {
  TheWorld().Open(u"One.doc");
  TheWorld().Open(u"Two.doc");
  Word().Close(u"One.doc");
  Word().Open(u"Three.doc");
  const Long gone = Top("top 1");
  const Ref<Toolbar> two = ToolbarOf("top 2");
  Did().Clear();
  TheWorld().Create();
  EXPECT_EQ(Registry(), "top 2, top 3");
  EXPECT_EQ(ToolbarOf("top 2"), two.get());
  const std::string hex = HexOf(Top("top 3"));
  EXPECT_EQ(Block(MainLogs()),
            "log 2 RemoveExtraneousToolbar\n"
            "log 1 Remove Toolbar (" +
                HexOf(gone) +
                ")\n"
                "log 0 Removed toolbar, the remaining count 1\n"
                "log 0 HandleDocumentCreateImpl\n"
                "log 0 AddListener for Three.doc (" +
                hex +
                ")\n"
                "log 0 HandleDocumentCreateImpl End for " +
                hex + "\n");
}

TEST_F(DocumentCreation, WindowWithAnEntry_GetsANewToolbar) {
  TheWorld().Open(u"One.doc");
  const Ref<Toolbar> old = ToolbarOf("top 1");
  Did().Clear();
  TheWorld().Create();
  EXPECT_EQ(Registry(), "top 1");
  EXPECT_NE(ToolbarOf("top 1"), old.get());
  const std::string hex = HexOf(Top("top 1"));
  EXPECT_EQ(Block(MainLogs()),
            "log 2 RemoveExtraneousToolbar\n"
            "log 0 HandleDocumentCreateImpl\n"
            "log 0 Removed stale hwnd = " +
                hex +
                "\n"
                "log 1 Remove Toolbar (" +
                hex +
                ")\n"
                "log 0 Removed toolbar, the remaining count 0\n"
                "log 0 AddListener for One.doc (" +
                hex +
                ")\n"
                "log 0 HandleDocumentCreateImpl End for " +
                hex + "\n");
  EXPECT_EQ(Block(Did().Of(Doings::kHook)), "previous(bar 1, 18, 0, 0) = 0\nunsubclass bar 1\nsubclass bar 1\n");
  EXPECT_EQ(TheWorld().desk.Windows().LiveHooks(), 1u);
}

// Of the entry that stands for the last document, the count speaks first, and then the flag.
TEST_F(DocumentCreation, WaitingEntry_GoesAsExtraneousBeforeItGoesAsTheLast) {
  TheWorld().Open(u"One.doc");
  TheWorld().Close(u"One.doc");
  ASSERT_TRUE(Inside::MoveToolbarFlag(Main()));
  ASSERT_EQ(Registry(), "top 1");
  Did().Clear();
  TheWorld().Open(u"Two.doc");
  const std::string hex = HexOf(Top("top 1"));
  EXPECT_EQ(Block(MainLogs()),
            "log 2 RemoveExtraneousToolbar\n"
            "log 1 Remove Toolbar (" +
                hex +
                ")\n"
                "log 0 Removed toolbar, the remaining count 0\n"
                "log 0 HandleDocumentCreateImpl\n"
                "log 0 RemoveLastToolbar\n"
                "log 0 ToggleToolbar True\n"
                "log 0 Setting ToolbarVisible = True\n"
                "log 0 AddListener for Two.doc (" +
                hex +
                ")\n"
                "log 0 HandleDocumentCreateImpl End for " +
                hex + "\n");
  EXPECT_EQ(Registry(), "top 1");
  EXPECT_FALSE(Inside::MoveToolbarFlag(Main()));
  EXPECT_TRUE(BarShows());
}

TEST_F(DocumentCreation, ReadingLayout_GetsNoToolbarAndHidesTheBar) {
  TheWorld().Open(u"Book.doc", Reading());
  EXPECT_EQ(Registry(), "");
  EXPECT_FALSE(BarShows());
  EXPECT_EQ(Block(Did().Logs()),
            "log 0 Cancel HandleDocumentCreate for reading layout\n"
            "log 0 Setting ToolbarVisible = False\n");
  EXPECT_FALSE(Inside::Enabled(Main()));
}

TEST_F(DocumentCreation, ReadingLayoutBefore2003_DoesntExist) {
  Begin(u"10.0");
  TheWorld().Open(u"Book.doc", Reading());
  EXPECT_EQ(Registry(), "top 1");
  EXPECT_TRUE(BarShows());
}

TEST_F(DocumentCreation, StartByTheIcon_BringsTheDocumentToTheFront) {
  for (const bool startedFromIcon : {true, false}) {
    Begin(u"11.0");
    Word().Open(u"One.doc");
    Word().Cover(true);
    TheWorld().Create(startedFromIcon);
    EXPECT_EQ(TheWorld().desk.Windows().GetForegroundWindow() == Top("top 1"), startedFromIcon);
    EXPECT_EQ(Registry(), "top 1");
  }
}

TEST_F(DocumentCreation, FromWord2007On_TheRibbonIsEnabledAndNothingElse) {
  for (const char16_t* version : {u"12.0", u"14.0"}) {
    Begin(version);
    TheWorld().Open(u"One.doc");
    TheWorld().Open(u"Two.doc");
    EXPECT_EQ(Block(Did().Of(Doings::kUse, "call")),
              "call RibbonHandler.Main2 EnableToolbar(True)\n"
              "call RibbonHandler.Main2 EnableToolbar(True)\n");
    EXPECT_EQ(Did().Count(Doings::kUse, "let"), 0u);
    EXPECT_TRUE(Did().Logs().empty());
    EXPECT_TRUE(Did().Of(Doings::kHook).empty());
    EXPECT_EQ(Registry(), "none");
  }
}

TEST_F(DocumentCreation, FromWord2007On_TheIconShowsTheProductsTab) {
  Begin(u"12.0");
  TheWorld().Open(u"One.doc", {}, true);
  EXPECT_EQ(Block(Did().Of(Doings::kUse, "call")),
            "call RibbonHandler.Main2 EnableToolbar(True)\n"
            "call RibbonHandler.Main2 ActivateQuillmereTab(bar Ribbon)\n");
  EXPECT_EQ(Did().Count(Doings::kService, "SetForegroundWindow"), 0u);
}

TEST_F(DocumentCreation, SmallToolbar_NeedsNoEntry) {
  TheWorld();
  ShrinkForReal();
  TheWorld().Open(u"One.doc");
  EXPECT_EQ(Registry(), "");
  EXPECT_EQ(Block(MainLogs()),
            "log 0 HandleDocumentCreateImpl\n"
            "log 0 ToggleToolbar True\n"
            "log 0 HandleDocumentCreateImpl End for " +
                HexOf(Top("top 1")) + "\n");
  EXPECT_TRUE(Did().Of(Doings::kHook).empty());
}

// What keeps a strip away is nothing to the small toolbar: neither the reading layout, nor an event before any
// document.
TEST_F(DocumentCreation, SmallToolbar_IsCreatedForTheReadingLayoutToo) {
  TheWorld();
  ShrinkForReal();
  TheWorld().Open(u"Book.doc", Reading());
  EXPECT_EQ(Block(MainLogs()),
            "log 0 HandleDocumentCreateImpl\n"
            "log 0 ToggleToolbar True\n"
            "log 0 HandleDocumentCreateImpl End for " +
                HexOf(Top("top 1")) + "\n");
  EXPECT_TRUE(BarShows());
  EXPECT_TRUE(Inside::Enabled(Main()));
  EXPECT_EQ(Did().Count(Doings::kUse, "get view Book.doc ReadingLayout"), 0u);
}

TEST_F(DocumentCreation, SmallToolbar_IsCreatedBeforeAnyDocumentToo) {
  TheWorld();
  ShrinkForReal();
  TheWorld().Create();
  EXPECT_EQ(Block(MainLogs()),
            "log 0 HandleDocumentCreateImpl\n"
            "log 0 ToggleToolbar True\n"
            "log 0 HandleDocumentCreateImpl End for 0\n");
  EXPECT_TRUE(Inside::Enabled(Main()));
  EXPECT_EQ(Registry(), "");
}

// Who passes over the comparison of the counts goes on with what belongs to equal ones.
TEST_F(DocumentCreation, CountsThatCantBeCompared_CountAsEqualWhenPassedOver) {
  TheWorld().Open(u"One.doc");
  Word().Open(u"Two.doc");
  Did().Clear();
  Did().during = [&](const Doings::Line& line) {
    if (line.text.starts_with("get view Two.doc ReadingLayout")) Word().Faults().Arm("Documents", "count");
  };
  TheWorld().AnswerErrors({5});
  TheWorld().Create();
  Did().during = nullptr;
  EXPECT_EQ(Block(Did().Errors()), "1000 Main2.HandleCreateDocument\n");
  EXPECT_EQ(Did().Count(Doings::kLog, "log 2 RemoveExtraneousToolbar"), 1u);
  EXPECT_EQ(Registry(), "top 1, top 2");

  // Without a registry there is nothing to compare, and the error is the same statement's.
  Begin(u"11.0");
  Word().Open(u"One.doc");
  Did().Clear();
  Inside::Registry(Main()) = nullptr;
  TheWorld().AnswerErrors({5});
  TheWorld().Create();
  EXPECT_EQ(Did().Errors()[0], "91 Main2.HandleCreateDocument");
  EXPECT_EQ(Did().Count(Doings::kLog, "log 2 RemoveExtraneousToolbar"), 1u);
}

// A mail of an old Word stands in a window of Outlook's, which is the key then.
TEST_F(DocumentCreation, MailOfAnOldWord_IsEnteredUnderOutlooksWindow) {
  Begin(u"10.0");
  TheWorld().Open(u"One.doc");
  wordsim::OpenFlags mail;
  mail.mail = true;
  TheWorld().Open(u"Letter", mail);
  EXPECT_EQ(Registry(), "top 1, top 2");
  EXPECT_EQ(ToUtf8(TheWorld().desk.Windows().ClassName(Top("top 2"))), "rctrl_renwnd32");
}

TEST_F(DocumentCreation, FailureOfAStatementOfItsOwn_IsABox) {
  Word().Open(u"One.doc");
  const std::string hex = HexOf(Top("top 1"));
  RaiseInLog("log 0 HandleDocumentCreateImpl End for " + hex, 1000, u"No room");
  TheWorld().Create();
  EXPECT_EQ(Block(Did().Boxes()), "box 0 [] No room in HandleDocumentCreateImpl of " + hex + " = 1\n");
  EXPECT_TRUE(Did().Errors().empty());
  EXPECT_EQ(Registry(), "top 1");
}

TEST_F(DocumentCreation, FailureWithAStaleWindow_LeavesTheRestUndone) {
  TheWorld().Open(u"One.doc");
  const std::string hex = HexOf(Top("top 1"));
  const Ref<Toolbar> old = ToolbarOf("top 1");
  RaiseInLog("log 0 Removed stale hwnd = " + hex, 1000, u"No room");
  TheWorld().Create();
  EXPECT_EQ(Block(Did().Boxes()), "box 0 [] No room in HandleDocumentCreateImpl of " + hex + " = 1\n");
  EXPECT_EQ(ToolbarOf("top 1"), old.get());
}

TEST_F(DocumentCreation, FailureBeforeTheHandler_IsAnErrorInTheTail) {
  Word().Open(u"One.doc");
  RaiseInLog("log 0 HandleDocumentCreateImpl", 1000, u"No room");
  TheWorld().Create();
  EXPECT_TRUE(Did().Boxes().empty());
  EXPECT_EQ(Block(Did().Errors()), "1000 Main2.HandleDocumentCreateImpl\n");
  EXPECT_EQ(Registry(), "");
}

TEST_F(DocumentCreation, FailureWithinACallee_StaysThere) {
  Word().Open(u"One.doc");
  // The second reading of the name is AddListener's.
  int names = 0;
  Did().during = [&](const Doings::Line& line) {
    if (line.text == "get document One.doc name() = One.doc" && ++names == 1) {
      Word().Faults().Arm("document One.doc", "name");
    }
  };
  TheWorld().Create();
  Did().during = nullptr;
  EXPECT_TRUE(Did().Boxes().empty());
  EXPECT_EQ(Block(Did().Errors()), "1000 Main2.AddListener\n");
  EXPECT_EQ(Registry(), "");
  EXPECT_EQ(MainLogs().back(), "log 0 HandleDocumentCreateImpl End for " + HexOf(Top("top 1")));
}

TEST_F(DocumentCreation, NoHandle_GoesOnAllTheSame) {
  WorldOptions options;
  options.word.barPosition = wordsim::BarPosition::kFloating;
  Begin(options);
  Word().Open(u"One.doc");
  TheWorld().desk.Host().SetTitle(Top("top 1"), u"Nameless");
  const Long dialog = TheWorld().desk.Host().CreateWindowOf(u"dialog", u"", 0, {0, 0, 10, 10}, nullptr);
  TheWorld().desk.Host().ActivateWindow(dialog);
  TheWorld().Create();
  EXPECT_EQ(Registry(), "0");
  EXPECT_EQ(MainLogs().back(), "log 0 HandleDocumentCreateImpl End for 0");
}

// The wait for the bar lets messages run; what comes in then doesn't find the toolbar yet.
TEST_F(DocumentCreation, CallDuringTheWaitForTheBar_DoesntSeeTheNewToolbar) {
  WorldOptions options;
  options.word.barLate = 400;
  Begin(options);
  std::string during = "never asked";
  TheWorld().desk.Clock().After(200, [&] {
    during = Registry();
    Main().HandleDocumentChange();
    Main().ProductNameChanged();
  });
  TheWorld().Open(u"One.doc");
  EXPECT_EQ(during, "");
  EXPECT_EQ(Registry(), "top 1");
  EXPECT_TRUE(Did().Errors().empty());
}

// What the product would do if it didn't hold its events back until the creation is over.
class EventDuringACreation : public DocumentCreation {
 protected:
  // Opens the document, and does this while its strip waits for the bar.
  void OpenAndMeanwhile(const std::function<void()>& action) {
    WorldOptions options;
    options.word.barLate = 400;
    Begin(options);
    TheWorld().Open(u"One.doc");
    TheWorld().desk.Clock().After(200, [this, action] {
      ASSERT_EQ(Registry(), "top 1") << "the second isn't up yet";
      action();
    });
    TheWorld().Open(u"Two.doc");
  }
};

TEST_F(EventDuringACreation, Close_LeavesTheEntryOfADocumentThatIsGone) {
  OpenAndMeanwhile([this] { EXPECT_TRUE(TheWorld().HandleClose(u"Two.doc")); });
  EXPECT_EQ(Registry(), "top 1, top 2");
}

TEST_F(EventDuringACreation, HidingOfTheBar_HoldsTheCreationUpUntilTheBarShows) {
  bool isUp = true;
  OpenAndMeanwhile([&] {
    Main().ReadingMode();
    TheWorld().desk.Clock().After(1000, [&] {
      isUp = ToolbarOf("top 2") != nullptr;
      Inside::ToolbarVisible(Main(), true);
    });
  });
  EXPECT_FALSE(isUp);
  EXPECT_EQ(Registry(), "top 1, top 2");
}

TEST_F(EventDuringACreation, SecondCreation_IsEnteredFirstAndTheFirstNotAtAll) {
  OpenAndMeanwhile([this] { TheWorld().Create(); });
  EXPECT_EQ(Registry(), "top 1, top 2");
  EXPECT_EQ(Block(Did().Errors()), "457 Main2.AddListener\n");
}

TEST_F(EventDuringACreation, ClickOnAnAd_TakesTheEntryOfTheStripThatIsMade) {
  OpenAndMeanwhile([this] { Main().ClickOnAd(); });
  EXPECT_EQ(Block(Did().Errors()), "13 Main2.Toolbars[Get]\n457 Main2.AddListener\n");
  EXPECT_TRUE(Inside::Registry(Main())->ItemAt(1).IsEmpty());
}

TEST_F(DocumentCreation, Toolbar_IsEnteredAfterItsWindowIsHooked) {
  TheWorld();
  std::string atTheHook = "no hook";
  Did().during = [&](const Doings::Line& line) {
    if (line.text == "subclass bar 1") atTheHook = Registry();
  };
  TheWorld().Open(u"One.doc");
  EXPECT_EQ(atTheHook, "");
  EXPECT_EQ(Registry(), "top 1");
}

}  // namespace
}  // namespace strandline
