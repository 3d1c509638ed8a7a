// What brings a library into use, what keeps one out, and the way of a changed value to the panels.

#include "drawing/ToolbarUtilities.h"
#include "platform/dates.h"
#include "tests/ads/ads_fixture.h"

namespace strandline {
namespace {

class AdRefresh : public AdsTest {
 protected:
  // The procedures and logs of the refresh, without what goes on inside a load.
  std::string Course(const std::function<void()>& doing) {
    return AsText(LinesOf(Trace::kProcedures | Trace::kLogs,
                          {"AdvertisementsFactory.CheckForNewAds", "log", "verify", "picture"}, doing));
  }
  String LastSignature() { return FactoryVariables().Text(u"mLastSignature"); }
  std::string Count() { return std::to_string(Inside::Ads(Factory()).Upper() + 1); }
  static constexpr const char* kVerify =
      "verify C:\\Documents and Settings\\All Users\\Application Data\\Quillmere\\Vistrel.dll\n";
};

TEST_F(AdRefresh, TheFirstPaintWithAGoodLibrary_LoadsOnce_AndTheLookForAnotherIsSwitchedOff) {
  Begin();
  SetLibrary({{}, {}});
  EXPECT_EQ(Course([&] { Paint(); }), std::string("log InitializeDefaultAd\n"
                                                  "log NewAdvertisementsEvent\n") +
                                          kVerify +
                                          "log NewAdvertisementsEvent: downloaded updated ads\n"
                                          "log LoadAds\n"
                                          "log Finished NewAdvertisementsEvent\n"
                                          "AdvertisementsFactory.CheckForNewAds(True)\n");
  EXPECT_EQ(LastSignature(), u"signature 1");
  EXPECT_EQ(Count(), "3");
  EXPECT_EQ(AsText(worker), "made\n") << "for its verifier alone";
  EXPECT_EQ(world->desk.Modules().LiveModules(), 0);
}

TEST_F(AdRefresh, CheckForNewAds_DoesNothingWhateverItIsTold) {
  Begin();
  for (const Boolean abort : {true, false}) Inside::CheckForNewAds(Factory(), abort);
  EXPECT_EQ(AsText(worker), "");
  EXPECT_TRUE(FactoryVariables()[u"mDownloadWorker"].ToObject().IsNothing());
}

TEST_F(AdRefresh, AnAbortedLook_IsAskedForAgain_WhetherOrNotTheLibraryIsNew) {
  Begin();
  SetLibrary({{}});
  Paint();
  SetLibrary({{}, {}});
  EXPECT_EQ(Course([&] { ReportNews(true); }), std::string("log NewAdvertisementsEvent\n"  // the stub's
                                                           "log NewAdvertisementsEvent\n") +
                                                   kVerify +
                                                   "log NewAdvertisementsEvent: downloaded updated ads\n"
                                                   "log LoadAds\n"
                                                   "log Alphablender terminated\n"
                                                   "log Advertisement Terminated\nlog Advertisement Terminated\n"
                                                   "AdvertisementsFactory.CheckForNewAds(False)\n"
                                                   "log Finished NewAdvertisementsEvent\n");
  EXPECT_EQ(Course([&] { ReportNews(true); }), std::string("log NewAdvertisementsEvent\n"
                                                           "log NewAdvertisementsEvent\n") +
                                                   kVerify +
                                                   "log NewAdvertisementsEvent: skip processing same ads\n"
                                                   "AdvertisementsFactory.CheckForNewAds(False)\n"
                                                   "log Finished NewAdvertisementsEvent\n");
  EXPECT_EQ(Course([&] { ReportNews(false); }), std::string("log NewAdvertisementsEvent\n"
                                                            "log NewAdvertisementsEvent\n") +
                                                    kVerify +
                                                    "log NewAdvertisementsEvent: skip processing same ads\n"
                                                    "log Finished NewAdvertisementsEvent\n");
}

TEST_F(AdRefresh, AMissingLibrary_LeavesTheBuiltInAd_TheSignatureAsItWas_AndNothingIsAskedAgain) {
  Begin();
  SetLibrary({{}, {}});
  Paint();
  RemoveLibrary();
  const std::string course = Course([&] { ReportNews(true); });
  EXPECT_NE(course.find("log(2) Vistrel.dll is missing\nlog LoadAds\n"), std::string::npos) << course;
  EXPECT_EQ(course.find("verify"), std::string::npos);
  EXPECT_EQ(course.find("CheckForNewAds"), std::string::npos);
  EXPECT_EQ(course.substr(course.size() - 36), "log Finished NewAdvertisementsEvent\n");
  EXPECT_EQ(Count(), "1");
  EXPECT_EQ(LastSignature(), u"signature 1");
}

TEST_F(AdRefresh, ALibraryThatDoesNotPass_IsNeverUsed_WhateverTheVerifierAnswersForIt) {
  for (const Long answer : {0, -1, -5, -32768}) {
    Begin();
    SetLibrary({{}, {}});
    highest = answer;
    const Trace::Lines lines = LinesOf(Trace::kLogs | Trace::kPictures, {"log(2)", "picture"}, [&] { Paint(); });
    EXPECT_EQ(AsText(lines), "log(2) Failed verification of image DLL\npicture 116\n") << answer;
    EXPECT_EQ(Count(), "1");
    EXPECT_EQ(LastSignature(), signature) << "a bad file is remembered like a good one";
    EXPECT_EQ(world->desk.Modules().LiveModules(), 0);
  }
}

TEST_F(AdRefresh, ABadFile_IsLookedAtOnce_AndAskedForNoMore) {
  Begin();
  SetLibrary({{}, {}});
  highest = 0;
  const std::string first = Course([&] { ReportNews(true); });
  EXPECT_EQ(first.find("CheckForNewAds"), std::string::npos);
  highest = 2;
  const std::string second = Course([&] { ReportNews(false); });
  EXPECT_EQ(second.find("LoadAds"), std::string::npos) << "the same signature, whatever the verifier says now";
  EXPECT_EQ(Count(), "1");
}

TEST_F(AdRefresh, SignaturesAreComparedWithCase_AndAnEmptyOneCountsAsNew) {
  Begin();
  SetLibrary({{}});
  signature = u"";
  Paint();
  EXPECT_EQ(Count(), "2");
  EXPECT_EQ(LastSignature(), u"");
  SetLibrary({{}, {}});
  signature = u"abc";
  ReportNews();
  EXPECT_EQ(Count(), "3");
  SetLibrary({{}, {}, {}});
  signature = u"ABC";
  ReportNews();
  EXPECT_EQ(Count(), "4");
}

TEST_F(AdRefresh, TheLibraryIsVerified_BeforeAnythingOfItIsRead) {
  Begin();
  SetLibrary({{}});
  const Trace::Lines lines = LinesOf(Trace::kPictures, {}, [&] { Paint(); });
  EXPECT_EQ(AsText(lines), std::string(kVerify) + "picture 116\npicture 2 of a module\n");
}

TEST_F(AdRefresh, AVerifierThatFails_IsReported_AndTheAnswerDecides) {
  struct Case {
    Long answer;
    const char* errors;
    const char* count;
  };
  const Case cases[] = {
      {0, "1000 AdvertisementsFactory.NewAdvertisementsEvent\n", "none"},
      // The statement is passed over: nothing was verified, and the built-in ad is left.
      {5, "1000 AdvertisementsFactory.NewAdvertisementsEvent\n", "1"},
  };
  for (const Case& each : cases) {
    Begin();
    SetLibrary({{}, {}});
    verifying = [] { Raise(1000, u"no verification"); };
    world->errors.Answer({each.answer});
    Paint();
    verifying = nullptr;
    EXPECT_EQ(TakeErrors(), each.errors);
    EXPECT_EQ(Inside::Ads(Factory()).IsSized() ? Count() : "none", each.count);
    EXPECT_EQ(world->desk.Modules().LiveModules(), each.answer == 0 ? 1 : 0) << "left before its end, it frees nothing";
  }
}

TEST_F(AdRefresh, AMissingDownloadComponent_IsReported) {
  Begin();
  SetLibrary({{}});
  world->desk.Components().SetMissing(u"StrandlineDownload.Main2", true);
  Paint();
  EXPECT_EQ(TakeErrors(), "429 AdvertisementsFactory.NewAdvertisementsEvent\n");
  EXPECT_FALSE(Inside::Ads(Factory()).IsSized());
}

TEST_F(AdRefresh, AnIndexBeyondAnInteger_IsAnError) {
  Begin();
  SetLibrary({{}});
  highest = 40000;
  Paint();
  EXPECT_EQ(TakeErrors(), "6 AdvertisementsFactory.NewAdvertisementsEvent\n");
}

TEST_F(AdRefresh, AHighestIndexBeyondThePictures_CostsTheirSearchAlone) {
  Begin();
  SetLibrary({{}, {}});
  highest = 3000;
  Paint();
  EXPECT_EQ(Count(), "3");
}

TEST_F(AdRefresh, AskForNewAds_MakesTheWorkerOnce_AndTellsItAddressPathAndPatience) {
  Begin();
  for (Boolean abort : {true, false}) {
    Inside::AskForNewAds(Factory(), abort);
    ASSERT_EQ(asked.size(), 4u);
    EXPECT_TRUE(asked[0].ToObject().Target() == Factory().callbackToMe().get());
    EXPECT_EQ(asked[1].ToText(), world->word.ProductState().Get("toolbarDownloadURL").ToText());
    EXPECT_EQ(asked[2].ToText(), Concat({world->word.TheSettings().commonAppPath, u"Vistrel.dll"}));
    EXPECT_EQ(asked[3].ToBoolean(), abort);
  }
  EXPECT_EQ(AsText(worker), "made\nCheckForNewAdvertisements\nCheckForNewAdvertisements\n");
  EXPECT_FALSE(FactoryVariables()[u"mDownloadWorker"].ToObject().IsNothing());
}

TEST_F(AdRefresh, AskForNewAds_WithoutTheComponent_IsReported_AndTriesAgainNextTime) {
  Begin();
  world->desk.Components().SetMissing(u"StrandlineDownload.Main2", true);
  Boolean abort = true;
  Inside::AskForNewAds(Factory(), abort);
  EXPECT_EQ(TakeErrors(), "429 AdvertisementsFactory.AskForNewAds\n");
  world->desk.Components().SetMissing(u"StrandlineDownload.Main2", false);
  Inside::AskForNewAds(Factory(), abort);
  EXPECT_EQ(asked.size(), 4u);
}

TEST_F(AdRefresh, AskForNewAds_HandsThePatienceByReference) {
  Begin();
  world->desk.Components().Register(u"StrandlineDownload.Main2", [] {
    return Object(New<ScriptedObject>([](Use, Name, const Arguments& arguments) -> Variant {
      arguments.positional[3].Assign(false);
      return {};
    }));
  });
  Boolean abort = true;
  Inside::AskForNewAds(Factory(), abort);
  EXPECT_FALSE(abort);
}

// The worker that fetches libraries isn't asked for a verifier.
TEST_F(AdRefresh, AVerifier_IsThatOfANewWorker) {
  Begin();
  SetLibrary({{}});
  Boolean abort = true;
  Inside::AskForNewAds(Factory(), abort);
  EXPECT_EQ(AsText(std::exchange(worker, {})), "made\nCheckForNewAdvertisements\n");
  ReportNews();
  EXPECT_EQ(AsText(std::exchange(worker, {})), "made\n");
  ReportNews();
  EXPECT_EQ(AsText(worker), "made\n") << "for each file anew";
}

// The date that a load is given, while this lives.
class DateOfALoad final : public vbwProtector::ProcedureObserver {
 public:
  DateOfALoad() {
    vbwProtector::variables.vbwTraceParameters = true;
    vbwProtector::procedureObserver = this;
  }
  ~DateOfALoad() {
    vbwProtector::procedureObserver = nullptr;
    vbwProtector::variables.vbwTraceParameters = false;
  }
  DateOfALoad(const DateOfALoad&) = delete;
  DateOfALoad& operator=(const DateOfALoad&) = delete;

