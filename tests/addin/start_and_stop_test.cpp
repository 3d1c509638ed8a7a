// The start of the library, its stop, and loads one after the other.

#include "drawing/ToolbarUtilities.h"
#include "tests/addin/main2_fixture.h"
#include "tests/foundation/told.h"
#include "tests/support/scripted_object.h"
#include "wordaccess/CommonPropertyFunctions.h"
#include "wordaccess/CommonWordInteractionFunctions.h"
#include "wordsim/components.h"

namespace strandline {
namespace {

class StartAndStop : public Main2Test {
 protected:
  WorldOptions WithTrace(const char16_t* version) {
    WorldOptions options = ForWord(version);
    options.commandLine = u"winword.exe /trace";
    return options;
  }
  // What was done and logged, without the questions for the version.
  std::string Story() {
    std::string story;
    for (const Doings::Line& line : Did().All()) {
      if (!(line.kind & (Doings::kUse | Doings::kLog | Doings::kCreate | Doings::kError))) continue;
      if (!line.text.starts_with("get Application Version()")) story += line.text + "\n";
    }
    return story;
  }
  // The names of the wanted procedures as they were told, in their order.
  static TextLines Only(const TextLines& calls, std::initializer_list<const char*> wanted) {
    TextLines only;
    for (const std::string& call : calls) {
      for (const char* name : wanted) {
        if (call.starts_with(std::string(name) + "(")) only.push_back(call);
      }
    }
    return only;
  }
};

TEST_F(StartAndStop, StartBefore2007_TakesItsStepsInOrder) {
  Prepare(ForWord(u"11.0")).Start();
  EXPECT_EQ(Story(),
            "get productState productName() = Quillmere\n"
            "get properties tooltip() = tooltip\n"
            "let tooltip TooltipIconIndex(401)\n"
            "get Application Documents() = Documents\n"
            "get Documents count() = 0\n"
            "log 0 ProcessEliteToolbar\n"
            "log 0 EnsureToolbarIsOnItsOwnRow\n"
            "get Application CommandBars() = CommandBars\n"
            "get CommandBars Item(Quillmere) = bar Quillmere\n"
            "get bar Quillmere Position() = 1\n"
            "let bar Quillmere RowIndex(-1)\n"
            "let bar Quillmere left(0)\n");
  EXPECT_EQ(Registry(), "") << "no toolbar yet";
  EXPECT_FALSE(Inside::SmallToolbar(Main()));
  EXPECT_TRUE(ToolbarUtilities::variables.adFactory);
  EXPECT_TRUE(Did().Of(Doings::kService | Doings::kHook).empty());
}

TEST_F(StartAndStop, StartFrom2007On_TakesItsStepsInOrder) {
  Prepare(ForWord(u"12.0")).Start();
  EXPECT_EQ(Story(),
            "get productState productName() = Quillmere\n"
            "get properties tooltip() = tooltip\n"
            "let tooltip TooltipIconIndex(401)\n"
            "log 0 UpdateLumivexIcon\n"
            "call properties ExecuteQLMCommand(LumivexToggled)\n"
            "get Application CommandBars() = CommandBars\n"
            "get CommandBars Item(Quillmere) = bar Quillmere\n"
            "let bar Quillmere visible(False)\n"
            "create RibbonHandler.Main2\n"
            "get productState productName() = Quillmere\n"
            "call RibbonHandler.Main2 Initialize(object, Quillmere)\n"
            "get productState lumivexEnabled() = False\n");
  EXPECT_EQ(Registry(), "none");
  EXPECT_TRUE(Inside::SmallToolbar(Main()));
  EXPECT_FALSE(ToolbarUtilities::variables.adFactory);
}

TEST_F(StartAndStop, StartFrom2007OnWithLumivex_TellsTheRibbonLast) {
  WorldOptions options = ForWord(u"12.0");
  options.word.lumivexEnabled = true;
  Prepare(options).Start();
  EXPECT_TRUE(
      Story().ends_with("call RibbonHandler.Main2 Initialize(object, Quillmere)\n"
                        "get productState lumivexEnabled() = True\n"
                        "log 0 UpdateLumivexIcon\n"
                        "get productState lumivexEnabled() = True\n"
                        "call RibbonHandler.Main2 UpdateLumivexIcon(True)\n"
                        "call properties ExecuteQLMCommand(LumivexToggled)\n"))
      << Story();
}

TEST_F(StartAndStop, Procedures_RunInTheOrderOfTheStart) {
  Prepare(WithTrace(u"10.0")).Load();
  ToldProcedures told;
  TheWorld().Initialize();
  EXPECT_EQ(
      Block(Only(told.calls, {"Main2.Initialize", "CommonLogger.OpenLog", "CommonWordInteractionFunctions.Initialize",
                              "CommonPropertyFunctions.properties[Let]", "ToolbarUtilities.Initialize",
                              "AdvertisementsFactory.Initialize", "Main2.ProductNameChanged",
                              "CommonPropertyFunctions.Dictionary", "Main2.EnsureToolbarIsOnItsOwnRow"})),
      "Main2.Initialize(word=object properties=object productState=object productName='Quillmere')\n"
      "CommonLogger.OpenLog(level=0 productName='Quillmere' logPrefix='strandline' companyName='Morvane')\n"
      "CommonWordInteractionFunctions.Initialize(word=object)\n"
      "CommonPropertyFunctions.properties[Let](theProperties=object)\n"
      "ToolbarUtilities.Initialize(callbackToMain=object productState=object productName='Quillmere')\n"
      "AdvertisementsFactory.Initialize(callbackToMain=object)\n"
      "Main2.ProductNameChanged()\n"
      "CommonPropertyFunctions.Dictionary()\n"
      "Main2.EnsureToolbarIsOnItsOwnRow()\n");
}

TEST_F(StartAndStop, WithoutWord_TheErrorIsToldAndTheStartGoesOn) {
  Prepare(ForWord(u"11.0")).Load();
  Object word;
  Object properties = Word().Properties();
  Object productState = Word().ProductState();
  String name = u"Quillmere";
  Main().Initialize(word, properties, productState, name);
  ASSERT_FALSE(Did().Questions().empty());
  EXPECT_EQ(Did().Questions()[0].number, 12345);
  EXPECT_EQ(Did().Questions()[0].description, "word cannot be nothing");
  EXPECT_EQ(Did().Errors()[0], "12345 CommonWordInteractionFunctions.Initialize");
  EXPECT_EQ(CommonPropertyFunctions::properties(), properties);
  Main().Quit();
  EXPECT_EQ(Did().Count(Doings::kLog, "log 1 Quit"), 1u);
}

TEST_F(StartAndStop, WithoutStoreOrState_NothingCrashes) {
  for (const char16_t* version : {u"11.0", u"12.0"}) {
    Prepare(ForWord(version)).Load();
    Object word = Word().Application();
    Object nothing;
    String name;
    Main().Initialize(word, nothing, nothing, name);
    TheWorld().Open(u"One.doc");
    EXPECT_FALSE(Did().Errors().empty());
    Main().HandleDocumentChange();
    TheWorld().Close(u"One.doc");
    Main().Quit();
  }
}

TEST_F(StartAndStop, MissingRibbonComponent_EndsTheStartThere) {
  WorldOptions options = ForWord(u"12.0");
  options.word.lumivexEnabled = true;
  options.word.missingComponents = {u"RibbonHandler.Main2"};
  Prepare(options).Start();
  EXPECT_EQ(Block(Did().Errors()), "429 Main2.Initialize\n");
  EXPECT_FALSE(Inside::SmallToolbar(Main()));
  EXPECT_TRUE(Inside::Events(Main()));
  EXPECT_TRUE(Main().RibbonHandler().IsNothing());
  EXPECT_FALSE(BarShows());
  EXPECT_EQ(Did().Count(Doings::kUse, "get productState lumivexEnabled"), 0u);
  Did().Clear();
  TheWorld().Open(u"One.doc");
  EXPECT_EQ(Block(Did().Errors()), "91 Main2.HandleCreateDocument\n");
  EXPECT_EQ(Registry(), "none");
  EXPECT_TRUE(TheWorld().Close(u"One.doc"));
}

TEST_F(StartAndStop, ComponentThatFailsToStart_LeavesTheStripsFlag) {
  Prepare(ForWord(u"12.0"));
  Word().Faults().Arm("RibbonHandler.Main2", "Initialize");
  TheWorld().Start();
  EXPECT_EQ(Block(Did().Errors()), "1000 Main2.Initialize\n");
  EXPECT_FALSE(Inside::SmallToolbar(Main()));
  EXPECT_FALSE(Main().RibbonHandler().IsNothing());
}

// Message, hook and handles, and the modules one after the other.
TEST_F(StartAndStop, Quit_TakesItsStepsInOrder) {
  Begin(WithTrace(u"11.0"));
  TheWorld().Open(u"One.doc");
  Did().Clear();
  ToldProcedures told;
  Main().Quit();
  EXPECT_EQ(Block(Only(told.calls, {"Main2.Quit", "Main2.RemoveAllToolbars", "ToolbarUtilities.Terminate",
                                    "CommonPropertyFunctions.Terminate", "CommonWordInteractionFunctions.Terminate",
                                    "CommonLogger.CloseLog"})),
            "Main2.Quit()\n"
            "Main2.RemoveAllToolbars()\n"
            "ToolbarUtilities.Terminate()\n"
            "CommonPropertyFunctions.Terminate()\n"
            "CommonWordInteractionFunctions.Terminate()\n"
            "CommonLogger.CloseLog(instanceId=-1)\n");
  EXPECT_EQ(Block(MainLogs()),
            "log 1 Quit\n"
            "log 0 RemoveAllToolbars\n"
            "log 1 Remove Toolbar (" +
                HexOf(Top("top 1")) +
                ")\n"
                "log 0 Removed toolbar, the remaining count 0\n");
  EXPECT_TRUE(CommonWordInteractionFunctions::variables.mWord.IsNothing());
  EXPECT_TRUE(CommonPropertyFunctions::variables.mProperties.IsNothing());
  EXPECT_TRUE(ToolbarUtilities::variables.productState.IsNothing());
  EXPECT_FALSE(ToolbarUtilities::variables.adFactory);
}

// At each module's end: which of the objects and holders are still there.
TEST_F(StartAndStop, Quit_ReleasesTheHoldersLast) {
  class Moments final : public vbwProtector::ProcedureObserver {
   public:
    explicit Moments(Main2& main) : mMain(main) { vbwProtector::procedureObserver = this; }
    ~Moments() { vbwProtector::procedureObserver = nullptr; }
    void OnProcedure(const ProcedureName& name, void (*)(const void*, Reporter&), const void*) override {
      const std::string trace = ToUtf8(name.TraceName());
      if (trace != "Main2.Quit" && trace != "Main2.RemoveAllToolbars" && !trace.ends_with(".Terminate") &&
          trace != "CommonLogger.CloseLog") {
        return;
      }
      std::string held;
      if (!Main2Access::RibbonHandler(mMain).IsNothing()) held += " handler";
      if (Main2Access::Events(mMain)) held += " events";
      if (Main2Access::Callback(mMain)) held += " callback";
      if (!ToolbarUtilities::variables.productState.IsNothing()) held += " state";
      if (!CommonPropertyFunctions::variables.mProperties.IsNothing()) held += " store";
      if (!CommonWordInteractionFunctions::variables.mWord.IsNothing()) held += " word";
      lines.push_back(trace + ":" + held);
    }
    TextLines lines;

   private:
    Main2& mMain;
  };
  Begin(WithTrace(u"12.0"));
  Moments moments(Main());
  Main().Quit();
  EXPECT_EQ(Block(moments.lines),
            "Main2.Quit: handler events callback state store word\n"
            "Main2.RemoveAllToolbars: handler events callback state store word\n"
            "ToolbarUtilities.Terminate: state store word\n"
            "CommonPropertyFunctions.Terminate: store word\n"
            "CommonWordInteractionFunctions.Terminate: word\n"
            "CommonLogger.CloseLog:\n");
}

// The component can say a last word through its relay while it goes.
TEST_F(StartAndStop, RibbonComponent_GoesBeforeItsRelay) {
  Prepare(ForWord(u"12.0"));
  Object relay;
  TheWorld().desk.Components().Register(u"RibbonHandler.Main2", [&relay] {
    return Object(New<ScriptedObject>(
        [&relay](Use, Name member, const Arguments& arguments) -> Variant {
          if (member == Name("Initialize")) relay = arguments.positional[0].ToObject();
          return {};
        },
        [&relay] { relay.Call("run", u"Farewell"); }));
  });
  TheWorld().Start();
  Did().Clear();
  Main().Quit();
  EXPECT_EQ(Did().Count(Doings::kUse, "call properties ExecuteQLMCommand(Farewell)"), 1u);
  relay.Call("run", u"Too late");
  EXPECT_EQ(Did().Count(Doings::kUse, "call"), 1u);
  relay = nullptr;
}

TEST_F(StartAndStop, SecondQuit_DoesNothing) {
  TheWorld().Open(u"One.doc");
  Main().Quit();
  Did().Clear();
  Main().Quit();
  EXPECT_TRUE(Did().All().empty());
  TheWorld().Release();
  EXPECT_TRUE(Did().All().empty()) << "nor does the object's end";
}

TEST_F(StartAndStop, EndOfTheObject_Quits) {
  TheWorld().Open(u"One.doc");
  Did().Clear();
  TheWorld().Release();
  EXPECT_EQ(Did().Count(Doings::kLog, "log 1 Quit"), 1u);
  EXPECT_EQ(Did().Count(Doings::kHook, "unsubclass bar 1"), 1u);
  EXPECT_EQ(TheWorld().desk.Windows().LiveHooks(), 0u);
}

TEST_F(StartAndStop, QuitWithoutAStart_IsHarmless) {
  Prepare(ForWord(u"11.0")).Load();
  Main().Quit();
  EXPECT_EQ(Block(Did().Logs()), "log 1 Quit\nlog 0 RemoveAllToolbars\n");
}

// What each operation tells the error component once Word and the product are gone, and that it does nothing else. The
// version can't be told then, so that a newer Word's operations take the older one's ways.
TEST_F(StartAndStop, AfterQuit_EachOperationEndsInItsTails) {
  const struct {
    const char* operation;
    const char* errors;
    const char* errorsFrom2007On;
  } cases[] = {
      {"HandleCreateDocument",
       "91 CommonWordInteractionFunctions.WordVersion[Get]\n"
       "91 CommonWordInteractionFunctions.Documents[Get]\n"
       "91 CommonWordWindowFunctions.ActiveDocumentHandle\n"
       "91 CommonWordInteractionFunctions.WordVersion[Get]\n"
       "91 CommonWordInteractionFunctions.Documents[Get]\n"
       "91 Main2.HandleCreateDocument\n",
       "91 CommonWordInteractionFunctions.WordVersion[Get]\n"
       "91 CommonWordInteractionFunctions.Documents[Get]\n"
       "91 CommonWordWindowFunctions.ActiveDocumentHandle\n"
       "91 CommonWordInteractionFunctions.WordVersion[Get]\n"
       "91 CommonWordInteractionFunctions.Documents[Get]\n"
       "91 CommonWordWindowFunctions.ActiveDocumentHandle\n"
       "91 CommonWordInteractionFunctions.Documents[Get]\n"
       "91 Main2.ToggleToolbarForNoDocuments\n"},
      {"HandleDocumentChange", "91 CommonWordInteractionFunctions.WordVersion[Get]\n",
       "91 CommonWordInteractionFunctions.WordVersion[Get]\n"
       "91 CommonWordInteractionFunctions.WordVersion[Get]\n"
       "91 CommonWordInteractionFunctions.WordVersion[Get]\n"
       "91 Main2.ProcessEliteToolbar\n"},
      {"HandleCloseDocument",
       "91 CommonWordInteractionFunctions.WordVersion[Get]\n"
       "91 CommonWordInteractionFunctions.Documents[Get]\n"
       "91 CommonWordInteractionFunctions.Templates[Get]\n"
       "91 Main2.PreventQueryToSaveTemplate\n",
       "91 CommonWordInteractionFunctions.WordVersion[Get]\n"
       "91 CommonWordInteractionFunctions.Documents[Get]\n"
       "91 CommonWordInteractionFunctions.Templates[Get]\n"
       "91 Main2.PreventQueryToSaveTemplate\n"},
      {"EnableGotoQuickBookmark", "91 CommonWordInteractionFunctions.WordVersion[Get]\n",
       "91 CommonWordInteractionFunctions.WordVersion[Get]\n"},
      {"RibbonHandler", "", ""},
      {"ReadingMode",
       "91 CommonWordInteractionFunctions.activeWindow[Get]\n"
       "91 Main2.ReadingMode\n",
       "91 CommonWordInteractionFunctions.activeWindow[Get]\n"
       "91 Main2.ReadingMode\n"},
      {"ReadingModeLayout",
       "91 CommonWordInteractionFunctions.activeWindow[Get]\n"
       "91 Main2.ReadingMode\n",
       "91 CommonWordInteractionFunctions.activeWindow[Get]\n"
       "91 Main2.ReadingMode\n"},
      {"CloseReadingMode",
       "91 CommonWordInteractionFunctions.activeWindow[Get]\n"
       "91 CommonWordInteractionFunctions.WordVersion[Get]\n"
       "91 CommonWordInteractionFunctions.WordVersion[Get]\n"
       "91 CommonWordInteractionFunctions.Documents[Get]\n"
       "91 CommonWordWindowFunctions.ActiveDocumentHandle\n"
       "91 CommonWordInteractionFunctions.Documents[Get]\n"
       "91 Main2.ToggleToolbarForNoDocuments\n"
       "91 CommonWordInteractionFunctions.ActiveDocument[Get]\n"
       "91 Main2.AddListener\n",
       "91 CommonWordInteractionFunctions.activeWindow[Get]\n"
       "91 CommonWordInteractionFunctions.WordVersion[Get]\n"
       "91 CommonWordInteractionFunctions.WordVersion[Get]\n"
       "91 CommonWordInteractionFunctions.Documents[Get]\n"
       "91 CommonWordWindowFunctions.ActiveDocumentHandle\n"
       "91 CommonWordInteractionFunctions.Documents[Get]\n"
       "91 Main2.ToggleToolbarForNoDocuments\n"},
      {"ToggleLumivex", "91 Main2.ToggleLumivex\n", "91 Main2.ToggleLumivex\n"},
      {"FilePrintPreview2",
       "91 CommonWordInteractionFunctions.Documents[Get]\n"
       "91 Main2.RemoveActiveToolbarEntry\n"
       "91 CommonWordInteractionFunctions.WordVersion[Get]\n"
       "91 CommonWordInteractionFunctions.ActiveDocument[Get]\n"
       "91 Main2.FilePrintPreview2\n",
       "91 CommonWordInteractionFunctions.WordVersion[Get]\n"
       "91 CommonWordInteractionFunctions.ActiveDocument[Get]\n"
       "91 Main2.FilePrintPreview2\n"},
      {"ClosePreview",
       "91 CommonWordInteractionFunctions.WordVersion[Get]\n"
       "91 CommonWordInteractionFunctions.ActiveDocument[Get]\n"
       "91 Main2.ClosePreview\n",
       "91 CommonWordInteractionFunctions.WordVersion[Get]\n"
       "91 CommonWordInteractionFunctions.ActiveDocument[Get]\n"
       "91 Main2.ClosePreview\n"},
      {"ShrinkToolbar",
       "91 CommonWordInteractionFunctions.WordVersion[Get]\n"
       "91 CommonWordInteractionFunctions.WordVersion[Get]\n"
       "91 Main2.ProcessEliteToolbar\n",
       "91 CommonWordInteractionFunctions.WordVersion[Get]\n"
       "91 CommonWordInteractionFunctions.WordVersion[Get]\n"
       "91 Main2.ProcessEliteToolbar\n"},
      {"ProductNameChanged", "91 Main2.ProductNameChanged\n", "91 Main2.ProductNameChanged\n"},
      {"OpenUserManual",
       "91 CommonWordInteractionFunctions.Documents[Get]\n"
       "91 ToolbarUtilities.inUserManual\n"
       "91 CommonWordInteractionFunctions.WordVersion[Get]\n"
       "91 CommonPropertyFunctions.InstallPath[Get]\n",
       "91 CommonWordInteractionFunctions.Documents[Get]\n"
       "91 ToolbarUtilities.inUserManual\n"
       "91 CommonWordInteractionFunctions.WordVersion[Get]\n"
       "91 CommonPropertyFunctions.InstallPath[Get]\n"},
      {"UseQuillmere", "91 CommonWordInteractionFunctions.WordVersion[Get]\n",
       "91 CommonWordInteractionFunctions.WordVersion[Get]\n"},
      {"ClickOnAd",
       "91 CommonWordInteractionFunctions.Documents[Get]\n"
       "91 CommonWordWindowFunctions.ActiveDocumentHandle\n"
       "13 Main2.Toolbars[Get]\n",
       "91 CommonWordInteractionFunctions.Documents[Get]\n"
       "91 CommonWordWindowFunctions.ActiveDocumentHandle\n"
       "91 Main2.Toolbars[Get]\n"},
      {"Execute",
       "91 CommonWordInteractionFunctions.Documents[Get]\n"
       "91 Main2.Execute\n",
       "91 CommonWordInteractionFunctions.Documents[Get]\n"
       "91 Main2.Execute\n"},
      {"Quit", "", ""},
  };
  for (const bool from2007On : {false, true}) {
    for (const auto& row : cases) {
      SCOPED_TRACE(std::string(row.operation) + (from2007On ? " from 2007 on" : ""));
      Begin(from2007On ? u"12.0" : u"11.0");
      TheWorld().Open(u"One.doc");
      const Object document = Ref<wordsim::Document>(Word().Find(u"One.doc"));
      Main().Quit();
      Did().Clear();
      const std::string name = row.operation;
      std::vector<Variant> arguments;
      if (name == "HandleCreateDocument" || name == "EnableGotoQuickBookmark") arguments.emplace_back(true);
      if (name == "HandleCloseDocument") arguments.emplace_back(document);
      if (name == "Execute") arguments.emplace_back(u"ToggleLumivex");
      Arguments given;
      given.positional = arguments;
      Main().Invoke(Use::kCall, Name::FromText(name), given);
      EXPECT_EQ(Block(Did().Errors()), from2007On ? row.errorsFrom2007On : row.errors);
      EXPECT_EQ(Did().Count(Doings::kUse, "let"), 0u);
      EXPECT_EQ(Did().Count(Doings::kHook), 0u);
      EXPECT_EQ(TheWorld().desk.Windows().LiveHooks(), 0u);
    }
  }
}

TEST_F(StartAndStop, Quit_GivesBackAllHandles) {
  for (const char16_t* version : {u"9.0", u"10.0", u"11.0"}) {
    Prepare(ForWord(version));
    Word().Open(u"One.doc");
    TheWorld().desk.Clock().Wait(100);
    const std::size_t before = TheWorld().desk.Objects().Lost().size();
    TheWorld().Start();
    TheWorld().Create();
    TheWorld().Open(u"Two.doc");
    TheWorld().desk.Clock().Wait(500);
    EXPECT_GT(TheWorld().desk.Objects().Lost().size(), before);
    Main().Quit();
    EXPECT_EQ(TheWorld().desk.Objects().Lost().size(), before) << ToUtf8(version);
    EXPECT_EQ(TheWorld().desk.Windows().LiveTimers(), 0u);
    EXPECT_EQ(TheWorld().desk.Windows().LiveHooks(), 0u);
    EXPECT_TRUE(TheWorld().desk.Misuses().All().empty());
  }
}

// The store and the ribbon keep what they were handed longer than the library lives.
TEST_F(StartAndStop, RelaysThatOutliveTheirLoad_DoNothing) {
  Prepare(ForWord(u"12.0"));
  std::vector<Object> relays;
  std::vector<Object> callbacks;
  for (int load = 0; load < 25; ++load) {
    TheWorld().Start();
    relays.push_back(Inside::Events(Main()));
    callbacks.push_back(Inside::Callback(Main()));
    TheWorld().Open(u"One.doc");
    if (load % 2 == 0) Main().Quit();
    TheWorld().Unload();
    Did().Clear();
    for (const Object& relay : relays) {
      relay.Call("run", u"Anything");
      const Variant bits = relay.Call("getToolbarIconBits", Integer{102});
      ASSERT_NE(bits.If<Variant::Shared<Byte>>(), nullptr);
      EXPECT_FALSE((*bits.If<Variant::Shared<Byte>>())->IsSized());
    }
    for (const Object& callback : callbacks) {
      callback.Call("ValueChanged", u"key", u"value");
      callback.Call("NewAdvertisementsEvent", false);
    }
    EXPECT_TRUE(Did().All().empty());
  }
}

TEST_F(StartAndStop, LoadsOneAfterTheOther_BeginAfresh) {
  Prepare(ForWord(u"11.0"));
  std::string first;
  for (int load = 0; load < 25; ++load) {
    Did().Clear();
    TheWorld().Start();
    if (load == 0) first = Story();
    EXPECT_EQ(Story(), first);
    EXPECT_FALSE(Inside::Enabled(Main()));
    TheWorld().Open(u"One.doc");
    EXPECT_EQ(Registry(), "top 1");
    TheWorld().Close(u"One.doc");
    TheWorld().Unload();
    EXPECT_EQ(TheWorld().desk.Windows().LiveHooks(), 0u);
  }
  EXPECT_TRUE(TheWorld().desk.Misuses().All().empty());
}

TEST_F(StartAndStop, Report_ListsTheObjectsVariablesInTheirOrder) {
  TheWorld();
  EXPECT_EQ(Block(VariableSnapshot::Of(Main()).Names()),
            "mToolbars\nmOldHwnd\nmMoveToolbarFlag\nmSmallToolbar\nmRibbonHandler\nmHasShrunkToolbar\nmRibbonEvents\n"
            "mCallbackToMe\n");
}

}  // namespace
}  // namespace strandline
