// What a dump shows of the ads' procedures and objects: every parameter, every local variable, every field, in order.

#include "drawing/ToolbarUtilities.h"
#include "platform/dates.h"
#include "platform/wrappers/forwarding.h"
#include "tests/ads/ad_fixture.h"
#include "tests/ads/ads_fixture.h"
#include "tests/support/allocations.h"

namespace strandline {
namespace {

// One variable of a dump, "name = value". A handle's value is of no interest, only whether there is one; a text that
// came with the NUL that ends it is shown up to there.
std::string VariableLine(const std::string& call) {
  const std::size_t name = call.find('\'') + 1;
  const std::size_t end = call.find('\'', name);
  const std::string variable = call.substr(name, end - name);
  std::string value = call.substr(end + 3, call.rfind(", ") - end - 3);
  const bool isHandle =
      variable.ends_with("Hdc") || variable.ends_with("Handle") || variable.ends_with("Hwnd") || variable == "hModule";
  if (isHandle && value != "0") value = "handle";
  const std::size_t nul = value.find('\0');
  if (nul != std::string::npos) value = value.substr(0, nul) + "...'";
  return variable + " = " + value;
}

// The first dump, a line each, from its opening to its closing.
std::string Dumped(const ErrorScript& script) {
  std::string text;
  bool isOpen = false;
  for (const std::string& call : script.log) {
    if (call == "vbwOpenDumpFile()") isOpen = true;
    if (!isOpen) continue;
    if (call == "vbwCloseDumpFile()") return text;
    for (const char* level : {"LOCAL", "MODULE", "GLOBAL"}) {
      if (call.find(std::string("* ") + level + " LEVEL") != std::string::npos) text += std::string(level) + "\n";
    }
    if (call.starts_with("vbwReportVariable(")) text += VariableLine(call) + "\n";
    if (call.starts_with("vbwReportObject(")) text += call.substr(17, call.find('\'', 17) - 17) + "\n";
  }
  return text + "the dump has no end";
}

std::string Globals(const char* adFactory, const char* productState, const char* converter) {
  return std::string("GLOBAL\nvbwProtector.vbwTraceProc = True\nvbwProtector.vbwTraceParameters = False\n") +
         "ToolbarUtilities.adFactory = " + adFactory + "\nToolbarUtilities.productState = " + productState +
         "\nToolbarUtilities.converter = " + converter + "\nApp\nErr\nScreen\n";
}

// Of a dump's text: what stands under "LOCAL".
std::string LocalsOf(const std::string& dump) {
  const std::size_t begin = dump.find("LOCAL\n") + 6;
  return dump.substr(begin, dump.find("MODULE\n") - begin);
}

class DumpOfAnAd : public AdTest {
 protected:
  std::string LocalsDuring(const std::function<void()>& doing) { return LocalsOf(DumpDuring(doing)); }
  std::string DumpDuring(const std::function<void()>& doing) {
    floor->errors.log.clear();
    floor->errors.Answer({vbwProtector::kDump});
    doing();
    TakeErrors();
    return Dumped(floor->errors);
  }
  static std::string Globals() { return strandline::Globals("Nothing", "object", "Nothing"); }
};

TEST_F(DumpOfAnAd, OfItsSettings) {
  String settings = u"3/1/2009$12/31/2009 18:00$D1$-$style=APA$long$here";
  const std::string dump =
      DumpDuring([&] { ad->Initialize(floor->MakePicture(4, 2, kRed), settings, dates::FromParts(2009, 3, 2)); });
  EXPECT_EQ(dump,
            "LOCAL\n"
            "settings = '3/1/2009$12/31/2009 18:00$D1$-$style=APA$long$here'\n"
            "currentDate = day 39874\n"
            "fields = [0 '3/1/2009' '12/31/2009 18:00' 'D1' '-' 'style=APA' 'long' 'here']\n"
            "startDate = day 39873\n"
            "endDate = day 40178.75\n"
            "MODULE\n"
            "mHdc = 0\nmOldHandle = 0\nmPic = no picture\nmFilter = 'style=APA'\nmDuration = 0\nmWebsite = ''\n"
            "mWidth = 0\nmHeight = 0\n" +
                Globals());
}

TEST_F(DumpOfAnAd, OfItsSchedule) {
  const std::string dump = DumpDuring([&] {
    Inside::InRepeatEveryOther(*ad, u"32767", dates::FromParts(2008, 11, 30), 7, dates::FromParts(2009, 3, 2));
  });
  EXPECT_EQ(dump,
            "LOCAL\n"
            "body = '32767'\nstartDate = day 39782\ndayRange = 7\ncurrentDate = day 39874\n"
            // November to February, and the second of March
            "every = 32767\nworkingDay = 30\nendDay = 122\nworkingYear = 2009\ni = 3\nlast = 2\n"
            "MODULE\n"
            "mHdc = 0\nmOldHandle = 0\nmPic = no picture\nmFilter = ''\nmDuration = 0\nmWebsite = ''\n"
            "mWidth = 0\nmHeight = 0\n" +
                Globals());
}

TEST_F(DumpOfAnAd, OfItsFilter) {
  SetValue(u"stage", u"draft");
  Inside::SetFilter(*ad, u"stage=draft|final~style");
  EXPECT_EQ(DumpDuring([&] { ad->visible(); }),
            "LOCAL\n"
            "filter = 'stage=draft|final~style'\nclause = 'style'\nname = 'style'\ncompare = ''\n"
            "MODULE\n"
            "mHdc = 0\nmOldHandle = 0\nmPic = no picture\nmFilter = 'stage=draft|final~style'\nmDuration = 0\n"
            "mWebsite = ''\nmWidth = 0\nmHeight = 0\n" +
                Globals());
}

// A first statement that fails: the locals are as they begin.

TEST_F(DumpOfAnAd, OfABackBufferWithoutAPicture) {
  const Long background = floor->MakeContext(30, 20, kGreen);
  EXPECT_EQ(LocalsDuring([&] { ad->InitBackBuffer(background, 1, 2, 28, 18); }),
            "srcHdc = handle\nleft = 1\ntop = 2\nwidth = 28\nheight = 18\n"
            "picHdc = handle\noldHandle = 0\nx = 0\ny = 0\n");
  floor->DeleteContext(background);
}

TEST_F(DumpOfAnAd, OfAnAddressForWhichThereIsNoMemory) {
  const std::u16string address(300, u'a');
  String website = address;
  FailNextAllocationOf((address.size() + 1) * sizeof(char16_t));
  EXPECT_EQ(LocalsDuring([&] { Inside::addEmailParameterToWebsite(*ad, website); }),
            "website = '" + std::string(300, 'a') + "'\nquestionIndex = 0\nhashIndex = 0\n");
  FailNextAllocationOf(0);
}

TEST_F(DumpOfAnAd, OfListenKeysForWhichThereIsNoMemory) {
  constexpr std::size_t kClauses = 37;
  Inside::SetFilter(*ad, std::u16string(kClauses - 1, u'~'));
  FailNextAllocationOf(kClauses * sizeof(String));
  EXPECT_EQ(LocalsDuring([&] { ad->listenKeys(); }), "last = -1\ni = 0\n");
  FailNextAllocationOf(0);
}

TEST_F(DumpOfAnAd, OfRulesThatCantBeRead) {
  const Date day = dates::FromParts(2009, 3, 2);
  const Date none{1e9};
  EXPECT_EQ(LocalsDuring([&] { Inside::InRepeatTiming(*ad, day, day, u"", day); }),
            "startDate = day 39874\nendDate = day 39874\nrepeatStr = ''\ncurrentDate = day 39874\n"
            "body = ''\nrule = 0\n");
  EXPECT_EQ(LocalsDuring([&] { Inside::InRepeatWeekly(*ad, u"11", day, none); }),
            "body = '11'\nstartDate = day 39874\ncurrentDate = day 1000000000\nweekday = 0\n");
  EXPECT_EQ(LocalsDuring([&] { Inside::InRepeatYearly(*ad, u"", day); }),
            "body = ''\ncurrentDate = day 39874\nparts = [0]\nmonth = 0\nday = 0\n");
  EXPECT_EQ(LocalsDuring([&] { Inside::InRepeatEveryOther(*ad, u"x", day, 7, day); }),
            "body = 'x'\nstartDate = day 39874\ndayRange = 7\ncurrentDate = day 39874\n"
            "every = 0\nworkingDay = 0\nendDay = 0\nworkingYear = 0\ni = 0\nlast = 0\n");
}

class DumpOfTheAds : public AdsTest {
 protected:
  std::string LocalsDuring(const std::function<void()>& doing) { return LocalsOf(DumpDuring(doing)); }
  std::string DumpDuring(const std::function<void()>& doing) {
    world->errors.log.clear();
    world->errors.Answer({vbwProtector::kDump});
    doing();
    TakeErrors();
    return Dumped(world->errors);
  }
  static std::string Globals() { return strandline::Globals("object", "object", "object"); }
};

TEST_F(DumpOfTheAds, OfALoad) {
  Begin();
  SetLibrary({{kOver}}, kOver);
  EXPECT_EQ(DumpDuring([&] { Paint(300, 41); }),
            "LOCAL\n"
            "hModule = handle\nuboundImages = 1\ncurrentDate = day 39874\n"
            "ads = [0 Nothing Nothing]\ncount = 0\ni = 0\nad = object\nimage = picture\n"
            "settings = '1/1/2000$12/31/2000$W1111111$-$$5000$old...'\nlistenMap = object\nleft = 150\ntop = 20\n"
            "MODULE\n"
            "mAds = [unsized]\nmWidth = 0\nmHeight = 0\nmListenKeys = Nothing\nmAlphaBlender = Nothing\n"
            "mUpdatedAds = object\nmHdc = handle\nmOldHandle = handle\nmMaxWidth = 300\nmMaxHeight = 41\n"
            "mDownloadWorker = Nothing\nmInitialized = True\nmLastSignature = 'signature 1'\n"
            "mCallbackToMain = object\nmCallbackToMe = object\n" +
                Globals());
}

TEST_F(DumpOfTheAds, OfTheNewsOfALibrary) {
  Begin();
  SetLibrary({{}});
  Paint();
  verifying = [] { Raise(1000, u"no verification"); };
  EXPECT_EQ(DumpDuring([&] { ReportNews(true); }),
            "LOCAL\n"
            "abortedAfterFiveSeconds = True\n"
            "currentDate = day 39874\nhModule = handle\nverifier = object\nsignature = ''\nuboundImages = 0\n"
            "MODULE\n"
            "mAds = [0 object object]\nmWidth = 223\nmHeight = 32\nmListenKeys = object\nmAlphaBlender = object\n"
            "mUpdatedAds = object\nmHdc = handle\nmOldHandle = handle\nmMaxWidth = 223\nmMaxHeight = 32\n"
            "mDownloadWorker = Nothing\nmInitialized = True\nmLastSignature = 'signature 1'\n"
            "mCallbackToMain = object\nmCallbackToMe = object\n" +
                Globals());
  verifying = nullptr;
}

TEST_F(DumpOfTheAds, OfAPanelThatAsksTheAds) {
  BeginWithStrip({{AdSettings(u"style=APA")}});
  const std::string document = std::to_string(PanelVariables().Number(u"mDocId"));
  SetLibrary({{}, {AdSettings(u"style=APA")}, {}});
  ReportNews();
  EXPECT_EQ(DumpDuring([&] { ChangeValue(u"style", u"APA"); }),
            "LOCAL\n"
            "visibleUpdateArray = [0 0 0 1 0]\nlast = 3\ni = 2\n"
            "MODULE\n"
            "mFadeTick = 0\nmVisibleArray = [0 0 0]\nmCurrentIndex = 0\nmPreviousIndex = 0\nmHwnd = handle\n"
            "mTargetHdc = handle\nmOldHandle = handle\nmMoreThanOneAdIsVisible = False\nmWidth = 223\n"
            "mHeight = 32\nmCyclingAds = True\nmDocId = " +
                document + "\nmAds_ubound = 1\n" + Globals());
}

TEST_F(DumpOfTheAds, OfABlenderWithoutItsComponent) {
  Begin();
  SetLibrary({{AdSettings(), 60, 20}}, kOver);
  world->desk.Components().SetMissing(u"AlphaBlender.Main2", true);
  EXPECT_EQ(DumpDuring([&] { Paint(); }),
            "LOCAL\n"
            "width = 60\nheight = 20\n"
            "MODULE\n"
            "mAlphaBlender = Nothing\nmWidth = 60\nmHeight = 20\nmCache = object\nmOldHandles = object\n" +
                Globals());
}

TEST_F(DumpOfTheAds, OfABlenderThatFreesItsBlends) {
  Begin();
  Ref<AlphaBlender> blender = New<AlphaBlender>();
  EXPECT_EQ(DumpDuring([&] { blender = nullptr; }),
            "LOCAL\n"
            "count = 0\ni = 0\nhandle = 0\n"
            "MODULE\n"
            "mAlphaBlender = Nothing\nmWidth = 0\nmHeight = 0\nmCache = Nothing\nmOldHandles = Nothing\n" +
                Globals());
}

TEST_F(DumpOfTheAds, OfALoadWithoutRoom) {
  Begin();
  Integer highest = -2;
  EXPECT_EQ(LocalsDuring([&] { Inside::LoadAds(Factory(), 0, highest, dates::FromParts(2009, 3, 2)); }),
            "hModule = 0\nuboundImages = -2\ncurrentDate = day 39874\n"
            "ads = [unsized]\ncount = 0\ni = 0\nad = Nothing\nimage = no picture\nsettings = ''\n"
            "listenMap = Nothing\nleft = 0\ntop = 0\n");
}

TEST_F(DumpOfTheAds, OfTheNewsOfALibraryThatCantBeMapped) {
  class NoLibraries final : public ForwardingModules {
   public:
    using ForwardingModules::ForwardingModules;
    Long LoadLibraryA(const String&) override { Raise(1000, u"no library"); }
  };
  Begin();
  Modules* const former = platform::current.modules;
  NoLibraries none(*former);
  platform::current.modules = &none;
  EXPECT_EQ(LocalsDuring([&] { ReportNews(false); }),
            "abortedAfterFiveSeconds = False\n"
            "currentDate = day 39874\nhModule = 0\nverifier = Nothing\nsignature = ''\nuboundImages = 0\n");
  platform::current.modules = former;
}

TEST_F(DumpOfTheAds, OfAPanelThatFindsNoMemory) {
  constexpr std::size_t kFlagsInAPiece = 512;  // of a deque
  BeginWithStrip({{}});
  Array<Boolean> all;
  FailNextAllocationOf(kFlagsInAPiece);
  EXPECT_EQ(LocalsDuring([&] { Inside::ReinitializeVisibleArray(Panel(), all); }),
            "visibleUpdateArray = [unsized]\nlast = -1\ni = 0\n");
  FailNextAllocationOf(0);
}

TEST_F(DumpOfTheAds, OfAFadeFromAnAdThatIsNotThere) {
  BeginWithStrip({{}});
  FakeStrip strip;
  Inside::CurrentIndex(Panel()) = -4;
  EXPECT_EQ(LocalsDuring([&] { Panel().TimerTick(77, strip); }),
            "hWnd = 77\ntheButtons = Nothing\nstart = -4\npassed = 0\n");
}

}  // namespace
}  // namespace strandline
