// From a library file to the ads: which are kept, in which order, at which size, on which background.

#include "drawing/ToolbarUtilities.h"
#include "platform/desk/desk.h"
#include "tests/ads/ads_fixture.h"

namespace strandline {
namespace {

class AdLibrary : public AdsTest {
 protected:
  void BeginWith(const std::vector<LibraryAd>& ads, const String& first = kHeading) {
    Begin();
    SetLibrary(ads, first);
  }
  Advertisement& Ad(Integer index) { return *Inside::Ads(Factory())(index); }
  // The widths of the ads in their order.
  std::string Widths() {
    std::string widths;
    const AdArray& ads = Inside::Ads(Factory());
    for (Long i = 0; ads.IsSized() && i <= ads.Upper(); ++i) {
      widths += (ads(i) ? std::to_string(ads(i)->width()) : std::string("none")) + " ";
    }
    return widths;
  }
  std::string Page(Integer index) {
    Ad(index).ClickOnAd();
    return Browsed();
  }
  // Where the ads were cut from the background, a line each: "left, top, width, height".
  std::string Cuts(Long width, Long height) {
    const std::string beginning = "Advertisement.InitBackBuffer(";
    std::string cuts;
    for (const std::string& line : LinesOf(Trace::kProcedures, {beginning}, [&] { Paint(width, height); })) {
      const std::size_t from = line.find(", ") + 2;
      cuts += line.substr(from, line.size() - from - 1) + "\n";
    }
    return cuts;
  }
  Long Number(const char16_t* name) { return FactoryVariables().Number(name); }
};

TEST_F(AdLibrary, WithoutAFile_ThereIsTheBuiltInAd_ForFiveSeconds_WithTheProductsPage) {
  Begin();
  Paint(300, 40);
  EXPECT_EQ(Widths(), "223 ");
  EXPECT_EQ(Ad(0).height(), 32);
  EXPECT_EQ(Number(u"mWidth"), 223);
  EXPECT_EQ(Number(u"mHeight"), 32);
  EXPECT_EQ(Ad(0).Duration(), 5000);
  EXPECT_TRUE(Ad(0).visible());
  EXPECT_EQ(Page(0).find(ToUtf8(world->word.ProductState().Get("WebsiteAddress", false, u"").ToText())), 0u);
  EXPECT_EQ(ListenMap(), "");
  EXPECT_NE(Ad(0).hdc(), 0);
}

TEST_F(AdLibrary, AHeadingAsTheFirstString_LeavesTheBuiltInPictureAsAdZero_ForAll) {
  BeginWith({{AdSettings(u"style=MLA")}});
  Paint();
  EXPECT_EQ(Widths(), "223 40 ");
  EXPECT_TRUE(Ad(0).visible());
  EXPECT_FALSE(Ad(1).visible());
  EXPECT_EQ(Ad(0).Duration(), 5000);
}

TEST_F(AdLibrary, AHeadingAtAnyOtherIndex_MakesAnAdOfTheProductsPageToo) {
  BeginWith({{.width = 41}, {.settings = kHeading, .width = 42}, {.settings = u"StartDate$", .width = 43}});
  Paint();
  EXPECT_EQ(Widths(), "223 41 42 43 ");
  for (const Integer index : {2, 3}) {
    EXPECT_EQ(Ad(index).Duration(), 5000);
    EXPECT_TRUE(Ad(index).visible());
    EXPECT_EQ(Page(index), Page(0));
  }
  EXPECT_NE(Page(1), Page(0));
}

TEST_F(AdLibrary, TheFirstString_CanMakeTheBuiltInPictureAnAdLikeAnyOther) {
  BeginWith({{}}, AdSettings(u"style=MLA", 700, u"own"));
  Paint();
  EXPECT_EQ(Widths(), "223 40 ");
  EXPECT_FALSE(Ad(0).visible());
  EXPECT_EQ(Ad(0).Duration(), 700);
  EXPECT_EQ(Page(0).find("own"), 0u);
}

TEST_F(AdLibrary, AnAdOutsideItsDates_IsDropped_AndTheNextTakesItsIndex) {
  BeginWith({{.width = 41}, {.settings = kOver, .width = 42}, {.width = 43}}, kOver);
  Paint();
  EXPECT_EQ(Widths(), "41 43 ");
  EXPECT_EQ(Number(u"mWidth"), 43) << "dropped ads count for nothing";
  EXPECT_EQ(Number(u"mHeight"), 10);
}

TEST_F(AdLibrary, TheAdsTakeTheSizeOfTheWidestAndOfTheTallest) {
  BeginWith({{.width = 50, .height = 8}, {.width = 12, .height = 30}}, kOver);
  Paint(100, 40);
  EXPECT_EQ(Number(u"mWidth"), 50);
  EXPECT_EQ(Number(u"mHeight"), 30);
  for (const Integer index : {0, 1}) {
    EXPECT_EQ(world->SurfaceOf(Ad(index).hdc()).width, 50);
    EXPECT_EQ(world->SurfaceOf(Ad(index).hdc()).height, 30);
  }
}

TEST_F(AdLibrary, EveryAdDropped_FailsAtTheFirstEmptySlot_AndTheFormerAdsStay) {
  BeginWith({{.width = 41}});
  Paint();
  const Ref<AlphaBlender> blender = Inside::Blender(Factory());
  SetLibrary({{kOver}, {kOver}}, kOver);
  ReportNews();
  EXPECT_EQ(TakeErrors(), "91 AdvertisementsFactory.LoadAds\n");
  EXPECT_EQ(Widths(), "223 41 ");
  EXPECT_TRUE(Inside::Blender(Factory()) == blender);
  EXPECT_EQ(world->desk.Modules().LiveModules(), 0);
}

TEST_F(AdLibrary, EveryAdDropped_KeepsItsEmptySlots_WhereTheErrorIsIgnored) {
  BeginWith({{kOver}, {kOver}}, kOver);
  world->errors.Answer(std::vector<Variant>(6, Long{5}));
  Paint();
  EXPECT_EQ(TakeErrors(),
            "91 AdvertisementsFactory.LoadAds\n91 AdvertisementsFactory.LoadAds\n91 AdvertisementsFactory.LoadAds\n"
            "91 AdvertisementsFactory.LoadAds\n91 AdvertisementsFactory.LoadAds\n91 AdvertisementsFactory.LoadAds\n");
  EXPECT_EQ(Widths(), "none none none ");
}

TEST_F(AdLibrary, APictureThatFails_DropsItsAd_AndItsStringIsNeverRead) {
  BeginWith({{.width = 41}, {.width = 42, .hasPicture = false}, {.width = 43}});
  const Trace::Lines lines =
      LinesOf(Trace::kProcedures | Trace::kPictures, {"AdvertisementsFactory.getString", "picture"}, [&] { Paint(); });
  Trace::Lines kinds;
  for (const std::string& line : lines) {
    const bool isString = line.starts_with("Adv");
    kinds.push_back(isString ? "string" + line.substr(line.find(','), 4) : line);
  }
  EXPECT_EQ(AsText(kinds),
            "picture 116\nstring, 1)\n"
            "picture 2 of a module\nstring, 2)\n"
            "picture 3 of a module failed\n"
            "picture 4 of a module\nstring, 4)\n");
  EXPECT_EQ(Widths(), "223 41 43 ");
}

TEST_F(AdLibrary, ADamagedPicture_DropsItsAd) {
  BeginWith({{.width = 41}, {.width = 42}});
  desk::ModuleImage image;
  image.AddResource(2, u"CUSTOM", {'G', 'I', 'F', '8', '9', 'a', 1, 2, 3});
  image.strings[2] = AdSettings();
  world->desk.Modules().SetModule(Concat({world->word.TheSettings().commonAppPath, u"Vistrel.dll"}), image);
  Paint();
  EXPECT_EQ(Widths(), "223 ");
}

TEST_F(AdLibrary, APictureWithoutAString_IsAnAdOfTheProductsOwnPage) {
  BeginWith({{.width = 41, .hasString = false}});
  Paint();
  EXPECT_EQ(Widths(), "223 41 ");
  EXPECT_EQ(Ad(1).Duration(), 5000);
  EXPECT_TRUE(Ad(1).visible());
  EXPECT_EQ(Page(1), Page(0));
}

TEST_F(AdLibrary, AnAdLargerThanThePanel_IsCutFromBeyondIt) {
  BeginWith({});
  EXPECT_EQ(Cuts(200, 20), "-12, -6, 223, 32\n");
}

TEST_F(AdLibrary, TheMiddleOfTheBackground_GoesToTheEvenNeighbour) {
  struct Case {
    Long width;
    Long height;
    const char* cut;
  };
  const Case cases[] = {
      {228, 32, "2, 0, 223, 32\n"},                                                                // 2.5
      {230, 32, "4, 0, 223, 32\n"},                                                                // 3.5
      {223, 37, "0, 2, 223, 32\n"}, {223, 39, "0, 4, 223, 32\n"}, {218, 25, "-2, -4, 223, 32\n"},  // -2.5 and -3.5
      {227, 36, "2, 2, 223, 32\n"},
  };
  for (const Case& each : cases) {
    Begin();
    EXPECT_EQ(Cuts(each.width, each.height), each.cut) << each.width << " by " << each.height;
  }
}

TEST_F(AdLibrary, AllAdsAreCutAtOneSize) {
  BeginWith({{.width = 50, .height = 8}, {.width = 12, .height = 30}}, kOver);
  EXPECT_EQ(Cuts(100, 40), "25, 5, 50, 30\n25, 5, 50, 30\n");
}

TEST_F(AdLibrary, TwoAdsThatNameOneKey_ShareAnEntry_AndSubscribeEach) {
  BeginWith({{AdSettings(u"style=APA~stage=has_thesis")}, {}, {AdSettings(u"stage=draft|final")}});
  const Trace::Lines lines = LinesOf(Trace::kUses, {"call properties AddListener"}, [&] { Paint(); });
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[0].find("call properties AddListener(style, "), 0u);
  EXPECT_EQ(lines[1].find("call properties AddListener(stage, "), 0u);
  EXPECT_EQ(lines[2], lines[1]);
  EXPECT_EQ(ListenMap(), "style=0100 stage=0101 ");
}

TEST_F(AdLibrary, TheSameKeyTwiceInOneFilter_SubscribesTwiceToo) {
  BeginWith({{AdSettings(u"stage=a~stage=b~other=")}});
  EXPECT_EQ(LinesOf(Trace::kUses, {"call properties AddListener"}, [&] { Paint(); }).size(), 3u);
  EXPECT_EQ(ListenMap(), "stage=01 other=01 ");
}

TEST_F(AdLibrary, OnlyTheFirstPaint_LoadsAndTakesTheBackground) {
  BeginWith({{.width = 41}});
  Paint(223, 32);
  const Long background = Number(u"mHdc");
  SetLibrary({{.width = 42}});
  const Trace::Lines lines = LinesOf(~0u, {"LoadLibrary", "GetDC", "BitBlt", "log", "verify"}, [&] {
    Paint(300, 50);
    Factory().AfterPaint(world->Top(), 0, 0, 300, 50);
  });
  EXPECT_EQ(AsText(lines), "");
  EXPECT_EQ(Number(u"mHdc"), background);
  EXPECT_EQ(Number(u"mMaxWidth"), 223);
  EXPECT_EQ(Number(u"mMaxHeight"), 32);
  EXPECT_EQ(Widths(), "223 41 ");
}

TEST_F(AdLibrary, TheBackground_IsWhatTheWindowShowsThere) {
  Begin();
  SetLibrary({{.width = 4, .height = 2, .color = 0x0000FF}}, kOver);  // all of it lets the background through
  const Rect place = world->RectOf(world->Bar());
  world->desk.Canvas().FillRectangle(world->desk.Graphics().GetDC(world->Bar()), {0, 0, 60, 40}, 0x123456);
  Factory().AfterPaint(world->Bar(), 3, 2, 20, 10);
  ASSERT_GT(place.right - place.left, 60);
  EXPECT_EQ(world->SurfaceOf(Number(u"mHdc")).width, 20);
  EXPECT_EQ(world->SurfaceOf(Number(u"mHdc")).height, 10);
  EXPECT_EQ(*world->SurfaceOf(Number(u"mHdc")).At(19, 9), 0x563412u);
  EXPECT_EQ(*world->SurfaceOf(Ad(0).hdc()).At(1, 1), 0x563412u);
  world->desk.Misuses().Clear();
}

TEST_F(AdLibrary, Create_TakesABackgroundOnlyWhenThereIsNone_AndTheFirstPaintReplacesIt) {
  Begin();
  const int contexts = world->Contexts();
  const int bitmaps = world->Bitmaps();
  const Ref<AdPanel> panel = Factory().Create(world->Bar(), 1, 1, 30, 20);
  const Long before = Number(u"mHdc");
  EXPECT_NE(before, 0);
  EXPECT_EQ(Number(u"mMaxWidth"), 30);
  const Ref<AdPanel> other = Factory().Create(world->Bar(), 1, 1, 60, 20);
  EXPECT_EQ(Number(u"mHdc"), before);
  EXPECT_EQ(Number(u"mMaxWidth"), 30);
  EXPECT_EQ(world->Contexts(), contexts + 1);
  Paint();
  EXPECT_NE(Number(u"mHdc"), before);
  EXPECT_EQ(world->Contexts(), contexts + 2) << "the background and the one ad";
  EXPECT_EQ(world->Bitmaps(), bitmaps + 2);
}

TEST_F(AdLibrary, APanelThatIsMadeAfterALoad_HasTheAdsAtOnce) {
  BeginWith({{.width = 41}});
  Paint();
  const Ref<AdPanel> panel = Factory().Create(77, 1, 1, 30, 20);
  const VariableSnapshot variables = VariableSnapshot::Of(*panel);
  EXPECT_EQ(variables.Number(u"mHwnd"), 77);
  EXPECT_NE(variables.Number(u"mTargetHdc"), 0);
  EXPECT_EQ(variables.Number(u"mAds_ubound"), 1);
  EXPECT_NE(variables.Number(u"mDocId"), 0);
}

TEST_F(AdLibrary, AWindowIsToldOfALoadOnce) {
  BeginWith({{.width = 41, .height = 40}});
  Long width = -1;
  Long height = -1;
  Integer last = 7;
  EXPECT_FALSE(Factory().UpdateToNewAds(1, width, height, last)) << "before the first load";
  EXPECT_EQ(width, -1);
  EXPECT_EQ(last, 7);
  Paint();
  EXPECT_TRUE(Factory().UpdateToNewAds(1, width, height, last));
  EXPECT_EQ(width, 223);
  EXPECT_EQ(height, 40);
  EXPECT_EQ(last, 1);
  EXPECT_FALSE(Factory().UpdateToNewAds(1, width, height, last));
  EXPECT_TRUE(Factory().UpdateToNewAds(2, width, height, last));
  Factory().removeUpdatedWindow(1);
  Factory().removeUpdatedWindow(3);
  EXPECT_TRUE(Factory().UpdateToNewAds(1, width, height, last));
  EXPECT_FALSE(Factory().UpdateToNewAds(2, width, height, last));
  SetLibrary({{.width = 42}, {.width = 43}});
  ReportNews();
  EXPECT_TRUE(Factory().UpdateToNewAds(2, width, height, last));
  EXPECT_EQ(last, 2);
}

TEST_F(AdLibrary, WithoutAnyAds_TheHighestIndexIsMinusOne) {
  BeginWith({{kOver}}, kOver);
  Paint();
  TakeErrors();
  Long width = 5;
  Long height = 5;
  Integer last = 5;
  EXPECT_TRUE(Factory().UpdateToNewAds(1, width, height, last));
  EXPECT_EQ(last, -1);
  EXPECT_EQ(width, 0);
}

TEST_F(AdLibrary, ALoad_LogsWhatItDoes) {
  BeginWith({{}});
  EXPECT_EQ(AsText(LinesOf(Trace::kLogs, {}, [&] { Paint(); })),
            "log InitializeDefaultAd\n"
            "log NewAdvertisementsEvent\n"
            "verify C:\\Documents and Settings\\All Users\\Application Data\\Quillmere\\Vistrel.dll\n"
            "log NewAdvertisementsEvent: downloaded updated ads\n"
            "log LoadAds\n"
            "log Finished NewAdvertisementsEvent\n");
}

TEST_F(AdLibrary, AString_ComesAsTheBufferOf512CharactersThatItWasReadInto) {
  BeginWith({});
  desk::ModuleImage image;
  image.strings[1] = u"abc  ";
  image.strings[2] = String(std::u16string(511, u'x'));
  image.strings[3] = String(std::u16string(700, u'y'));
  world->desk.Modules().SetModule(u"texts.dll", image);
  const Long module = world->desk.Modules().LoadLibraryA(u"texts.dll");
  const auto expected = [](std::u16string text) {
    text += u'\0';
    text.resize(512, u' ');
    return String(text);
  };
  EXPECT_EQ(Inside::getString(Factory(), module, 1), expected(u"abc  "));
  EXPECT_EQ(Inside::getString(Factory(), module, 2), expected(std::u16string(511, u'x')));
  EXPECT_EQ(Inside::getString(Factory(), module, 3), expected(std::u16string(511, u'y')));
  EXPECT_EQ(Inside::getString(Factory(), module, 4), expected(u""));
  EXPECT_EQ(Inside::getString(Factory(), 0, 1), expected(u""));
  world->desk.Modules().SetHostStrings({{1, u"of the host"}});
  EXPECT_EQ(Inside::getString(Factory(), 0, 1), expected(u"of the host"));
  world->desk.Modules().FreeLibrary(module);
}

TEST_F(AdLibrary, Max_IsTheGreaterOfTwo) {
  Begin();
  EXPECT_EQ(Inside::MAX(Factory(), 3, 4), 4);
  EXPECT_EQ(Inside::MAX(Factory(), 4, 3), 4);
  EXPECT_EQ(Inside::MAX(Factory(), -4, -3), -3);
  EXPECT_EQ(Inside::MAX(Factory(), 0, 0), 0);
}

TEST_F(AdLibrary, AnIndexThatIsNotThere_RaisesAndGivesNothing) {
  BeginWith({{}});
  Paint();
  EXPECT_TRUE(Factory().Advertisement(1));
  EXPECT_FALSE(Factory().Advertisement(2));
  EXPECT_FALSE(Factory().Advertisement(-1));
  EXPECT_EQ(TakeErrors(), "9 AdvertisementsFactory.Advertisement[Get]\n9 AdvertisementsFactory.Advertisement[Get]\n");
}

TEST_F(AdLibrary, AFactory_KnowsOnlyAStubByWhichTheToolbarsHear) {
  Begin();
  const Ref<AdvertisementsFactory> factory = New<AdvertisementsFactory>();
  factory->Initialize(world->word.Properties());
  EXPECT_EQ(TakeErrors(), "13 AdvertisementsFactory.Initialize\n");
  const Ref<AdvertisementsCallbackStub> stub = New<AdvertisementsCallbackStub>();
  factory->Initialize(stub);
  EXPECT_TRUE(VariableSnapshot::Of(*factory)[u"mCallbackToMain"].ToObject().Target() == stub.get());
  EXPECT_TRUE(factory->callbackToMe());
}

TEST_F(AdLibrary, OutsidersMayHoldTheStubLongerThanTheFactoryLives) {
  Begin();
  Ref<AdvertisementsFactory> factory = New<AdvertisementsFactory>();
  factory->Initialize(New<AdvertisementsCallbackStub>());
  const Ref<AdvertisementsCallbackStub> stub = factory->callbackToMe();
  factory->Initialize(New<AdvertisementsCallbackStub>());
  const Ref<AdvertisementsCallbackStub> second = factory->callbackToMe();
  EXPECT_FALSE(stub == second);
  trace().Listen(Trace::kLogs);
  stub->NewAdvertisementsEvent(false);
  EXPECT_EQ(trace().TakeText(), "log NewAdvertisementsEvent\n") << "the former stub has no hearer";
  factory = nullptr;
  trace().Take();
  String key = u"a";
  String value = u"b";
  second->NewAdvertisementsEvent(false);
  second->ValueChanged(key, value);
  EXPECT_EQ(trace().TakeText(), "log NewAdvertisementsEvent\nlog ValueChanged event\n");
}

TEST_F(AdLibrary, TheFactorysEnd_LeavesNothingBehind) {
  Begin();
  const int contexts = world->Contexts();
  const int bitmaps = world->Bitmaps();
  for (const bool isLoaded : {false, true}) {
    Ref<AdvertisementsFactory> factory = New<AdvertisementsFactory>();
    factory->Initialize(New<AdvertisementsCallbackStub>());
    if (isLoaded) factory->AfterPaint(world->Bar(), 0, 0, 223, 32);
    const Trace::Lines lines = LinesOf(Trace::kLogs, {}, [&] { factory = nullptr; });
    EXPECT_EQ(lines.at(0), "log AdfactoryTerminate");
    EXPECT_EQ(world->Contexts(), contexts);
    EXPECT_EQ(world->Bitmaps(), bitmaps);
  }
}

TEST_F(AdLibrary, TheFactorysEnd_EmptiesItsMaps) {
  BeginWith({{AdSettings(u"style=APA")}});
  Ref<AdvertisementsFactory> factory = New<AdvertisementsFactory>();
  factory->Initialize(New<AdvertisementsCallbackStub>());
  factory->AfterPaint(world->Bar(), 0, 0, 223, 32);
  Long width = 0;
  Long height = 0;
  Integer last = 0;
  factory->UpdateToNewAds(77, width, height, last);
  const Ref<Dictionary> listenKeys = Inside::ListenKeys(*factory);
  const Ref<Dictionary> updatedAds = Inside::UpdatedAds(*factory);
  EXPECT_EQ(listenKeys->Count(), 1);
  EXPECT_EQ(updatedAds->Count(), 1);
  factory = nullptr;
  EXPECT_EQ(listenKeys->Count(), 0);
  EXPECT_EQ(updatedAds->Count(), 0);
}

TEST_F(AdLibrary, AReload_LetsGoOfTheFormerAds) {
  BeginWith({{.width = 41}, {.width = 42}});
  Paint();
  const int contexts = world->Contexts();
  const int bitmaps = world->Bitmaps();
  SetLibrary({{.width = 51}, {.width = 52}});
  ReportNews();
  EXPECT_EQ(Widths(), "223 51 52 ");
  EXPECT_EQ(world->Contexts(), contexts);
  EXPECT_EQ(world->Bitmaps(), bitmaps);
}

TEST_F(AdLibrary, TheFactory_ReportsItsVariablesInTheirOrder) {
  BeginWith({{}});
  EXPECT_EQ(FactoryVariables().Text(u"mLastSignature"), u"__UNINITIALIZED__");
  EXPECT_FALSE(FactoryVariables().Flag(u"mInitialized"));
  EXPECT_FALSE(Inside::Ads(Factory()).IsSized());
  Paint();
  EXPECT_EQ(AsText(FactoryVariables().Names()),
            "mAds\nmWidth\nmHeight\nmListenKeys\nmAlphaBlender\nmUpdatedAds\nmHdc\nmOldHandle\nmMaxWidth\nmMaxHeight\n"
            "mDownloadWorker\nmInitialized\nmLastSignature\nmCallbackToMain\nmCallbackToMe\n");
  EXPECT_TRUE(FactoryVariables().Flag(u"mInitialized"));
  EXPECT_TRUE(FactoryVariables()[u"mDownloadWorker"].ToObject().IsNothing());
}

}  // namespace
}  // namespace strandline
