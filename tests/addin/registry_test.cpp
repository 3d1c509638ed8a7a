// The registry of toolbars by window: what is read, repaired and removed.

#include "tests/addin/main2_fixture.h"

namespace strandline {
namespace {

class ToolbarRegistry : public Main2Test {
 protected:
  static constexpr Long kNobody = 0x7777;

  // A click on the ad of a window without a toolbar leaves an Empty entry for it.
  void AddEmpty() {
    Main().ClickOnAd();
    Did().Clear();
  }
  void OpenThree() {
    for (const char16_t* name : {u"One.doc", u"Two.doc", u"Three.doc"}) TheWorld().Open(name);
    Did().Clear();
  }
};

TEST_F(ToolbarRegistry, AbsentKey_HasNoToolbarAndComesInEmptyByBeingAskedFor) {
  OpenThree();
  EXPECT_FALSE(Inside::Toolbars(Main(), kNobody));
  EXPECT_EQ(Registry(), "top 1, top 2, top 3, " + std::to_string(kNobody));
  EXPECT_TRUE(Inside::Registry(Main())->ItemAt(3).IsEmpty());
  EXPECT_EQ(Block(Did().Errors()), "13 Main2.Toolbars[Get]\n");
}

TEST_F(ToolbarRegistry, EmptyItem_IsNoToolbar) {
  Word().Open(u"One.doc");
  AddEmpty();
  EXPECT_FALSE(Inside::Toolbars(Main(), Top("top 1")));
  EXPECT_EQ(Registry(), "top 1");
  EXPECT_EQ(Block(Did().Errors()), "13 Main2.Toolbars[Get]\n");
}

TEST_F(ToolbarRegistry, Key_GivesItsToolbar) {
  OpenThree();
  EXPECT_EQ(Inside::Toolbars(Main(), Top("top 2")).get(), ToolbarOf("top 2"));
  EXPECT_TRUE(Did().Errors().empty());
}

TEST_F(ToolbarRegistry, CastOfSomethingElse_IsAnError) {
  TheWorld().Open(u"One.doc");
  const Variant others[] = {Variant(), Variant(Long{5}), Variant(u"toolbar"), Variant(Word().Application())};
  for (const Variant& other : others) {
    Did().Clear();
    EXPECT_FALSE(Inside::castToToolbar(Main(), other));
    EXPECT_EQ(Block(Did().Errors()), "13 Main2.castToToolbar\n");
  }
  Did().Clear();
  EXPECT_FALSE(Inside::castToToolbar(Main(), Object()));
  EXPECT_TRUE(Did().Errors().empty()) << "Nothing is a toolbar's Nothing";
  const Ref<Toolbar> toolbar = ToolbarOf("top 1");
  EXPECT_EQ(Inside::castToToolbar(Main(), Object(toolbar)), toolbar);
}

TEST_F(ToolbarRegistry, ToolbarExists_TellsTheWindowInEveryCase) {
  Word().Open(u"One.doc");
  Long hwnd = 1;
  EXPECT_FALSE(Inside::ToolbarExists(Main(), hwnd));
  EXPECT_EQ(hwnd, Top("top 1"));
  TheWorld().Create();
  hwnd = 1;
  EXPECT_TRUE(Inside::ToolbarExists(Main(), hwnd));
  EXPECT_EQ(hwnd, Top("top 1"));
  EXPECT_EQ(Registry(), "top 1");
}

TEST_F(ToolbarRegistry, ToolbarExistsWithoutAWindow_IsFalse) {
  TheWorld();
  AddEmpty();
  ASSERT_EQ(Registry(), "0");
  Long hwnd = 1;
  EXPECT_FALSE(Inside::ToolbarExists(Main(), hwnd));
  EXPECT_EQ(hwnd, 0);
  EXPECT_TRUE(Did().Logs().empty());
}

// The errors of ending what isn't there are gone on with; then the entry goes.
TEST_F(ToolbarRegistry, EmptyItem_IsRemovedAndStillCountsAsThere) {
  Word().Open(u"One.doc");
  AddEmpty();
  ASSERT_EQ(Registry(), "top 1");
  Long hwnd = 0;
  EXPECT_TRUE(Inside::ToolbarExists(Main(), hwnd));
  EXPECT_EQ(hwnd, Top("top 1"));
  EXPECT_EQ(Registry(), "");
  EXPECT_EQ(Block(Did().Logs()),
            "log 2 ERROR\n"
            "log 1 Remove Toolbar (" +
                HexOf(hwnd) +
                ")\n"
                "log 0 Removed toolbar, the remaining count 0\n");
  EXPECT_EQ(Block(Did().Errors()), "13 Main2.Toolbars[Get]\n");
}

TEST_F(ToolbarRegistry, EmptyItemAtACreation_IsReplacedAsAStaleOne) {
  Word().Open(u"One.doc");
  AddEmpty();
  ASSERT_EQ(Registry(), "top 1");
  Inside::HandleDocumentCreateImpl(Main());
  const std::string hex = HexOf(Top("top 1"));
  EXPECT_EQ(Registry(), "top 1");
  EXPECT_NE(ToolbarOf("top 1"), nullptr);
  EXPECT_EQ(Block(MainLogs()),
            "log 0 HandleDocumentCreateImpl\n"
            "log 2 ERROR\n"
            "log 1 Remove Toolbar (" +
                hex +
                ")\n"
                "log 0 Removed toolbar, the remaining count 0\n"
                "log 0 Removed stale hwnd = " +
                hex +
                "\n"
                "log 1 Remove Toolbar (" +
                hex +
                ")\n"
                "log 0 ToggleToolbar True\n"
                "log 0 AddListener for One.doc (" +
                hex +
                ")\n"
                "log 0 HandleDocumentCreateImpl End for " +
                hex + "\n");
}

TEST_F(ToolbarRegistry, RemovalOfAnUnknownWindow_IsNoError) {
  OpenThree();
  Inside::RemoveToolbarImpl(Main(), kNobody);
  EXPECT_EQ(Registry(), "top 1, top 2, top 3");
  EXPECT_EQ(Block(Did().Logs()), "log 1 Remove Toolbar (7777)\n");
  EXPECT_TRUE(Did().Errors().empty());
}

TEST_F(ToolbarRegistry, Removal_EndsTheToolbarBeforeItsKeyGoes) {
  OpenThree();
  const Ref<Toolbar> two = ToolbarOf("top 2");
  std::string atTheEnd = "never ended";
  Did().during = [&](const Doings::Line& line) {
    if (line.text == "unsubclass bar 2") atTheEnd = Registry();
  };
  Inside::RemoveToolbarImpl(Main(), Top("top 2"));
  EXPECT_EQ(atTheEnd, "top 1, top 2, top 3");
  EXPECT_EQ(Registry(), "top 1, top 3");
  EXPECT_EQ(Block(MainLogs()), "log 1 Remove Toolbar (" + HexOf(Top("top 2")) +
                                   ")\n"
                                   "log 0 Removed toolbar, the remaining count 2\n");
  EXPECT_TRUE(VariableSnapshot::Of(*two).Flag(u"mQuitting"));
  EXPECT_EQ(TheWorld().desk.Windows().LiveHooks(), 2u);
}

TEST_F(ToolbarRegistry, ExtraneousWithADocumentForEach_AreNone) {
  OpenThree();
  Inside::RemoveExtraneousToolbar(Main());
  EXPECT_EQ(Registry(), "top 1, top 2, top 3");
  EXPECT_EQ(Block(Did().Logs()), "log 2 RemoveExtraneousToolbar\n");
}

// Of several without a document, the first in the order of the keys goes, and it alone.
TEST_F(ToolbarRegistry, ExtraneousEntries_GoOneAtATime) {
  OpenThree();
  Word().Close(u"Two.doc");
  Word().Close(u"Three.doc");
  Inside::RemoveExtraneousToolbar(Main());
  EXPECT_EQ(Registry(), "top 1, top 3");
  Inside::RemoveExtraneousToolbar(Main());
  EXPECT_EQ(Registry(), "top 1");
  Inside::RemoveExtraneousToolbar(Main());
  EXPECT_EQ(Registry(), "top 1");
}

TEST_F(ToolbarRegistry, ExtraneousWithoutDocuments_IsTheFirst) {
  OpenThree();
  const Long second = Top("top 2");
  for (const char16_t* name : {u"One.doc", u"Two.doc", u"Three.doc"}) Word().Close(name);
  Inside::RemoveExtraneousToolbar(Main());
  ASSERT_EQ(Inside::Registry(Main())->Count(), 2);
  EXPECT_EQ(Inside::Registry(Main())->KeyAt(0), Variant(second));
}

TEST_F(ToolbarRegistry, ExtraneousInTheSmallToolbar_AreLeftAlone) {
  OpenAndShrinkMeanwhile();
  Word().Close(u"One.doc");
  Did().Clear();
  Inside::RemoveExtraneousToolbar(Main());
  EXPECT_EQ(Inside::Registry(Main())->Count(), 1);
  EXPECT_EQ(Block(Did().Logs()), "log 2 RemoveExtraneousToolbar\n");
}

TEST_F(ToolbarRegistry, ExtraneousInAnEmptyRegistry_AreNone) {
  TheWorld();
  Inside::RemoveExtraneousToolbar(Main());
  EXPECT_TRUE(Did().Errors().empty());
}

TEST_F(ToolbarRegistry, RemovalOfAll_GoesInTheOrderOfTheKeys) {
  OpenThree();
  Inside::RemoveAllToolbars(Main());
  EXPECT_EQ(Registry(), "");
  EXPECT_EQ(Block(MainLogs()),
            "log 0 RemoveAllToolbars\n"
            "log 1 Remove Toolbar (" +
                HexOf(Top("top 1")) +
                ")\n"
                "log 0 Removed toolbar, the remaining count 2\n"
                "log 1 Remove Toolbar (" +
                HexOf(Top("top 2")) +
                ")\n"
                "log 0 Removed toolbar, the remaining count 1\n"
                "log 1 Remove Toolbar (" +
                HexOf(Top("top 3")) +
                ")\n"
                "log 0 Removed toolbar, the remaining count 0\n");
  EXPECT_EQ(TheWorld().desk.Windows().LiveHooks(), 0u);
}

TEST_F(ToolbarRegistry, RemovalOfAllInTheSmallToolbar_LeavesTheRegistry) {
  OpenAndShrinkMeanwhile();
  Inside::RemoveAllToolbars(Main());
  EXPECT_EQ(Registry(), "top 1");
  EXPECT_EQ(Block(Did().Logs()), "log 0 RemoveAllToolbars\n");
}

TEST_F(ToolbarRegistry, LastToolbar_GoesOnlyWhileItWaits) {
  OpenThree();
  Inside::RemoveLastToolbar(Main());
  EXPECT_EQ(Registry(), "top 1, top 2, top 3");
  EXPECT_TRUE(Did().All().empty());
  Inside::MoveToolbarFlag(Main()) = true;
  Inside::RemoveLastToolbar(Main());
  EXPECT_EQ(Registry(), "") << "all keys, not the last window's alone";
  EXPECT_FALSE(Inside::MoveToolbarFlag(Main()));
  EXPECT_EQ(Did().Logs()[0], "log 0 RemoveLastToolbar");
}

TEST_F(ToolbarRegistry, LastToolbar_NoLongerWaitsWhenItsRemovalIsLogged) {
  TheWorld().Open(u"One.doc");
  TheWorld().Close(u"One.doc");
  ASSERT_TRUE(Inside::MoveToolbarFlag(Main()));
  std::string flagAtTheLog = "no log";
  Did().during = [&](const Doings::Line& line) {
    if (line.text == "log 0 RemoveLastToolbar") flagAtTheLog = Inside::MoveToolbarFlag(Main()) ? "waits" : "done";
  };
  Inside::RemoveLastToolbar(Main());
  Did().during = nullptr;
  EXPECT_EQ(flagAtTheLog, "done");
}

TEST_F(ToolbarRegistry, LastToolbarWithoutARegistry_IsNoError) {
  Begin(u"12.0");
  Inside::MoveToolbarFlag(Main()) = true;
  Inside::RemoveLastToolbar(Main());
  EXPECT_FALSE(Inside::MoveToolbarFlag(Main()));
  EXPECT_TRUE(Did().Errors().empty());
}

// Documents, whether the last one is kept, and what remains.
TEST_F(ToolbarRegistry, ActiveEntry_IsKeptOnlyAsTheLastOne) {
  const struct {
    int documents;
    bool keep;
    const char* registry;
    bool waits;
  } cases[] = {{1, true, "top 1", true}, {1, false, "", false}, {2, true, "top 1", false}, {2, false, "top 1", false}};
  for (const auto& row : cases) {
    SCOPED_TRACE(std::to_string(row.documents) + (row.keep ? " keep" : ""));
    Begin(u"11.0");
    TheWorld().Open(u"One.doc");
    if (row.documents == 2) TheWorld().Open(u"Two.doc");
    Inside::RemoveActiveToolbarEntry(Main(), row.keep);
    EXPECT_EQ(Registry(), row.registry);
    EXPECT_EQ(Inside::MoveToolbarFlag(Main()), row.waits);
    EXPECT_EQ(Inside::OldHwnd(Main()), row.waits ? Top("top 1") : 0);
  }
}

TEST_F(ToolbarRegistry, ActiveEntryThatIsntThere_DoesntWait) {
  Word().Open(u"One.doc");
  Inside::RemoveActiveToolbarEntry(Main(), true);
  EXPECT_FALSE(Inside::MoveToolbarFlag(Main()));
  EXPECT_EQ(Inside::OldHwnd(Main()), Top("top 1"));
  EXPECT_TRUE(Did().Errors().empty());
}

TEST_F(ToolbarRegistry, ActiveEntryWithoutDocumentsOrStrip_IsLeftAlone) {
  OpenAndShrinkMeanwhile();
  Inside::RemoveActiveToolbarEntry(Main(), false);
  EXPECT_TRUE(Did().All().empty());
  EXPECT_EQ(Registry(), "top 1");
  Begin(u"11.0");
  OpenThree();
  for (const char16_t* name : {u"One.doc", u"Two.doc", u"Three.doc"}) Word().Close(name);
  Did().Clear();
  Inside::RemoveActiveToolbarEntry(Main(), false);
  EXPECT_TRUE(Did().Logs().empty());
  EXPECT_EQ(Inside::Registry(Main())->Count(), 3);
}

// The question whose document a toolbar is belongs to the removal: where it can't be asked, nothing goes.
TEST_F(ToolbarRegistry, ExtraneousToolbar_StaysWhereTheDocumentsCannotBeGoneThrough) {
  OpenThree();
  const std::string before = Registry();
  Did().Clear();
  Word().Faults().Arm("Documents", "each");
  Inside::RemoveExtraneousToolbar(Main());
  EXPECT_EQ(Registry(), before);
  EXPECT_EQ(Block(Did().Errors()), "1000 Main2.RemoveExtraneousToolbar\n");
}

}  // namespace
}  // namespace strandline