  void OnProcedure(const ProcedureName& name, void (*report)(const void* parameters, Reporter& to),
                   const void* parameters) override {
    if (name.name != u"LoadAds") return;
    struct Parameters final : Reporter {
      void Variable(TextView parameter, const Variant& value) override {
        if (parameter == u"currentDate") date = *value.If<Date>();
      }
      Date date;
    } told;
    report(parameters, told);
    given = told.date;
  }
  Date given;
};

// The ad's last day ends with its midnight, at whatever time the ads are loaded.
TEST_F(AdRefresh, AnAdWhoseLastDayIsToday_IsKeptAtAnyTimeOfTheDay) {
  const struct {
    int day, hour, minute, second;
    const char* ads;
  } cases[] = {{1, 23, 59, 59, "2"}, {2, 0, 0, 0, "3"}, {2, 12, 0, 0, "3"}, {2, 23, 59, 59, "3"}, {3, 0, 0, 0, "2"}};
  for (const auto& [day, hour, minute, second, ads] : cases) {
    Begin();
    world->desk.RunTime().SetStart(desk::MakeDate(2009, 3, day, hour, minute, second));
    SetLibrary({{u"3/2/2009$3/2/2009$D1$-$$5000$today"}, {}});
    DateOfALoad date;
    Paint();
    EXPECT_EQ(Count(), ads) << day << ", " << hour << ":" << minute << ":" << second;
    EXPECT_EQ(date.given, dates::FromParts(2009, 3, static_cast<Integer>(day))) << "today has no time";
  }
}

TEST_F(AdRefresh, AValueThatOneAdNames_LeavesThatAdAlone_InEveryWindow) {
  BeginWithStrip({{}, {AdSettings(u"style=APA")}, {}});
  world->Open(u"Two.doc");
  EXPECT_EQ(Visible(0), "1101");
  EXPECT_EQ(Visible(1), "1101");
  Array<Boolean> told;
  class Ear final : public AdvertisementsCallbackStub::Sink {
   public:
    void ValueChangedWithAds(Array<Boolean>& ads, String& value) override {
      heard = ads;
      text = value;
    }
    Array<Boolean> heard;
    String text;
  } ear;
  auto& toMain = *Main2Access::Callback(world->TheMain2());
  toMain.Advise(&ear);
  ChangeValue(u"style", u"APA");
  toMain.Unadvise(&ear);
  ASSERT_EQ(ear.heard.Upper(), 3);
  for (Long i = 0; i <= 3; ++i) EXPECT_EQ(ear.heard(i), i == 2) << i;
  EXPECT_EQ(ear.text, u"APA");
  EXPECT_EQ(Visible(0), "0010");
  EXPECT_EQ(Visible(1), "0010");
}

TEST_F(AdRefresh, AValueThatNoAdNames_IsAnError_AndThePanelsStay) {
  BeginWithStrip({{AdSettings(u"style=APA")}});
  const std::string before = Visible();
  String key = u"other";
  String value = u"x";
  Factory().callbackToMe()->ValueChanged(key, value);
  EXPECT_EQ(TakeErrors(), "13 AdvertisementsFactory.ValueChanged\n");
  EXPECT_EQ(Visible(), before);
}

TEST_F(AdRefresh, AKeyOfFormerAds_GoesOnCalling_AndIsNotKnownAnyMore) {
  BeginWithStrip({{AdSettings(u"style=APA")}});
  SetLibrary({{AdSettings(u"stage=draft")}});
  ReportNews();
  EXPECT_EQ(ListenMap(), "stage=01 ");
  ChangeValue(u"style", u"MLA");
  EXPECT_EQ(TakeErrors(), "13 AdvertisementsFactory.ValueChanged\n");
  ChangeValue(u"stage", u"draft");
  EXPECT_EQ(TakeErrors(), "");
}

TEST_F(AdRefresh, BeforeTheFirstLoad_AValueHasNowhereToGo) {
  Begin();
  String key = u"style";
  String value = u"x";
  Factory().callbackToMe()->ValueChanged(key, value);
  EXPECT_EQ(TakeErrors(), "91 AdvertisementsFactory.ValueChanged\n");
}

// Between a load and a window's take-over its panel has room for the former ads only.
TEST_F(AdRefresh, AValueThatChangesBeforeAWindowHasTakenMoreAdsOver_RunsOutOfRange) {
  BeginWithStrip({{AdSettings(u"style=APA")}});
  SetLibrary({{AdSettings(u"style=APA")}, {}, {}});
  ReportNews();
  ChangeValue(u"style", u"APA");
  EXPECT_EQ(TakeErrors(), "9 Advertisements.ReinitializeVisibleArray\n");
  EXPECT_EQ(Visible(), "01");
}

TEST_F(AdRefresh, TheHandlersOfTheSecondStub_DoAsThoseOfTheFirst) {
  BeginWithStrip({{AdSettings(u"style=APA")}, {}});
  String key = u"style";
  String value = u"APA";
  Inside::mListenKeyStub_ValueChanged(Factory(), key, value);
  EXPECT_EQ(Visible(), "000") << "the store still has no such value";
  SetLibrary({{}, {}, {}});
  const std::string course = Course([&] { Inside::mListenKeyStub_NewAdvertisementsChanged(Factory(), true); });
  EXPECT_NE(course.find("AdvertisementsFactory.CheckForNewAds(False)\n"), std::string::npos);
  EXPECT_EQ(Count(), "4");
}

TEST_F(AdRefresh, ANewLibrary_ReprimesEveryStrip_WhichMeetsTheNewAdsAtItsNextFade) {
  BeginWithStrip({{}, {}});
  world->Open(u"Two.doc");
  SetLibrary({{}, {}, {}});
  const Trace::Lines lines =
      LinesOf(Trace::kLogs | Trace::kTimers, {"log Downloaded", "SetTimer", "KillTimer"}, [&] { ReportNews(); });
  EXPECT_EQ(AsText(lines),
            "log Downloaded new ads: Ad cycle already primed\nKillTimer(bar 1, 4096)\nSetTimer(bar 1, 4096, 5000)\n"
            "log Downloaded new ads: Ad cycle already primed\nKillTimer(bar 2, 4096)\nSetTimer(bar 2, 4096, 5000)\n");
  for (const Long n : {0, 1}) EXPECT_EQ(PanelVariables(n).Number(u"mAds_ubound"), 2);
  world->Wait(5000);
  for (const Long n : {0, 1}) EXPECT_EQ(PanelVariables(n).Number(u"mAds_ubound"), 3);
}

}  // namespace
}  // namespace strandline
