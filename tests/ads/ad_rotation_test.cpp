// Which ad shows, when the next comes, and what starts and stops a rotation.

#include "drawing/ToolbarUtilities.h"
#include "tests/ads/ads_fixture.h"

namespace strandline {
namespace {

class AdRotation : public AdsTest {
 protected:
  std::string Timers(const std::function<void()>& doing) {
    return AsText(LinesOf(Trace::kTimers, {"SetTimer", "KillTimer"}, doing));
  }
  // Ten seconds more than once round.
  std::string AllTimers() {
    return Timers([&] { world->Wait(10'000); });
  }
  std::size_t LiveTimers() { return world->desk.Windows().LiveTimers(); }
  Ref<Advertisements> MakePanel(Long hwnd) {
    const Ref<Advertisements> panel = New<Advertisements>();
    panel->Initialize(hwnd);
    return panel;
  }
  Long Number(const char16_t* name, Long n = 0) { return PanelVariables(n).Number(name); }
  // The current ads at the ends of the next fades; "never" when none comes.
  std::string Sequence(int fades, Long n = 0) {
    std::string sequence;
    for (int i = 0; i < fades; ++i) {
      if (!WaitFor([&] { return Number(u"mFadeTick", n) != 0; })) return sequence + "never";
      if (!WaitFor([&] { return Number(u"mFadeTick", n) == 0; })) return sequence + "never";
      sequence += std::to_string(Number(u"mCurrentIndex", n)) + " ";
    }
    return sequence;
  }

 private:
  bool WaitFor(const std::function<bool()>& state) {
    for (int i = 0; i < 400 && !state(); ++i) world->Wait(50);
    return state();
  }
};

TEST_F(AdRotation, OneAdInAll_DoesNotRotate_AndAForcedTimerFiresOnce) {
  Begin();
  Boolean startedFromIcon = false;
  world->main->HandleCreateDocument(startedFromIcon);
  world->Settle();
  EXPECT_EQ(Number(u"mAds_ubound"), 0);
  EXPECT_EQ(PanelState(), "0 0 off");
  EXPECT_EQ(LiveTimers(), 0u);
  EXPECT_EQ(Timers([&] { Panel().ReprimeTimerCycle(true); }), "KillTimer(bar 1, 4096)\nSetTimer(bar 1, 4096, 5000)\n");
  EXPECT_EQ(AllTimers(), "KillTimer(bar 1, 4096)\n");
  EXPECT_EQ(PanelState(), "0 0 on") << "only a further force can start it";
  EXPECT_EQ(LiveTimers(), 0u);
  Panel().ReprimeTimerCycle(false);
  EXPECT_EQ(LiveTimers(), 0u);
}

TEST_F(AdRotation, TwoAdsOfWhichOneMayShow_DoNotRotate_AndAForcedTimerFindsThatOut) {
  BeginWithStrip({{AdSettings(u"style=MLA")}});
  EXPECT_EQ(Visible(), "10");
  EXPECT_EQ(PanelState(), "0 0 off");
  Panel().ReprimeTimerCycle(true);
  EXPECT_EQ(PanelState(), "0 0 on");
  EXPECT_EQ(AllTimers(), "KillTimer(bar 1, 4096)\n");
  EXPECT_EQ(PanelState(), "0 0 off");
  EXPECT_TRUE(blends.empty());
}

TEST_F(AdRotation, AFade_IsTenStepsOf100Milliseconds_AndThenTheNewAdsOwnTime) {
  BeginWithStrip({{AdSettings({}, 700), 40, 10, 0x00FF00}});
  EXPECT_EQ(PanelState(), "0 0 on");
  world->Wait(4999);
  EXPECT_EQ(PanelState(), "0 0 on");
  EXPECT_EQ(Timers([&] { world->Wait(1); }), "KillTimer(bar 1, 4096)\nSetTimer(bar 1, 4096, 100)\n");
  for (int step = 1; step <= 9; ++step) {
    EXPECT_EQ(PanelState(), "1 " + std::to_string(step) + " on");
    EXPECT_EQ(blends.size(), static_cast<std::size_t>(step));
    world->Wait(99);
    EXPECT_EQ(Number(u"mFadeTick"), step);
    EXPECT_EQ(Timers([&] { world->Wait(1); }), step == 9 ? "KillTimer(bar 1, 4096)\nSetTimer(bar 1, 4096, 700)\n" : "");
  }
  EXPECT_EQ(PanelState(), "1 0 on");
  EXPECT_EQ(PanelPixel(), 0x00FF00u);
  world->Wait(699);
  EXPECT_EQ(PanelState(), "1 0 on");
  world->Wait(1);
  EXPECT_EQ(PanelState(), "0 1 on");
}

TEST_F(AdRotation, EachStepPaintsTheCell_AndTheLastOneClearsItFirst) {
  BeginWithStrip({{}});
  const Ref<Advertisements> panel = MakePanel(77);
  FakeStrip strip;
  for (int i = 0; i < 10; ++i) panel->TimerTick(77, strip);
  EXPECT_EQ(strip.paints, "step step step step step step step step step last ");
  EXPECT_EQ(VariableSnapshot::Of(*panel).Number(u"mFadeTick"), 0);
  panel->TimerTick(77, strip);
  EXPECT_EQ(VariableSnapshot::Of(*panel).Number(u"mFadeTick"), 1);
}

TEST_F(AdRotation, AdsComeInTheirOrder_AndThoseThatMayNotShowArePassed) {
  BeginWithStrip(
      {{AdSettings(u"style=MLA", 300)}, {AdSettings({}, 300)}, {AdSettings(u"stage=x", 300)}, {AdSettings({}, 300)}});
  EXPECT_EQ(Visible(), "10101");
  EXPECT_EQ(Sequence(5), "2 4 0 2 4 ");
}

TEST_F(AdRotation, AValueThatChangesDuringAFade_ChangesWhatMayShow_AndTheFadeEndsAsItBegan) {
  BeginWithStrip({{AdSettings(u"style=!MLA", 400), 40, 10, 0x00FF00}, {AdSettings(u"style=MLA", 400)}});
  world->Wait(5300);
  ASSERT_EQ(PanelState(), "1 4 on");
  ChangeValue(u"style", u"MLA");
  EXPECT_EQ(Visible(), "001");
  EXPECT_EQ(PanelState(), "1 4 on");
  world->Wait(600);
  EXPECT_EQ(PanelState(), "1 0 on");
  EXPECT_EQ(PanelPixel(), 0x00FF00u);
  EXPECT_EQ(Sequence(1), "2 ");
}

TEST_F(AdRotation, TheAdOnScreen_StaysWhenItMayNoLongerShow_AndIsPassedAfterwards) {
  Begin();
  SetLibrary({{AdSettings(u"style=!X", 300)}, {AdSettings(u"style=!none", 300)}}, AdSettings(u"style=!none", 300));
  Boolean startedFromIcon = false;
  world->main->HandleCreateDocument(startedFromIcon);
  world->Settle();
  EXPECT_EQ(Sequence(1), "1 ");
  ChangeValue(u"style", u"X");
  EXPECT_EQ(Visible(), "101");
  EXPECT_EQ(PanelState(), "1 0 on");
  EXPECT_EQ(Sequence(5), "2 0 2 0 2 ");
}

TEST_F(AdRotation, AChangedValue_DropsUnfilteredAdsFromTheRotation_UntilTheNextFullUpdate) {
  BeginWithStrip({{AdSettings({}, 300)}, {AdSettings(u"style=!MLA", 300)}, {AdSettings(u"style=!APA", 300)}});
  EXPECT_EQ(Visible(), "1111");
  ChangeValue(u"style", u"other");
  EXPECT_EQ(Visible(), "0011");
  EXPECT_EQ(Sequence(4), "2 3 2 3 ");
  ChangeValue(u"style", u"MLA");
  EXPECT_EQ(Visible(), "0001");
  EXPECT_TRUE(PanelVariables().Flag(u"mCyclingAds")) << "a rotation that runs isn't disturbed";
  EXPECT_FALSE(PanelVariables().Flag(u"mMoreThanOneAdIsVisible"));
  world->Wait(3000);
  EXPECT_EQ(PanelState(), "3 0 off");
  EXPECT_EQ(LiveTimers(), 0u);
  ReportNews();
  EXPECT_EQ(Visible(), "0001") << "the same file is no news";
  SetLibrary({{AdSettings({}, 300)}, {AdSettings(u"style=!MLA", 300)}, {AdSettings(u"style=!APA", 300)}});
  ReportNews();
  world->Wait(400);
  EXPECT_EQ(Visible(), "1101");
}

TEST_F(AdRotation, AValueThatLetsASecondAdShow_StartsTheRotationInTheActiveDocumentAlone) {
  BeginWithStrip({{AdSettings(u"style=APA", 300)}, {AdSettings(u"style=APA", 300)}});
  world->Open(u"Two.doc");
  EXPECT_EQ(PanelState(0), "0 0 off");
  EXPECT_EQ(PanelState(1), "0 0 off");
  ChangeValue(u"style", u"APA");
  EXPECT_EQ(Visible(0), "011");
  EXPECT_EQ(PanelState(0), "0 0 off");
  EXPECT_EQ(PanelState(1), "0 0 on");
}

TEST_F(AdRotation, ARotationOnceBegun_GoesOnWhenItsDocumentLosesTheFocus) {
  BeginWithStrip({{AdSettings({}, 300)}});
  world->OpenInWord(u"Two.doc");
  EXPECT_EQ(Sequence(3), "1 0 1 ");
}

TEST_F(AdRotation, AForce_StartsARotationInAnInactiveDocumentToo) {
  BeginWithStrip({{AdSettings({}, 300)}});
  world->Open(u"Two.doc");
  world->OpenInWord(u"Three.doc");
  const Long bar = Number(u"mHwnd", 1);
  world->desk.Windows().KillTimer(bar, 4096);
  EXPECT_FALSE(Inside::ImActiveDocument(Panel(1)));
  Panel(1).ReprimeTimerCycle(true);
  EXPECT_EQ(Sequence(2, 1), "1 0 ");
}

TEST_F(AdRotation, WithoutADocument_EveryPanelIsInTheActiveOne) {
  BeginWithStrip({{}});
  const Ref<Advertisements> panel = MakePanel(77);
  world->word.Close(kDocument);
  EXPECT_TRUE(Inside::ImActiveDocument(*panel));
  EXPECT_EQ(TakeErrors(), "");
}

TEST_F(AdRotation, APanelThatBeganWithoutADocument_IsNeverInTheActiveOne) {
  BeginWithStrip({{}});
  world->word.Close(kDocument);
  world->Settle();
  const Ref<Advertisements> panel = MakePanel(77);
  EXPECT_EQ(VariableSnapshot::Of(*panel).Number(u"mDocId"), 0);
  EXPECT_EQ(TakeErrors(), "") << "passed over";
  for (const char16_t* name : {u"Two.doc", u"Three.doc"}) {
    world->OpenInWord(name);
    EXPECT_FALSE(Inside::ImActiveDocument(*panel));
  }
}

TEST_F(AdRotation, APanelWhoseDocumentCannotBeRead_KeepsTheFormerOne) {
  BeginWithStrip({{}});
  const Long document = Number(u"mDocId");
  EXPECT_NE(document, 0);
  world->word.Close(kDocument);
  Panel().Initialize(Number(u"mHwnd"));
  EXPECT_EQ(Number(u"mDocId"), document);
  EXPECT_EQ(TakeErrors(), "");
}

TEST_F(AdRotation, AForcedRepaint_TakesTheActiveDocumentForThePanels) {
  BeginWithStrip({{}});
  const Long first = Number(u"mDocId");
  world->OpenInWord(u"Two.doc");
  EXPECT_FALSE(Inside::ImActiveDocument(Panel()));
  Panel().Initialize(Number(u"mHwnd"));
  EXPECT_NE(Number(u"mDocId"), first);
  EXPECT_TRUE(Inside::ImActiveDocument(Panel()));
}

TEST_F(AdRotation, AReloadInTheMiddleOfAFade_IsTakenOverAtTheNextOne) {
  BeginWithStrip({{AdSettings({}, 300), 40, 10, 0x00FF00}, {AdSettings({}, 300), 40, 10, 0xFF0000}});
  world->Wait(5400);
  ASSERT_EQ(PanelState(), "1 5 on");
  SetLibrary({{AdSettings({}, 300), 60, 20, 0x123456}, {AdSettings({}, 300), 60, 20, 0x654321}});
  // The timer starts afresh, with the time of the ad that comes; the fade then goes on among the new surfaces.
  EXPECT_EQ(Timers([&] { ReportNews(); }), "KillTimer(bar 1, 4096)\nSetTimer(bar 1, 4096, 300)\n");
  EXPECT_EQ(PanelState(), "1 5 on");
  world->Wait(300);
  EXPECT_EQ(PanelState(), "1 6 on");
  world->Wait(1200);
  EXPECT_EQ(PanelState(), "1 0 on");
  EXPECT_EQ(PanelPixel(), 0x123456u) << "of the new ad at this index";
  EXPECT_EQ(Sequence(2), "2 0 ");
  EXPECT_EQ(Visible(), "111");
}

TEST_F(AdRotation, FewerAdsThanTheOneOnScreen_IsAnError_AndTheRotationFindsItsWayBack) {
  BeginWithStrip({{AdSettings({}, 300)}, {AdSettings({}, 300)}});
  EXPECT_EQ(Sequence(2), "1 2 ");
  SetLibrary({{AdSettings({}, 300)}});
  ReportNews();
  EXPECT_EQ(TakeErrors(), "");
  world->Wait(300);
  EXPECT_EQ(TakeErrors(),
            "9 AdvertisementsFactory.Advertisement[Get]\n91 Advertisements.InitializeBackBuffer\n"
            // The first step asks for the ad that is gone as well.
            "9 AdvertisementsFactory.Advertisement[Get]\n");
  EXPECT_EQ(PanelState(), "1 1 on");
  EXPECT_EQ(Visible(), "11");
  world->Wait(900);
  TakeErrors();
  EXPECT_EQ(PanelState(), "1 0 on");
  EXPECT_EQ(Sequence(3), "0 1 0 ");
}

TEST_F(AdRotation, FewerAds_OfWhichNoneMayShow_EndTheRotation) {
  BeginWithStrip({{AdSettings({}, 300)}, {AdSettings({}, 300)}});
  EXPECT_EQ(Sequence(2), "1 2 ");
  SetLibrary({{AdSettings(u"style=APA")}}, AdSettings(u"style=APA"));
  ReportNews();
  world->Wait(2000);
  TakeErrors();
  EXPECT_FALSE(PanelVariables().Flag(u"mCyclingAds"));
  EXPECT_EQ(LiveTimers(), 0u);
  EXPECT_EQ(Number(u"mFadeTick"), 0);
}

TEST_F(AdRotation, AStepThatFails_EndsInSilence_AndCountsAllTheSame) {
  BeginWithStrip({{}});
  const Ref<Advertisements> panel = MakePanel(77);
  FakeStrip strip;
  panel->TimerTick(77, strip);
  blending = [] { Raise(1000, u"no blend"); };
  panel->TimerTick(77, strip);
  EXPECT_EQ(VariableSnapshot::Of(*panel).Number(u"mFadeTick"), 2);
  EXPECT_EQ(strip.paints, "step ");
  EXPECT_EQ(TakeErrors(), "");
  blending = nullptr;
  const Ref<AdvertisementsFactoryInterface> factory = std::exchange(ToolbarUtilities::variables.adFactory, nullptr);
  panel->TimerTick(77, strip);
  EXPECT_EQ(VariableSnapshot::Of(*panel).Number(u"mFadeTick"), 3);
  EXPECT_EQ(strip.paints, "step ");
  EXPECT_EQ(TakeErrors(), "");
  ToolbarUtilities::variables.adFactory = factory;
  panel->TimerTick(77, strip);
  EXPECT_EQ(strip.paints, "step step ");
}

TEST_F(AdRotation, SwitchListener_EndsAFade_AndStartsTheTimerOnTheNewWindow) {
  BeginWithStrip({{AdSettings({}, 700), 40, 10, 0x00FF00}});
  world->Wait(5300);
  ASSERT_EQ(PanelState(), "1 4 on");
  const Long former = Number(u"mHwnd");
  const Trace::Lines lines =
      LinesOf(Trace::kTimers | Trace::kLogs, {"SetTimer", "KillTimer", "log Switch", "log ImActive"},
              [&] { Panel().SwitchListener(world->Top()); });
  ASSERT_EQ(lines.size(), 4u);
  EXPECT_EQ(lines[0], "log Switch listener");
  EXPECT_EQ(lines[1], "KillTimer(top 1, 4096)");
  EXPECT_EQ(lines[2], "log ImActiveDocument for [" + Hex(Number(u"mDocId")) + "] = True");
  EXPECT_EQ(lines[3], "SetTimer(top 1, 4096, 700)");
  EXPECT_EQ(PanelState(), "1 0 on");
  EXPECT_EQ(PanelPixel(), 0x00FF00u);
  EXPECT_EQ(Number(u"mHwnd"), former) << "until the next Initialize";
  world->desk.Windows().KillTimer(world->Top(), 4096);
}

// After a first load that failed.
TEST_F(AdRotation, APanelWithoutAnyAds_TakesThatOver_AndNeverRotates) {
  Begin();
  SetLibrary({{kOver}}, kOver);
  Paint();
  EXPECT_EQ(TakeErrors(), "91 AdvertisementsFactory.LoadAds\n");
  const Ref<Advertisements> panel = New<Advertisements>();
  const auto number = [&](const char16_t* name) { return VariableSnapshot::Of(*panel).Number(name); };
  const Trace::Lines lines =
      LinesOf(Trace::kLogs | Trace::kTimers, {"log Up", "log ImAct", "log Down", "SetTimer", "KillTimer"},
              [&] { panel->Initialize(77); });
  EXPECT_EQ(AsText(lines), "log UpdateToNewAds\nlog Updated to 0 new ads of size 0 x 0\n");
  EXPECT_EQ(TakeErrors(), "9 AdvertisementsFactory.Advertisement[Get]\n91 Advertisements.InitializeBackBuffer\n");
  EXPECT_EQ(number(u"mAds_ubound"), -1);
  EXPECT_EQ(number(u"mTargetHdc"), 0);
  const Array<Boolean> visible = VariableSnapshot::Of(*panel)[u"mVisibleArray"].ToArray<Boolean>();
  EXPECT_TRUE(visible.IsSized());
  EXPECT_EQ(visible.Upper(), -1);
  Array<Boolean> told(0, 3);
  told(1) = true;
  panel->ValueChanged(told);
  EXPECT_FALSE(VariableSnapshot::Of(*panel).Flag(u"mMoreThanOneAdIsVisible"));
  EXPECT_FALSE(VariableSnapshot::Of(*panel).Flag(u"mCyclingAds"));
  FakeStrip strip;
  EXPECT_EQ(Timers([&] { panel->TimerTick(77, strip); }), "KillTimer(window 1, 4096)\n");
  EXPECT_EQ(strip.paints, "");
  EXPECT_EQ(number(u"mFadeTick"), 0);
  EXPECT_EQ(TakeErrors(), "");
}

TEST_F(AdRotation, ANewWindowOfTheBar_TakesTheAdsOverAnew) {
  BeginWithStrip({{AdSettings({}, 300)}});
  world->Wait(5300);
  world->word.DockBar(wordsim::BarPosition::kBottom);
  world->Settle();
  EXPECT_EQ(Number(u"mFadeTick"), 0);
  EXPECT_EQ(Sequence(2), "0 1 ");
}

TEST_F(AdRotation, AClick_OpensThePageOfTheAdOnScreen_AndDuringAFadeOfTheOneThatComes) {
  BeginWithStrip({{AdSettings({}, 300, u"first")}, {AdSettings({}, 300, u"second")}});
  world->main->ClickOnAd();
  EXPECT_EQ(Browsed().find("http://www.quillmere.example/"), 0u);
  world->Wait(5000);
  ASSERT_EQ(PanelState(), "1 1 on");
  world->main->ClickOnAd();
  EXPECT_EQ(Browsed().find("first?"), 0u);
  EXPECT_EQ(Sequence(1), "1 ");
  world->Wait(500);
  world->main->ClickOnAd();
  EXPECT_EQ(Browsed().find("second?"), 0u);
}

TEST_F(AdRotation, APanel_HasAPictureOnlyOnceThereAreAds) {
  Begin();
  SetLibrary({{}});
  const Ref<Advertisements> panel = MakePanel(77);
  Long hdc = 1;
  Long width = 1;
  Long height = 1;
  panel->getPictureStats(hdc, width, height);
  EXPECT_EQ(hdc, 0);
  EXPECT_EQ(width, 0);
  Paint();
  panel->Initialize(77);
  panel->getPictureStats(hdc, width, height);
  EXPECT_TRUE(world->SurfaceOf(hdc) == world->SurfaceOf(Inside::Ads(Factory())(0)->hdc()));
  EXPECT_EQ(width, 223);
  EXPECT_EQ(height, 32);
  world->desk.Windows().KillTimer(77, 4096);
}

TEST_F(AdRotation, TakingOverAds_IsLogged_AndAsksForEachAdOnce) {
  Begin();
  SetLibrary({{}, {}});
  Paint();
  const Ref<Advertisements> panel = New<Advertisements>();
  const Trace::Lines lines =
      LinesOf(Trace::kLogs | Trace::kProcedures, {"log", "Advertisement.visible"}, [&] { panel->Initialize(0x7B); });
  EXPECT_EQ(AsText(lines),
            "log Advertisements initialize for 7B\n"
            "log UpdateToNewAds\n"
            "log Updated to 3 new ads of size 223 x 32\n"
            "Advertisement.visible[Get]()\nAdvertisement.visible[Get]()\nAdvertisement.visible[Get]()\n"
            "log Downloaded new ads: Priming ad cycle\n"
            "log ImActiveDocument for [" +
                Hex(VariableSnapshot::Of(*panel).Number(u"mDocId")) + "] = True\n");
  EXPECT_EQ(AsText(LinesOf(Trace::kLogs, {"log"}, [&] { panel->Initialize(0x7B); })),
            "log Advertisements initialize for 7B\nlog UpdateToNewAds\n");
}

TEST_F(AdRotation, LargerAdsAfterAReload_GetALargerSurfaceInTheSameContext) {
  BeginWithStrip({{AdSettings({}, 300)}});
  const Long target = Number(u"mTargetHdc");
  const int bitmaps = world->Bitmaps();
  SetLibrary({{AdSettings({}, 300), 240, 50}});
  ReportNews();
  world->Wait(5000);
  EXPECT_EQ(Number(u"mTargetHdc"), target);
  EXPECT_EQ(PanelPixels().width, 240);
  EXPECT_EQ(PanelPixels().height, 50);
  EXPECT_EQ(world->Bitmaps(), bitmaps + 1) << "the first blend";
}

TEST_F(AdRotation, ThePanelsEnd_KillsItsTimer_FreesItsSurface_AndIsForgotten) {
  BeginWithStrip({{}});
  const int contexts = world->Contexts();
  const int bitmaps = world->Bitmaps();
  Ref<Advertisements> panel = MakePanel(world->Top());
  EXPECT_EQ(LiveTimers(), 2u);
  EXPECT_TRUE(Inside::UpdatedAds(Factory())->Exists(world->Top()));
  const Trace::Lines lines = LinesOf(Trace::kTimers | Trace::kLogs, {}, [&] { panel = nullptr; });
  EXPECT_EQ(AsText(lines), "KillTimer(top 1, 4096)\nlog Advertisements terminated\n");
  EXPECT_EQ(LiveTimers(), 1u);
  EXPECT_FALSE(Inside::UpdatedAds(Factory())->Exists(world->Top()));
  EXPECT_EQ(world->Contexts(), contexts);
  EXPECT_EQ(world->Bitmaps(), bitmaps);
}

TEST_F(AdRotation, APanelThatOutlivesTheFactory_EndsWithoutAWord) {
  BeginWithStrip({{}});
  Ref<Advertisements> panel = MakePanel(77);
  ToolbarUtilities::variables.adFactory = nullptr;
  panel = nullptr;
  EXPECT_EQ(TakeErrors(), "");
}

TEST_F(AdRotation, APanelThatEndsBeforeTheFirstLoad_EndsWithoutAnError) {
  Begin();
  Ref<Advertisements> panel = MakePanel(77);
  panel = nullptr;
  EXPECT_EQ(TakeErrors(), "");
}

TEST_F(AdRotation, ThePanel_ReportsItsVariablesInTheirOrder) {
  BeginWithStrip({{}});
  EXPECT_EQ(AsText(PanelVariables().Names()),
            "mFadeTick\nmVisibleArray\nmCurrentIndex\nmPreviousIndex\nmHwnd\nmTargetHdc\nmOldHandle\n"
            "mMoreThanOneAdIsVisible\nmWidth\nmHeight\nmCyclingAds\nmDocId\nmAds_ubound\n");
  EXPECT_TRUE(PanelVariables().Flag(u"mMoreThanOneAdIsVisible"));
}

}  // namespace
}  // namespace strandline
