// The commands of the overlay, the manual, the product's tab, the advertisement and the small toolbar.

#include "drawing/ToolbarUtilities.h"
#include "tests/addin/main2_fixture.h"

namespace strandline {
namespace {

constexpr const char* kManualPath = "C:\\Program Files\\Quillmere\\Quillmere user manual.doc";
constexpr const char16_t* kManual = u"Quillmere user manual.doc";

class UserCommands : public Main2Test {
 protected:
  std::size_t Notices() { return Did().Count(Doings::kUse, "call properties ExecuteQLMCommand(LumivexToggled)"); }
  Object Lumivex() { return TheWorld().Bar().Get("Controls").ToObject().Get("Item", Long{14}).ToObject(); }
  std::string OpenManual() { return ToUtf8(Main().OpenUserManual()); }
  // The dialogs that were shown, by number.
  void WatchDialogs() {
    mShown.clear();
    Word().TheHooks().showDialog = [this](Long number) { mShown += std::to_string(number) + " "; };
  }
  std::string mShown;
};

TEST_F(UserCommands, ToggleOfLumivex_TurnsTheStateAndTellsTheProductOnce) {
  for (const char16_t* version : {u"9.0", u"10.0", u"11.0", u"12.0"}) {
    Begin(version);
    TheWorld().Open(u"One.doc");
    for (const bool on : {true, false, true}) {
      Did().Clear();
      Main().ToggleLumivex();
      EXPECT_EQ(Word().TheProduct().IsLumivexEnabled(), on);
      EXPECT_EQ(Notices(), 1u);
      EXPECT_EQ(Did().Of(Doings::kUse).back(), "call properties ExecuteQLMCommand(LumivexToggled)");
      EXPECT_EQ(Did().Logs()[0], "log 0 ToggleLumivex");
      EXPECT_EQ(Block(Did().Of(Doings::kUse, "let productState")),
                std::string("let productState lumivexEnabled(") + (on ? "True)\n" : "False)\n"));
    }
    EXPECT_TRUE(Did().Errors().empty());
  }
}

TEST_F(UserCommands, ToggleOfLumivex_ShowsOnTheSmallToolbarsButton) {
  WorldOptions options;
  options.word.lumivexEnabled = true;
  Begin(options);
  ShrinkForReal();
  EXPECT_EQ(Lumivex().Get("State").ToLong(), -1);
  Main().ToggleLumivex();
  EXPECT_EQ(Lumivex().Get("State").ToLong(), 0);
  EXPECT_TRUE(ToUtf8(Lumivex().Get("TooltipText").ToText()).starts_with("Turn on Lumivex"));
  Main().ToggleLumivex();
  EXPECT_EQ(Lumivex().Get("State").ToLong(), -1);
}

// Another command that runs among the messages doesn't change what is written.
TEST_F(UserCommands, ToggleOfLumivex_LetsMessagesRunBetweenReadingAndWriting) {
  TheWorld().Open(u"One.doc");
  TheWorld().desk.Clock().Wait(200);
  bool ran = false;
  bool before = true;
  Did().Clear();
  TheWorld().desk.Windows().After(0, [&] {
    ran = true;
    before = Word().TheProduct().IsLumivexEnabled();
    Word().TheProduct().SetLumivex(true);
  });
  Main().ToggleLumivex();
  EXPECT_TRUE(ran);
  EXPECT_FALSE(before);
  EXPECT_TRUE(Word().TheProduct().IsLumivexEnabled()) << "the opposite of what stood before the messages";
  EXPECT_EQ(Notices(), 1u);
}

// One turn: what waits is handled, and what comes in meanwhile is not.
TEST_F(UserCommands, ToggleOfLumivex_LetsMessagesRunOnce) {
  for (const char16_t* version : {u"11.0", u"12.0"}) {
    Begin(version);
    Did().Clear();
    Main().ToggleLumivex();
    EXPECT_EQ(Did().Count(Doings::kService, "DoEvents"), 1u);
  }
}

TEST_F(UserCommands, LumivexThatCantBeReadOrWritten_IsAnError) {
  TheWorld().Open(u"One.doc");
  TheWorld().desk.Clock().Wait(200);
  Word().Faults().Arm("productState", "lumivexEnabled");
  Main().ToggleLumivex();
  EXPECT_EQ(Block(Did().Errors()), "1000 Main2.ToggleLumivex\n");
  EXPECT_EQ(Notices(), 0u);
  Did().Clear();
  Did().during = [&](const Doings::Line& line) {
    if (line.text == "get productState lumivexEnabled() = False") {
      Did().during = nullptr;
      Word().Faults().Arm("productState", "lumivexEnabled");
    }
  };
  Main().ToggleLumivex();
  EXPECT_EQ(Block(Did().Errors()), "1000 Main2.ToggleLumivex\n");
  EXPECT_FALSE(Word().TheProduct().IsLumivexEnabled());
  EXPECT_EQ(Notices(), 0u);
}

TEST_F(UserCommands, Manual_IsOpenedByTheCaller) {
  for (const char16_t* version : {u"9.0", u"10.0", u"11.0", u"12.0"}) {
    SCOPED_TRACE(ToUtf8(version));
    Begin(version);
    WatchDialogs();
    EXPECT_EQ(OpenManual(), kManualPath) << "without a document";
    TheWorld().Open(u"One.doc");
    Did().Clear();
    EXPECT_EQ(OpenManual(), kManualPath);
    EXPECT_EQ(mShown, "");
    EXPECT_EQ(Block(Did().Of(Doings::kUse, "let")),
              version[0] == u'9' ? "" : "let Options CtrlClickHyperlinkToOpen(False)\n");
    EXPECT_TRUE(Did().Errors().empty());
  }
}

TEST_F(UserCommands, InTheManual_TheFindDialogIsShownInstead) {
  for (const char16_t* version : {u"9.0", u"10.0", u"11.0"}) {
    Begin(version);
    WatchDialogs();
    TheWorld().Open(kManual);
    Did().Clear();
    EXPECT_EQ(OpenManual(), "");
    EXPECT_EQ(mShown, "112 ");
    EXPECT_EQ(Did().Count(Doings::kUse, "let"), 0u);
    EXPECT_EQ(Did().Count(Doings::kUse, "get properties InstallPath"), 0u);
  }
}

TEST_F(UserCommands, InTheManualWithTheSmallToolbar_ThePathIsTheAnswer) {
  for (const char16_t* version : {u"11.0", u"12.0"}) {
    Begin(version);
    WatchDialogs();
    TheWorld().Open(kManual);
    ShrinkForReal();
    EXPECT_EQ(OpenManual(), kManualPath);
    EXPECT_EQ(mShown, "");
  }
}

// The document in front counts, and its exact name.
TEST_F(UserCommands, ManualBehindAnotherDocument_IsntTheOneInFront) {
  TheWorld();
  WatchDialogs();
  TheWorld().Open(kManual);
  TheWorld().Open(u"One.doc");
  EXPECT_EQ(OpenManual(), kManualPath);
  TheWorld().Open(u"quillmere user manual.DOCX");
  EXPECT_EQ(OpenManual(), kManualPath);
  EXPECT_EQ(mShown, "");
}

TEST_F(UserCommands, ManualsFailures_AreIgnored) {
  TheWorld();
  Word().Faults().Arm("Options", "CtrlClickHyperlinkToOpen");
  EXPECT_EQ(OpenManual(), kManualPath);
  Word().Faults().Arm("Application", "Options");
  EXPECT_EQ(OpenManual(), kManualPath);
  TheWorld().Open(kManual);
  Word().Faults().Arm("dialog 112", "Show");
  EXPECT_EQ(OpenManual(), "");
  EXPECT_TRUE(Did().Errors().empty());
}

TEST_F(UserCommands, ProductsTab_IsShownAndAReferenceInserted) {
  Begin(u"12.0");
  TheWorld().Open(u"One.doc");
  Did().Clear();
  Main().UseQuillmere();
  EXPECT_EQ(Block(Did().Of(Doings::kUse, "call")),
            "call RibbonHandler.Main2 ActivateQuillmereTab(bar Ribbon)\n"
            "call properties ExecuteQLMCommand(InsertReference)\n");
  Did().Clear();
  Word().Faults().Arm("CommandBars", "Item(Ribbon)");
  Main().UseQuillmere();
  EXPECT_EQ(Block(Did().Errors()), "1000 Main2.ActivateQuillmereTab\n");
  EXPECT_EQ(Block(Did().Of(Doings::kUse, "call properties")), "call properties ExecuteQLMCommand(InsertReference)\n");
}

TEST_F(UserCommands, ProductsTabBefore2007_CallsNothing) {
  for (const char16_t* version : {u"9.0", u"10.0", u"11.0"}) {
    Begin(version);
    TheWorld().Open(u"One.doc");
    Did().Clear();
    Main().UseQuillmere();
    EXPECT_EQ(Block(Did().Of(Doings::kAll)), "get Application Version() = " + ToUtf8(version) + "\n");
  }
}

// Panels that tell where they are clicked.
class AdClick : public UserCommands {
 protected:
  class Panel final : public AdPanel {
   public:
    Panel(AdClick& test, Long hwnd) : mTest(test), mHwnd(hwnd) {}
    void Initialize(Long) override {}
    void getPictureStats(Long& hdc, Long&, Long&) override { hdc = 0; }
    void TimerTick(Long, AdStrip&) override {}
    void SwitchListener(Long) override {}
    void ClickOnAd() override {
      mTest.mClicks += mTest.Word().WindowName(mHwnd) + " ";
      if (mTest.mFails) Raise(errors::kInvalidArgument);
    }
    void ValueChanged(const Array<Boolean>&) override {}
    void ReprimeTimerCycle(Boolean) override {}
    void ReportVariables(Reporter&) const override {}

