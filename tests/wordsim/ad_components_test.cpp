// The components around the ads, as the library meets them.

#include "tests/wordsim/world_fixture.h"

namespace strandline::wordsim {
namespace {

using AdComponentsTest = WorldTest;

// Says what it was asked, and answers as it was told.
class ToldCheck final : public LibraryCheck {
 public:
  Long Verify(const String& path, String& signature) override {
    asked = path;
    signature = u"checked";
    return 7;
  }
  String asked;
};

// A memory context with a picture of one colour.
struct Filled {
  Filled(desk::Desk& on, Long width, Long height, Long color) : graphics(on.Graphics()) {
    hdc = graphics.CreateCompatibleDC(0);
    graphics.SelectObject(hdc, graphics.CreateBitmap(width, height, 1, 32));
    on.Canvas().FillRectangle(hdc, {0, 0, width, height}, color);
  }
  Long At(Long x, Long y) { return graphics.GetPixel(hdc, x, y); }
  desk::SoftwareGraphics& graphics;
  Long hdc;
};

TEST_F(AdComponentsTest, TheBlender_MixesPicturesOfTheSizeItWasMadeFor) {
  Filled from(mDesk, 8, 4, 0x000000), to(mDesk, 8, 4, 0x0000FF), dest(mDesk, 8, 4, 0x00FF00);
  const Object blender = World().CreateComponent(u"alphablender.main2");
  EXPECT_EQ(NumberRaised([&] { blender.Call("AlphaBlend", dest.hdc, Integer{0}, Integer{0}, from.hdc, to.hdc, 0.2f); }),
            errors::kInvalidArgument);
  blender.Call("Create", Integer{5}, Integer{3});
  blender.Call("AlphaBlend", dest.hdc, Integer{0}, Integer{0}, from.hdc, to.hdc, 0.2f);
  EXPECT_EQ(dest.At(4, 2), 0x000033);
  EXPECT_EQ(dest.At(5, 2), 0x00FF00);
  EXPECT_EQ(dest.At(4, 3), 0x00FF00);
}

TEST_F(AdComponentsTest, TheBrowser_KeepsTheAddresses) {
  World().CreateComponent(u"HTTP.Main2").Call("Browse", u"http://one.example/");
  World().CreateComponent(u"HTTP.Main2").Call("Browse", u"two");
  EXPECT_EQ(World().TheProduct().BrowsedAddresses(), (std::vector<String>{u"http://one.example/", u"two"}));
}

TEST_F(AdComponentsTest, TheVerifier_AsksTheWorldsCheck_UntilAnAnswerIsLaidDown) {
  ToldCheck check;
  World().TheProduct().SetLibraryCheck(&check);
  const Object worker = World().CreateComponent(u"StrandlineDownload.Main2");
  const Object verifier = worker.Call("CreateDSAVerify").ToObject();
  EXPECT_EQ(JournalNameOf(verifier), "verifier");
  String signature = u"as it was";
  EXPECT_EQ(verifier.Call("verifyDLL", u"C:\\a.dll", Variant::ByRef(signature)).ToLong(), 7);
  EXPECT_EQ(signature, u"checked");
  EXPECT_EQ(check.asked, u"C:\\a.dll");
  World().TheProduct().LayDownVerdict(-5, u"told");
  EXPECT_EQ(verifier.Call("verifyDLL", u"C:\\b.dll", Variant::ByRef(signature)).ToLong(), -5);
  EXPECT_EQ(signature, u"told");
  EXPECT_EQ(check.asked, u"C:\\a.dll");
}

TEST_F(AdComponentsTest, AVerifierWithoutACheck_CantBeAsked) {
  const Object verifier = World().CreateComponent(u"StrandlineDownload.Main2").Call("CreateDSAVerify").ToObject();
  EXPECT_FALSE(World().TheProduct().CanVerify());
  EXPECT_EQ(NumberRaised([&] { verifier.Call("verifyDLL", u"C:\\a.dll", u""); }), errors::kCannotCreateComponent);
  World().TheProduct().LayDownVerdict(1, u"");
  EXPECT_TRUE(World().TheProduct().CanVerify());
  EXPECT_EQ(verifier.Call("verifyDLL", u"C:\\a.dll", u"").ToLong(), 1);
}

TEST_F(AdComponentsTest, TheDownloadWorker_TakesAWishWithACallback) {
  const Object worker = World().CreateComponent(u"StrandlineDownload.Main2");
  Boolean abort = true;
  const Object callback = World().Properties();
  worker.Call("CheckForNewAdvertisements", callback, u"http://x/", u"C:\\a.dll", Variant::ByRef(abort));
  EXPECT_TRUE(abort);
  EXPECT_EQ(NumberRaised([&] {
              worker.Call("CheckForNewAdvertisements", Object(), u"http://x/", u"C:\\a.dll", Variant::ByRef(abort));
            }),
            errors::kObjectNotSet);
}

TEST_F(AdComponentsTest, EachUse_IsTold_AndFailsWhereItIsTo) {
  const struct {
    const char* object;
    const char* member;
    void (*use)(WordWorld& world);
  } kCases[] = {
      {"AlphaBlender.Main2", "Create",
       [](WordWorld& world) { world.CreateComponent(u"AlphaBlender.Main2").Call("Create", Integer{2}, Integer{2}); }},
      {"HTTP.Main2", "Browse", [](WordWorld& world) { world.CreateComponent(u"HTTP.Main2").Call("Browse", u"a"); }},
      {"StrandlineDownload.Main2", "CreateDSAVerify",
       [](WordWorld& world) { world.CreateComponent(u"StrandlineDownload.Main2").Call("CreateDSAVerify"); }},
      {"verifier", "verifyDLL",
       [](WordWorld& world) {
         world.CreateComponent(u"StrandlineDownload.Main2")
             .Call("CreateDSAVerify")
             .ToObject()
             .Call("verifyDLL", u"C:\\a.dll", u"");
       }},
  };
  for (const auto& each : kCases) {
    WordWorld& world = Begin();
    world.TheProduct().LayDownVerdict(3, u"told");
    UseRecorder recorder;
    world.SetUseObserver(&recorder);
    each.use(world);
    EXPECT_EQ(recorder.lines.back().find("call " + std::string(each.object) + " " + each.member + "("), 0u)
        << recorder.lines.back();
    world.Faults().Arm(each.object, each.member, 1, 321);
    EXPECT_EQ(NumberRaised([&] { each.use(world); }), 321) << each.object;
    EXPECT_EQ(NumberRaised([&] { each.use(world); }), 0) << each.object;
    world.SetUseObserver(nullptr);
  }
}

TEST_F(AdComponentsTest, OnesThatAreMissing_CantBeCreated) {
  Settings settings;
  settings.missingComponents = {u"AlphaBlender.Main2", u"http.main2"};
  Begin(settings);
  EXPECT_EQ(NumberRaised([&] { World().CreateComponent(u"AlphaBlender.Main2"); }), errors::kCannotCreateComponent);
  EXPECT_EQ(NumberRaised([&] { World().CreateComponent(u"HTTP.Main2"); }), errors::kCannotCreateComponent);
  EXPECT_EQ(NumberRaised([&] { World().CreateComponent(u"StrandlineDownload.Main2"); }), 0);
}

TEST_F(AdComponentsTest, TheAdLibrary_LiesInTheProductsFolder) {
  Settings settings;
  settings.commonAppPath = u"C:\\Shared\\";
  Begin(settings);
  EXPECT_EQ(World().Properties().Get("CommonAppPath").ToText(), u"C:\\Shared\\");
  EXPECT_EQ(World().TheProduct().AdLibraryPath(), u"C:\\Shared\\Vistrel.dll");
}

TEST_F(AdComponentsTest, TheListenerThatCameLast_IsTheOneThatHearsOfNewAds) {
  EXPECT_TRUE(World().TheProduct().AdListener().IsNothing());
  const Object first = World().Application();
  const Object second = World().ProductState();
  World().Properties().Call("AddListener", u"Key", first);
  EXPECT_TRUE(World().TheProduct().AdListener() == first);
  World().Properties().Call("AddListener", u"Key", second);
  EXPECT_TRUE(World().TheProduct().AdListener() == second);
}

TEST_F(AdComponentsTest, TheProductsAddress_IsAskedForWithItsTwoArgumentsToo) {
  const Object state = World().ProductState();
  EXPECT_EQ(state.Get("WebsiteAddress", false, u"").ToText(), state.Get("WebsiteAddress").ToText());
}

}  // namespace
}  // namespace strandline::wordsim
