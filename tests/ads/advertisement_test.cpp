// What becomes of an ad's settings, its finished picture, and a click on it.

#include "tests/ads/ad_fixture.h"
#include "tests/foundation/error_component.h"
#include "tests/support/allocations.h"
#include "tests/support/variables.h"

namespace strandline {
namespace {

using AdvertisementTest = AdTest;

constexpr TextView kWhole = u"3/1/2009$12/31/2009$W0100010$-$style=APA|MLA~stage=has_thesis$8000$offers/spring?ref=bar";
const Date kMonday = dates::FromParts(2009, 3, 2);

// --- settings ---

TEST_F(AdvertisementTest, WholeSettings_MakeAnAdWithTheEmailInItsAddress) {
  EXPECT_TRUE(Initialize(kWhole, kMonday));
  EXPECT_EQ(Website(), "offers/spring?emailAddress=reader&ref=bar");
  EXPECT_EQ(Inside::Filter(*ad), u"style=APA|MLA~stage=has_thesis");
  EXPECT_EQ(ad->Duration(), 8000);
  EXPECT_EQ(ad->width(), 4);
  EXPECT_EQ(ad->height(), 2);
  EXPECT_EQ(ad->hdc(), 0);
  EXPECT_TRUE(Inside::Pic(*ad));
  EXPECT_EQ(asked, Lines());
}

TEST_F(AdvertisementTest, OnAnotherDay_NothingIsKept) {
  EXPECT_FALSE(Initialize(kWhole, dates::FromParts(2009, 3, 3)));
  EXPECT_EQ(Website(), "");
  EXPECT_EQ(Inside::Filter(*ad), u"");
  EXPECT_EQ(ad->Duration(), 0);
  EXPECT_EQ(ad->width(), 0);
  EXPECT_FALSE(Inside::Pic(*ad));
}

// What stands behind the rule isn't looked at then, and may be anything.
TEST_F(AdvertisementTest, OnAnotherDay_TheRestOfTheSettingsMayBeMissing) {
  EXPECT_FALSE(Initialize(u"3/1/2009$12/31/2009$W0100010", dates::FromParts(2009, 3, 3)));
}

TEST_F(AdvertisementTest, DatesWithATime_AreDays) {
  EXPECT_TRUE(Initialize(u"3/2/2009 8:00$3/2/2009 8:00$D1$-$$8000$here", kMonday));
  EXPECT_TRUE(Initialize(u"3/2/2009 23:59:59$3/3/2009$D1$-$$8000$here", kMonday));
  EXPECT_FALSE(Initialize(u"3/3/2009 8:00$3/4/2009$D1$-$$8000$here", kMonday));
  EXPECT_FALSE(Initialize(u"2/1/2009$3/1/2009 23:59:59$D1$-$$8000$here", kMonday));
}

TEST_F(AdvertisementTest, BlankSettings_MakeNoAd) {
  String blanks = String(std::u16string(512, u' '));
  EXPECT_FALSE(ad->Initialize(floor->MakePicture(4, 2, kRed), blanks, kMonday));
  EXPECT_EQ(blanks, u"");
}

TEST_F(AdvertisementTest, Settings_LoseTheBlanksBehindTheirEndInPlace) {
  const struct {
    TextView before, after;
  } cases[] = {{TextView(u" a b \0   ", 9), TextView(u" a b \0", 6)}, {u"a\t ", u"a\t"}, {u"  a", u"  a"}};
  for (const auto& [before, after] : cases) {
    String settings = before;
    EXPECT_TRUE(ad->Initialize(floor->MakePicture(4, 2, kRed), settings, kMonday));
    EXPECT_EQ(settings, after) << ToUtf8(before);
  }
}

TEST_F(AdvertisementTest, DefaultForm_IsTheProductsPageForFiveSeconds) {
  const TextView cases[] = {u"", u"any text", u"StartDate$EndDate$Repeat$-$filter=x$Duration$Website", u"StartDate$",
                            u"StartDate$1$2$3$4$5$6$7$8"};
  for (const TextView settings : cases) {
    SCOPED_TRACE(ToUtf8(settings));
    ad = New<Advertisement>();
    asked.clear();
    EXPECT_TRUE(Initialize(settings));
    EXPECT_EQ(asked, Lines{"WebsiteAddress False ''"});
    EXPECT_EQ(ad->Duration(), 5000);
    EXPECT_EQ(Inside::Filter(*ad), u"");
    EXPECT_TRUE(ad->visible());
    EXPECT_EQ(Website(), "http://product?emailAddress=reader");
    EXPECT_EQ(ad->width(), 4);
  }
}

TEST_F(AdvertisementTest, TheHeading_IsExactlyThatText) {
  for (const TextView start : {TextView(u"startdate"), TextView(u"StartDay"), TextView(u"StartDates"),
                               TextView(u" StartDate"), TextView(u"StartDate ")}) {
    EXPECT_FALSE(Initialize(Concat({start, u"$12/31/2009$D1$-$$8000$here"})));
    EXPECT_EQ(TakeErrors(), Lines{"13 Advertisement.InitializeBasedOnSettings"}) << ToUtf8(start);
  }
}

TEST_F(AdvertisementTest, MoreFieldsThanSeven_DontMatter) {
  EXPECT_TRUE(Initialize(u"3/1/2009$12/31/2009$D1$-$$8000$here$there$"));
  EXPECT_EQ(Website(), "here?emailAddress=reader");
}

// The NUL that ends the settings then stands at the end of another field.
TEST_F(AdvertisementTest, TooFewFields_AreAnErrorAndTheAdIsKept) {
  for (const TextView settings :
       {TextView(u"3/1/2009$12/31/2009$D1"), TextView(u"3/1/2009$12/31/2009$D1$-"),
        TextView(u"3/1/2009$12/31/2009$D1$-$a=b"), TextView(u"3/1/2009$12/31/2009$D1$-$a=b$8000")}) {
    SCOPED_TRACE(ToUtf8(settings));
    ad = New<Advertisement>();
    EXPECT_TRUE(Initialize(settings));
    EXPECT_EQ(TakeErrors(), Lines{"9 Advertisement.InitializeBasedOnSettings"});
    EXPECT_EQ(Website(), "");
    EXPECT_EQ(ad->width(), 4);
  }
}

TEST_F(AdvertisementTest, TooFewFields_WhereExecutionGoesOn_LeaveOnlyWhatIsMissing) {
  floor->errors.Answer({vbwProtector::kIgnore});
  EXPECT_TRUE(Initialize(u"3/1/2009$12/31/2009$D1$-$a=b$8000"));
  EXPECT_EQ(TakeErrors(), Lines{"9 Advertisement.InitializeBasedOnSettings"});
  EXPECT_EQ(ad->Duration(), 8000);
  EXPECT_EQ(Website(), "?emailAddress=reader");
}

// Two fields have no rule either, and the error comes before the result.
TEST_F(AdvertisementTest, WithoutARule_NoAdIsKept) {
  EXPECT_FALSE(Initialize(u"3/1/2009$12/31/2009"));
  EXPECT_EQ(TakeErrors(), Lines{"9 Advertisement.InitializeBasedOnSettings"});
}

TEST_F(AdvertisementTest, TextThatIsNoDate_IsAnErrorAndNoAdIsKept) {
  for (const TextView settings :
       {TextView(u"soon$12/31/2009$D1$-$$8000$here"), TextView(u"3/1/2009$later$D1$-$$8000$x"), TextView(u"$$$$$$")}) {
    EXPECT_FALSE(Initialize(settings));
    EXPECT_EQ(TakeErrors(), Lines{"13 Advertisement.InitializeBasedOnSettings"}) << ToUtf8(settings);
  }
}

TEST_F(AdvertisementTest, ADurationThatIsNoNumber_IsAnError) {
  const struct {
    TextView settings;
    const char* error;
  } cases[] = {{u"3/1/2009$12/31/2009$D1$-$$long$here", "13 Advertisement.InitializeBasedOnSettings"},
               {u"3/1/2009$12/31/2009$D1$-$$$here", "13 Advertisement.InitializeBasedOnSettings"},
               {u"3/1/2009$12/31/2009$D1$-$$3000000000$here", "6 Advertisement.InitializeBasedOnSettings"}};
  for (const auto& [settings, error] : cases) {
    ad = New<Advertisement>();
    EXPECT_TRUE(Initialize(settings));
    EXPECT_EQ(TakeErrors(), Lines{error}) << ToUtf8(settings);
    EXPECT_EQ(Website(), "");
  }
}

// --- the address ---

TEST_F(AdvertisementTest, TheEmail_GoesIntoTheAddress) {
  const struct {
    TextView website;
    const char16_t* email;
    const char* result;
  } cases[] = {{u"page", u"me", "page?emailAddress=me"},
               {u"page?", u"me", "page?emailAddress=me&"},
               {u"page?a=b", u"me", "page?emailAddress=me&a=b"},
               {u"page?a?b", u"me", "page?emailAddress=me&a?b"},
               {u"?", u"me", "?emailAddress=me&"},
               {u"page#part", u"me", "page?emailAddress=me#part"},
               {u"#part", u"me", "?emailAddress=me#part"},
               {u"page#part#other", u"me", "page?emailAddress=me#part#other"},
               {u"page?a=b#part", u"me", "page?emailAddress=me&a=b#part"},
               {u"page#part?a=b", u"me", "page#part?emailAddress=me&a=b"},
               {u"page", u"", "page?emailAddress="},
               {u"", u"me", "?emailAddress=me"},
               {u"", u"", "?emailAddress="},
               {u"page", u"a&b c#d", "page?emailAddress=a&b c#d"}};
  for (const auto& [website, email, result] : cases) {
    SetEmail(email);
    String address = website;
    EXPECT_EQ(ToUtf8(Inside::addEmailParameterToWebsite(*ad, address)), result);
    EXPECT_EQ(address, website);
  }
}

TEST_F(AdvertisementTest, TheAddress_LosesItsNulInPlace) {
  String address = TextView(u"page\0", 5);
  EXPECT_EQ(Inside::addEmailParameterToWebsite(*ad, address), u"page?emailAddress=reader");
  EXPECT_EQ(address, u"page");
}

TEST_F(AdvertisementTest, AnEmptyWebsite_StillBearsTheEmail) {
  EXPECT_TRUE(Initialize(u"3/1/2009$12/31/2009$D1$-$$8000$"));
  EXPECT_EQ(Website(), "?emailAddress=reader");
}

TEST_F(AdvertisementTest, TheEmail_IsThatOfTheLoad) {
  EXPECT_TRUE(Initialize(u"3/1/2009$12/31/2009$D1$-$$8000$page"));
  SetEmail(u"other");
  EXPECT_EQ(Website(), "page?emailAddress=reader");
  EXPECT_TRUE(Initialize(u"3/1/2009$12/31/2009$D1$-$$8000$page"));
  EXPECT_EQ(Website(), "page?emailAddress=other");
}

// Of the three levels of the store only the product's.
TEST_F(AdvertisementTest, TheEmail_IsTheProductsValue) {
  floor->word.TheProduct().Store().SetUserValue(u"email", u"the user's");
  EXPECT_TRUE(Initialize(u""));
  EXPECT_EQ(Website(), "http://product?emailAddress=reader");
}

// --- keys ---

TEST_F(AdvertisementTest, ListenKeys_AreTheNamesOfTheClauses) {
  const struct {
    TextView filter;
    std::vector<String> keys;
  } cases[] = {{u"", {}},
               {u"a=b", {u"a"}},
               {u"a=b=c~d=", {u"a", u"d"}},
               {u"~a=b~~c", {u"", u"a", u"", u"c"}},
               {u"a=1~a=2~", {u"a", u"a", u""}},
               {u"=x", {u""}}};
  for (const auto& [filter, keys] : cases) {
    Inside::SetFilter(*ad, filter);
    const Array<String> found = ad->listenKeys();
    ASSERT_TRUE(found.IsSized());
    EXPECT_EQ(found.Lower(), 0);
    EXPECT_EQ(found.Elements(), keys) << ToUtf8(filter);
  }
}

// Each statement that fails ends in the procedure's own tail, the reading of the array's bound too.
TEST_F(AdvertisementTest, ListenKeys_WithoutMemory_AreAnErrorOfTheirOwn) {
  constexpr std::size_t kClauses = 37;
  std::u16string filter = u"a=b";
  for (std::size_t i = 1; i < kClauses; ++i) filter += u"~a=b";
  Inside::SetFilter(*ad, filter);
  floor->errors.Answer({vbwProtector::kIgnore, vbwProtector::kIgnore});
  FailNextAllocationOf(kClauses * sizeof(String));
  EXPECT_FALSE(ad->listenKeys().IsSized());
  EXPECT_EQ(TakeErrors(), (Lines{"7 Advertisement.listenKeys[Get]", "9 Advertisement.listenKeys[Get]"}));
  EXPECT_EQ(ad->listenKeys().Upper(), static_cast<Long>(kClauses) - 1);
}

// --- the picture ---

TEST_F(AdvertisementTest, BackBuffer_IsTheBackgroundWithThePictureInItsMiddle) {
  String settings = Buffer(u"");
  const Long background = floor->MakeContext(10, 6, kWhite);
  floor->SetPixel(background, 2, 1, kGreen);  // the corner of what is cut out
  ASSERT_TRUE(ad->Initialize(floor->MakePicture({"r.r", "#.#"}), settings, kMonday));
  ad->InitBackBuffer(background, 2, 1, 6, 4);
  // (6 - 3) / 2 is 1.5, which goes to 2.
  EXPECT_EQ(floor->RowsOf(ad->hdc()), (Lines{"gwwwww", "wwrwrw", "ww#w#w", "wwwwww"}));
}

// Halves go to the even neighbour, on both sides of 0.
TEST_F(AdvertisementTest, BackBuffer_CentresToTheEvenPixel) {
  const struct {
    Integer width;
    const char* row;
  } cases[] = {{1, "r"}, {2, "rw"}, {3, "wrw"}, {4, "wwrw"}, {5, "wwrww"}, {6, "wwrwww"}, {8, "wwwwrwww"}};
  const Long background = floor->MakeContext(10, 1, kWhite);
  for (const auto& [width, row] : cases) {
    ad = New<Advertisement>();
    String settings = Buffer(u"");
    ASSERT_TRUE(ad->Initialize(floor->MakePicture({"r"}), settings, kMonday));
    ad->InitBackBuffer(background, 0, 0, width, 1);
    EXPECT_EQ(floor->RowsOf(ad->hdc()), Lines{row});
  }
}

// The largest ad may be larger than the panel from whose middle it is cut.
TEST_F(AdvertisementTest, BackBuffer_BeyondThePanel_StaysBlackThere) {
  String settings = Buffer(u"");
  const Long background = floor->MakeContext(2, 2, kWhite);
  ASSERT_TRUE(ad->Initialize(floor->MakePicture({"r.", ".r"}), settings, kMonday));
  ad->InitBackBuffer(background, -1, -2, 4, 4);
  EXPECT_EQ(floor->RowsOf(ad->hdc()), (Lines{"####", "#r##", "#wr#", "#ww#"}));
}

TEST_F(AdvertisementTest, BackBuffer_IsMadeInItsOrder) {
  String settings = Buffer(u"");
  const Long background = floor->MakeContext(9, 9, kWhite);
  const Picture picture = floor->MakePicture(3, 2, kRed);
  ASSERT_TRUE(ad->Initialize(picture, settings, kMonday));
  floor->calls.Clear();
  floor->calls.Name(background, "panel");
  floor->calls.Name(picture->Handle(), "picture");
  ad->InitBackBuffer(background, 1, 2, 5, 4);
  EXPECT_EQ(floor->calls.Take(),
            (Lines{"CreateCompatibleDC(panel) = dc 1", "CreateCompatibleBitmap(panel, 5, 4) = bitmap 1",
                   "SelectObject(dc 1, bitmap 1) = stock", "BitBlt(dc 1, 0, 0, 5, 4, panel, 1, 2, SRCCOPY)",
                   "CreateCompatibleDC(panel) = dc 2", "SelectObject(dc 2, picture) = stock",
                   "ColorKeyBlt(dc 1, 1, 1, 3, 2, dc 2, 0, 0, 0xFF0000)", "SelectObject(dc 2, stock) = picture",
                   "DeleteObject(picture)", "DeleteDC(dc 2)"}));
}

TEST_F(AdvertisementTest, BackBuffer_UsesUpThePicturesBitmapAndGoesWithTheAd) {
  String settings = Buffer(u"");
  const Long background = floor->MakeContext(9, 9, kWhite);
  const int contexts = floor->Contexts();
  const int bitmaps = floor->Bitmaps();
  Picture picture = floor->MakePicture(3, 2, kRed);
  ASSERT_TRUE(ad->Initialize(picture, settings, kMonday));
  ad->InitBackBuffer(background, 0, 0, 5, 4);
  EXPECT_EQ(floor->Contexts(), contexts + 1);
  EXPECT_EQ(floor->Bitmaps(), bitmaps + 1);
  ad = nullptr;
  picture = nullptr;
  EXPECT_EQ(floor->Contexts(), contexts);
  EXPECT_EQ(floor->Bitmaps(), bitmaps);
}

TEST_F(AdvertisementTest, BackBuffer_MadeAgain_LetsGoOfTheFormerSurface) {
  String settings = Buffer(u"");
  const Long background = floor->MakeContext(9, 9, kWhite);
  ASSERT_TRUE(ad->Initialize(floor->MakePicture(3, 2, kRed), settings, kMonday));
  ad->InitBackBuffer(background, 0, 0, 5, 4);
  const int contexts = floor->Contexts();
  const int bitmaps = floor->Bitmaps();
  const Long former = ad->hdc();
  floor->calls.Clear();
  floor->calls.Name(former, "former");
  floor->calls.Name(background, "panel");
  ad->InitBackBuffer(background, 0, 0, 7, 2);
  const Lines calls = floor->calls.Take();
  ASSERT_GE(calls.size(), 5u);
  EXPECT_EQ(Lines(calls.begin(), calls.begin() + 5),
            (Lines{"SelectObject(former, stock) = object 1", "DeleteObject(object 1)", "DeleteDC(former)",
                   "CreateCompatibleDC(panel) = dc 1", "CreateCompatibleBitmap(panel, 7, 2) = bitmap 1"}));
  EXPECT_EQ(floor->Contexts(), contexts);
  EXPECT_EQ(floor->Bitmaps(), bitmaps);
  EXPECT_EQ(floor->SurfaceOf(ad->hdc()).width, 7);
  EXPECT_EQ(floor->SurfaceOf(ad->hdc()).height, 2);
  floor->desk.Misuses().Clear();  // the bitmap that is no more
}

TEST_F(AdvertisementTest, ItsEnd_FreesTheSurfaceAndIsLogged) {
  struct Heard final : LogObserver {
    void OnLog(TextView message, Long level) override {
      const VariableSnapshot variables = VariableSnapshot::Of(*ending);
      lines.push_back(std::to_string(level) + " " + ToUtf8(message) + ", contexts " +
                      std::to_string(floor->Contexts()) + ", its own " + std::to_string(variables.Number(u"mHdc")) +
                      " with " + std::to_string(variables.Number(u"mOldHandle")));
    }
    DrawingFloor* floor = nullptr;
    const Advertisement* ending = nullptr;
    Lines lines;
  } heard;
  heard.floor = floor.get();
  const Long background = floor->MakeContext(9, 9, kWhite);
  const int contexts = floor->Contexts();
  ASSERT_TRUE(Initialize(u""));
  ad->InitBackBuffer(background, 0, 0, 5, 4);
  heard.ending = ad.get();
  floor->library.SetLogObserver(&heard);
  ad = nullptr;
  floor->library.SetLogObserver(nullptr);
  EXPECT_EQ(heard.lines,
            Lines{"0 Advertisement Terminated, contexts " + std::to_string(contexts) + ", its own 0 with 0"});
}

TEST_F(AdvertisementTest, WithoutAPicture_TheErrorIsItsOwn) {
  String settings = Buffer(u"");
  EXPECT_TRUE(ad->Initialize(nullptr, settings, kMonday));
  EXPECT_EQ(TakeErrors(), Lines{"91 Advertisement.Initialize"});
}

TEST_F(AdvertisementTest, APictureBeyondAnInteger_IsAnOverflow) {
  class Wide final : public PictureObject {
   public:
    Long Handle() const override { return 0; }
    Long Width() const override { return 1'000'000; }
    Long Height() const override { return 26; }
  };
  String settings = Buffer(u"");
  EXPECT_TRUE(ad->Initialize(Picture(New<Wide>()), settings, kMonday));
  EXPECT_EQ(TakeErrors(), Lines{"6 Advertisement.Initialize"});
  EXPECT_EQ(ad->width(), 0);
  EXPECT_EQ(ad->height(), 0);
}

// --- a click ---

TEST_F(AdvertisementTest, AClick_AsksANewBrowserForTheAddress) {
  ASSERT_TRUE(Initialize(kWhole));
  ad->ClickOnAd();
  ad->ClickOnAd();
  const std::string browse = "Browse 'offers/spring?emailAddress=reader&ref=bar'";
  EXPECT_EQ(browsing, (Lines{"made", browse, "gone", "made", browse, "gone"}));
}

TEST_F(AdvertisementTest, AClick_HandsTheAddressByReference) {
  ASSERT_TRUE(Initialize(kWhole));
  browserWrites = u"elsewhere";
  ad->ClickOnAd();
  EXPECT_EQ(Website(), "elsewhere");
}

TEST_F(AdvertisementTest, AClickWithoutABrowser_IsAnErrorAndNothingElse) {
  ASSERT_TRUE(Initialize(kWhole));
  floor->desk.Components().SetMissing(u"HTTP.Main2", true);
  ad->ClickOnAd();
  EXPECT_EQ(TakeErrors(), Lines{"429 Advertisement.ClickOnAd"});
  EXPECT_EQ(browsing, Lines());
}

// --- a dump ---

TEST_F(AdvertisementTest, Variables_AreToldInTheirOrder) {
  struct Told final : Reporter {
    void Variable(TextView name, const Variant& value) override {
      std::string shown = "picture";
      if (!value.If<Picture>()) shown = Shown(value);
      lines.push_back(ToUtf8(name) + " = " + shown);
    }
    Lines lines;
  } told;
  ASSERT_TRUE(Initialize(u"3/1/2009$12/31/2009$D1$-$a=b$8000$page"));
  ad->ReportVariables(told);
  EXPECT_EQ(told.lines, (Lines{"mHdc = 0", "mOldHandle = 0", "mPic = picture", "mFilter = 'a=b'", "mDuration = 8000",
                               "mWebsite = 'page?emailAddress=reader'", "mWidth = 4", "mHeight = 2"}));
}

}  // namespace
}  // namespace strandline