   private:
    AdClick& mTest;
    Long mHwnd;
  };
  class Factory final : public AdvertisementsFactoryInterface {
   public:
    explicit Factory(AdClick& test) : mTest(test) {}
    void Initialize(const Object&) override {}
    Ref<AdPanel> Create(Long hWnd, Long, Long, Long, Long) override {
      return mTest.mHasPanels ? New<Panel>(mTest, hWnd) : nullptr;
    }
    void AfterPaint(Long, Long, Long, Long, Long) override {}
    void ReportVariables(Reporter&) const override {}

   private:
    AdClick& mTest;
  };

  void BeginWithAds() {
    Begin(u"11.0");
    ToolbarUtilities::variables.adFactory = New<Factory>(*this);
  }
  std::string mClicks;
  bool mHasPanels = true;
  bool mFails = false;
};

TEST_F(AdClick, ReachesThePanelOfTheActiveWindow) {
  BeginWithAds();
  TheWorld().Open(u"One.doc");
  TheWorld().Open(u"Two.doc");
  Main().ClickOnAd();
  Word().Activate(u"One.doc");
  Main().ClickOnAd();
  EXPECT_EQ(mClicks, "bar 2 bar 1 ");
  EXPECT_TRUE(Did().Errors().empty());
}

// The error component hears that there is no toolbar to be had. What comes of it is an Empty entry, which the next
// creation for the window repairs.
TEST_F(AdClick, WithoutAnEntryForTheWindow_ClicksNothingAndLeavesAnEmptyOne) {
  BeginWithAds();
  TheWorld().Open(u"One.doc");
  Word().Open(u"Two.doc");
  for (const bool byName : {false, true}) {
    Did().Clear();
    String command = u"ClickOnAd";
    byName ? static_cast<void>(Main().Execute(command)) : Main().ClickOnAd();
    EXPECT_EQ(Block(Did().Errors()), "13 Main2.Toolbars[Get]\n");
    EXPECT_EQ(mClicks, "");
    EXPECT_EQ(Acts(), "");
    EXPECT_TRUE(Did().Of(Doings::kHook | Doings::kBox).empty());
    EXPECT_EQ(Registry(), "top 1, top 2");
    EXPECT_TRUE(Inside::Registry(Main())->ItemAt(1).IsEmpty());
  }
}

// Whatever the error component answers: without a toolbar there is nothing to click.
TEST_F(AdClick, WithoutAnEntryThatIsPassedOver_ClicksNothing) {
  BeginWithAds();
  TheWorld().Open(u"One.doc");
  Word().Open(u"Two.doc");
  Did().Clear();
  TheWorld().AnswerErrors({5});
  Main().ClickOnAd();
  EXPECT_EQ(Did().Errors().size(), 1u);
  EXPECT_EQ(mClicks, "");
  EXPECT_EQ(Registry(), "top 1, top 2");
}

TEST_F(AdClick, EmptyEntryThatItLeaves_IsReplacedAtTheNextCreation) {
  BeginWithAds();
  TheWorld().Open(u"One.doc");
  Word().Open(u"Two.doc");
  Main().ClickOnAd();
  Word().Open(u"Three.doc");
  Word().Activate(u"Two.doc");
  Did().Clear();
  TheWorld().Create();
  EXPECT_EQ(Registry(), "top 1, top 2");
  EXPECT_NE(ToolbarOf("top 2"), nullptr);
  EXPECT_TRUE(Did().Has("log 2 ERROR"));
  Main().ClickOnAd();
  EXPECT_EQ(mClicks, "bar 2 ");
}

TEST_F(AdClick, OnTheBuiltInAd_OpensTheProductsPage) {
  TheWorld().Open(u"One.doc");
  Did().Clear();
  Main().ClickOnAd();
  EXPECT_TRUE(Did().Errors().empty());
  EXPECT_EQ(Acts(), "call HTTP.Main2 Browse(http://www.quillmere.example/?emailAddress=)\n");
}

TEST_F(AdClick, WithoutAPanel_DoesNothing) {
  BeginWithAds();
  mHasPanels = false;
  TheWorld().Open(u"One.doc");
  Did().Clear();
  Main().ClickOnAd();
  EXPECT_TRUE(Did().Errors().empty());
  EXPECT_EQ(Acts(), "");
}

TEST_F(AdClick, WithoutARegistryOrADocument_ClicksNothing) {
  for (const char16_t* version : {u"11.0", u"12.0"}) {
    SCOPED_TRACE(ToUtf8(version));
    const bool hasRibbon = version[1] == u'2';
    std::string registry = hasRibbon ? "none" : "0";
    Begin(version);
    for (const bool hasDocument : {false, true}) {
      if (hasDocument) Word().Open(u"One.doc");
      if (hasDocument && !hasRibbon) registry += ", top 1";
      Did().Clear();
      Main().ClickOnAd();
      EXPECT_EQ(Block(Did().Errors()), hasRibbon ? "91 Main2.Toolbars[Get]\n" : "13 Main2.Toolbars[Get]\n");
      EXPECT_EQ(Acts(), "");
      EXPECT_EQ(Registry(), registry);
    }
  }
}

TEST_F(AdClick, InTheSmallToolbar_ClicksNothing) {
  BeginWithAds();
  TheWorld().Open(u"One.doc");
  Main().ShrinkToolbar();
  Did().Clear();
  Main().ClickOnAd();
  EXPECT_EQ(mClicks, "");
  EXPECT_EQ(Acts(), "");
  EXPECT_EQ(Registry(), "top 1");
}

TEST_F(AdClick, ThatFails_StaysInTheLibrary) {
  BeginWithAds();
  TheWorld().Open(u"One.doc");
  mFails = true;
  Main().ClickOnAd();
  EXPECT_EQ(Did().Errors().size(), 1u);
  EXPECT_EQ(mClicks, "bar 1 ");
}

TEST_F(UserCommands, Shrinking_IsTheForcedWayToTheSmallToolbar) {
  for (const char16_t* version : {u"11.0", u"12.0"}) {
    BeginWithTrace(version);
    TheWorld().Open(u"One.doc");
    Did().Clear();
    MainCalls told;
    Main().ShrinkToolbar();
    ASSERT_GE(told.calls.size(), 2u);
    EXPECT_EQ(told.calls[0], "Main2.ShrinkToolbar()");
    EXPECT_EQ(told.calls[1], "Main2.ProcessEliteToolbar(force=True)");
    EXPECT_TRUE(Did().Errors().empty());
  }
}

}  // namespace
}  // namespace strandline
