// The cache of blends: what is blended, when, and what a step costs that comes round again.

#include "drawing/ToolbarUtilities.h"
#include "tests/ads/ads_fixture.h"
#include "tests/support/allocations.h"
#include "wordaccess/CommonPropertyFunctions.h"

namespace strandline {
namespace {

class BlendCache : public AdsTest {
 protected:
  static constexpr std::uint32_t kRed = 0xFF0000;
  static constexpr std::uint32_t kBlack = 0x000000;

  // Two ads that cover the whole size, red and black, and no strip.
  void BeginWithAds() {
    Begin();
    SetLibrary({{AdSettings(), 60, 20, kRed}, {AdSettings(), 60, 20, kBlack}, {AdSettings(), 60, 20, 0x00FF00}}, kOver);
    Paint();
  }
  void TearDown() override {
    FreeTarget();
    AdsTest::TearDown();
  }
  AlphaBlender& Blender() { return *Inside::Blender(Factory()); }
  Long Target() {
    desk::SoftwareGraphics& graphics = world->desk.Graphics();
    if (mTarget == 0) {
      mTarget = graphics.CreateCompatibleDC(0);
      mStock = graphics.SelectObject(mTarget, graphics.CreateBitmap(60, 20, 1, 32));
    }
    return mTarget;
  }
  void FreeTarget() {
    if (mTarget == 0) return;
    desk::SoftwareGraphics& graphics = world->desk.Graphics();
    graphics.DeleteObject(graphics.SelectObject(mTarget, mStock));
    graphics.DeleteDC(mTarget);
    mTarget = 0;
  }
  void Blend(Integer previous, Integer current, Single percentage) {
    Long target = Target();
    Factory().AlphaBlend(target, previous, current, percentage);
  }
  std::uint32_t Blended(Integer previous, Integer current, Single percentage) {
    Blend(previous, current, percentage);
    return *world->SurfaceOf(Target()).At(30, 10);
  }
  // From now on the component also writes to the context and the share that it is handed.
  void Write(std::function<void(const Variant& target, const Variant& share)> writing) { written = std::move(writing); }
  // "0|1|0.3 " for each entry.
  std::string Keys() {
    std::string keys;
    const Object cache = VariableSnapshot::Of(Blender())[u"mCache"].ToObject();
    const auto& entries = dynamic_cast<const Dictionary&>(*cache.Target());
    for (Long i = 0; i < entries.Count(); ++i) {
      for (const char c : ToUtf8(entries.KeyAt(i).ToText())) keys += c == '\b' ? '|' : c;
      keys += ' ';
    }
    return keys;
  }

 private:
  Long mTarget = 0;
  Long mStock = 0;
};

TEST_F(BlendCache, AKey_IsBothIndexesAndThePercentage_WithABackspaceBetween) {
  BeginWithAds();
  const auto key = [&](Integer previous, Integer current, Single percentage) {
    return Inside::hash(Blender(), previous, current, percentage);
  };
  const char* steps[] = {"0.1", "0.2", "0.3", "0.4", "0.5", "0.6", "0.7", "0.8", "0.9", "1"};
  for (int step = 1; step <= 10; ++step) {
    const Single percentage = static_cast<Single>(step / 10.0);
    for (int again = 0; again < 2; ++again) {
      EXPECT_EQ(key(0, 2, percentage), Concat({u"0\b2\b", FromUtf8(steps[step - 1])}));
      EXPECT_EQ(key(2, 0, percentage), Concat({u"2\b0\b", FromUtf8(steps[step - 1])}));
    }
  }
  EXPECT_EQ(key(-1, 32767, 0.125F), u"-1\b32767\b0.125");
  EXPECT_EQ(key(12, 3, 1.0F / 3), u"12\b3\b0.3333333");
}

TEST_F(BlendCache, AStep_IsBlendedOnce_AndCopiedFromThenOn) {
  BeginWithAds();
  EXPECT_EQ(Blended(0, 1, 0.3F), 0xB20000u);
  EXPECT_EQ(AsText(blends), "30\n");
  EXPECT_EQ(Blended(1, 0, 0.3F), 0x4D0000u) << "the other way round is another entry";
  EXPECT_EQ(AsText(blends), "30\n30\n");
  const Trace::Lines lines = LinesOf(Trace::kDrawing | Trace::kObjects, {}, [&] { Blended(0, 1, 0.3F); });
  EXPECT_EQ(AsText(lines), "BitBlt(dc 1, 0, 0, 60, 20, dc 2, 0, 0, SRCCOPY)\n");
  EXPECT_EQ(blends.size(), 2u);
  EXPECT_EQ(Keys(), "0|1|0.3 1|0|0.3 ");
}

TEST_F(BlendCache, ABlend_IsSoughtByItsKey) {
  BeginWithAds();
  const auto procedures = [&](const char* beginning) {
    return AsText(LinesOf(Trace::kProcedures, {beginning}, [&] { Blend(0, 2, 0.3F); }));
  };
  EXPECT_EQ(procedures("AlphaBlender.hash"), "AlphaBlender.hash(0, 2, 0.3)\nAlphaBlender.hash(0, 2, 0.3)\n")
      << "to read and to write";
  EXPECT_EQ(procedures("AlphaBlender.hash"), "AlphaBlender.hash(0, 2, 0.3)\n") << "to read";
  Inside::Cache(Blender())->Remove(Inside::hash(Blender(), 0, 2, 0.3F));
  blends.clear();
  Blend(0, 2, 0.3F);
  EXPECT_EQ(AsText(blends), "30\n") << "what the cache doesn't hold is made";
}

TEST_F(BlendCache, TheFirstUse_MakesASurfaceOfTheAdsSize_LikeItsTarget) {
  BeginWithAds();
  trace().Name(Target(), "target");
  const Trace::Lines lines = LinesOf(Trace::kDrawing | Trace::kObjects, {}, [&] { Blended(0, 1, 0.5F); });
  EXPECT_EQ(AsText(lines),
            "CreateCompatibleDC(target) = dc 1\n"
            "CreateCompatibleBitmap(target, 60, 20) = bitmap 1\n"
            "SelectObject(dc 1, bitmap 1) = stock\n"
            "BitBlt(target, 0, 0, 60, 20, dc 1, 0, 0, SRCCOPY)\n");
}

TEST_F(BlendCache, TheComponent_GetsItsSizeOnce_AndTheContextsOfTheTwoAds) {
  Begin();
  SetLibrary({{AdSettings(), 60, 20}, {AdSettings(), 60, 20}}, kOver);
  std::vector<std::string> calls;
  std::vector<Variant> last;
  std::string byReference;
  world->desk.Components().Register(u"AlphaBlender.Main2", [&] {
    calls.push_back("made");
    return Object(New<ScriptedObject>([&](Use, Name member, const Arguments& arguments) {
      std::string call(member.Text());
      last.clear();
      byReference.clear();
      for (const Variant& argument : arguments.positional) {
        last.push_back(argument.Resolved());
        byReference += argument.IsByRef() ? 'r' : '-';
      }
      if (member == Name("Create")) call += " " + ToUtf8(last[0].ToText()) + " " + ToUtf8(last[1].ToText());
      calls.push_back(call);
      return Variant();
    }));
  });
  Paint();
  EXPECT_EQ(AsText(calls), "made\nCreate 60 20\n");
  EXPECT_EQ(byReference, "rr");
  for (const Variant& size : last) EXPECT_TRUE(size.If<Integer>());
  Blended(1, 0, 0.3F);
  ASSERT_EQ(last.size(), 6u);
  EXPECT_EQ(calls.back(), "AlphaBlend");
  EXPECT_EQ(byReference, "r----r");
  EXPECT_TRUE(last[1] == Variant(Integer{0}));
  EXPECT_TRUE(last[2] == Variant(Integer{0}));
  EXPECT_EQ(last[3].ToLong(), Inside::Ads(Factory())(1)->hdc());
  EXPECT_EQ(last[4].ToLong(), Inside::Ads(Factory())(0)->hdc());
  EXPECT_TRUE(last[5] == Variant(0.3F));
}

TEST_F(BlendCache, ASizeThatTheComponentWrites_IsTheFactorysFromThenOn) {
  Begin();
  SetLibrary({{AdSettings(), 60, 20}}, kOver);
  world->desk.Components().Register(u"AlphaBlender.Main2", [] {
    return Object(New<ScriptedObject>([](Use, Name, const Arguments& arguments) {
      arguments.positional[0].Assign(Integer{61});
      arguments.positional[1].Assign(Integer{21});
      return Variant();
    }));
  });
  Paint();
  EXPECT_EQ(FactoryVariables().Number(u"mWidth"), 61);
  EXPECT_EQ(FactoryVariables().Number(u"mHeight"), 21);
  EXPECT_EQ(VariableSnapshot::Of(Blender()).Number(u"mWidth"), 60);
  EXPECT_EQ(VariableSnapshot::Of(Blender()).Number(u"mHeight"), 20);
}

TEST_F(BlendCache, AShareThatTheComponentWrites_IsTheFadesOwn) {
  BeginWithAds();
  const Ref<Advertisements> panel = New<Advertisements>();
  panel->Initialize(world->Bar());
  FakeStrip strip;
  panel->TimerTick(world->Bar(), strip);
  Write([](const Variant&, const Variant& share) { share.Assign(1.0F); });
  panel->TimerTick(world->Bar(), strip);
  EXPECT_EQ(strip.paints, "step last ");
  EXPECT_EQ(Keys(), "0|1|0.1 0|1|1 ");
  EXPECT_EQ(VariableSnapshot::Of(*panel).Number(u"mFadeTick"), 2) << "the step is not the share";
  // Whoever hands it to the factory sees it too.
  Long target = Target();
  Integer previous = 1;
  Integer current = 0;
  Single percentage = 0.2F;
  Factory().AlphaBlend(target, previous, current, percentage);
  EXPECT_EQ(percentage, 1.0F);
}

TEST_F(BlendCache, AContextThatTheComponentWrites_IsKeptAndCopied) {
  BeginWithAds();
  Target();
  const int contexts = world->Contexts();
  const int bitmaps = world->Bitmaps();
  // The component answers with a surface of its own, of which the cache becomes the owner.
  desk::SoftwareGraphics& graphics = world->desk.Graphics();
  const Long own = graphics.CreateCompatibleDC(0);
  const Long bitmap = graphics.CreateBitmap(60, 20, 1, 32);
  const Long stock = graphics.SelectObject(own, bitmap);
  graphics.BitBlt(own, 0, 0, 60, 20, Factory().Advertisement(2)->hdc(), 0, 0, rop::kSrcCopy);
  Write([&](const Variant& target, const Variant&) { target.Assign(own); });
  EXPECT_EQ(Blended(0, 1, 0.3F), 0x00FF00u);
  EXPECT_EQ(Inside::Cache(Blender())->Item(u"0\b1\b0.3").ToLong(), own);
  EXPECT_EQ(Blended(0, 1, 0.3F), 0x00FF00u);
  EXPECT_EQ(blends.size(), 1u);
  graphics.SelectObject(own, stock);
  graphics.DeleteObject(bitmap);
  world->desk.Misuses().Clear();
  SetLibrary({{AdSettings(), 60, 20}, {AdSettings(), 60, 20}, {}}, kOver);
  ReportNews();
  world->desk.Misuses().Clear();  // the cache has no former bitmap of that surface
  EXPECT_EQ(world->Contexts(), contexts) << "the surface that was made for the blend is gone as well";
  EXPECT_EQ(world->Bitmaps(), bitmaps);
}

// A component that writes the same share each time takes the key of the second blend for the first one's.
TEST_F(BlendCache, ABlendThatTheCacheCannotTake_IsMadeAgainNextTime_AndFreedWithTheOthers) {
  BeginWithAds();
  Target();
  const int contexts = world->Contexts();
  const int bitmaps = world->Bitmaps();
  Write([](const Variant&, const Variant& share) { share.Assign(1.0F); });
  Blend(0, 1, 0.2F);
  world->errors.Answer({Long{5}});
  EXPECT_EQ(Blended(0, 1, 0.3F), 0xB20000u);
  EXPECT_EQ(TakeErrors(), "457 AlphaBlender.cache[Let]\n");
  Write(nullptr);
  EXPECT_EQ(Blended(0, 1, 0.3F), 0xB20000u);
  EXPECT_EQ(AsText(blends), "20\n30\n30\n");
  EXPECT_EQ(Keys(), "0|1|1 0|1|0.3 ");
  EXPECT_EQ(world->Contexts(), contexts + 3);
  SetLibrary({{AdSettings(), 60, 20}, {AdSettings(), 60, 20}, {}}, kOver);
  ReportNews();
  EXPECT_EQ(world->Contexts(), contexts);
  EXPECT_EQ(world->Bitmaps(), bitmaps);
}

TEST_F(BlendCache, ABlenderThatNeverBegan_HasNothingToFree_WhichIsAnError) {
  Begin();
  Ref<AlphaBlender> blender = New<AlphaBlender>();
  blender = nullptr;
  EXPECT_EQ(TakeErrors(), "91 AlphaBlender.Class_Terminate\n");
}

TEST_F(BlendCache, ASecondWindowsFade_OfTheSamePair_OnlyCopies) {
  BeginWithStrip({{AdSettings({}, 300)}});
  world->Open(u"Two.doc");
  world->Wait(20'000);
  EXPECT_EQ(blends.size(), 20u) << "both ways, ten steps each, whoever came first";
  const auto steps = [&](Long n) {
    trace().Name(PanelVariables(n).Number(u"mTargetHdc"), "panel");
    return LinesOf(Trace::kDrawing, {"BitBlt(panel, "}, [&] { world->Wait(15'000); }).size();
  };
  EXPECT_GE(steps(0), 20u);
  EXPECT_GE(steps(1), 20u) << "it does fade";
  EXPECT_EQ(blends.size(), 20u);
}

TEST_F(BlendCache, AnAdWithItself_IsTheAdsOwnPicture) {
  BeginWithStrip({{AdSettings({}, 300)}});
  ASSERT_EQ(PanelState(), "0 0 on");
  const desk::Surface before = PanelPixels();
  Panel().SwitchListener(world->Bar());
  EXPECT_EQ(Keys(), "0|0|1 ");
  EXPECT_TRUE(PanelPixels() == before);
  EXPECT_TRUE(PanelPixels() == world->SurfaceOf(Inside::Ads(Factory())(0)->hdc()));
}

TEST_F(BlendCache, AReload_LetsGoOfTheFormerBlends) {
  BeginWithAds();
  Blended(0, 1, 0.3F);  // makes the target too
  SetLibrary({{AdSettings(), 60, 20, kBlack}, {AdSettings(), 60, 20, kRed}, {}}, kOver);
  const int contexts = world->Contexts();
  const int bitmaps = world->Bitmaps();
  const Trace::Lines lines = LinesOf(Trace::kLogs, {"log Alphablender"}, [&] { ReportNews(); });
  EXPECT_EQ(AsText(lines), "log Alphablender terminated\n");
  EXPECT_EQ(world->Contexts(), contexts - 1);
  EXPECT_EQ(world->Bitmaps(), bitmaps - 1);
  EXPECT_EQ(Keys(), "");
  EXPECT_EQ(Blended(0, 1, 0.3F), 0x4D0000u) << "of the new ads";
  EXPECT_EQ(blends.size(), 2u);
}

TEST_F(BlendCache, NothingIsDropped_WhateverIsBlended) {
  BeginWithAds();
  Target();
  const int contexts = world->Contexts();
  for (int round = 0; round < 3; ++round) {
    for (const auto& [from, to] : {std::pair<Integer, Integer>{0, 1}, {1, 2}, {2, 0}, {0, 2}}) {
      for (int step = 1; step <= 10; ++step) Blended(from, to, static_cast<Single>(step / 10.0));
    }
  }
  EXPECT_EQ(blends.size(), 40u);
  EXPECT_EQ(world->Contexts(), contexts + 40);
}

TEST_F(BlendCache, ABlendThatFails_LeavesNothingBehind_AndIsTriedAgain) {
  BeginWithAds();
  Target();
  const int contexts = world->Contexts();
  const int bitmaps = world->Bitmaps();
  blending = [] { Raise(1000, u"no blend"); };
  for (int i = 0; i < 5; ++i) EXPECT_THROW(Blend(0, 1, 0.3F), Error);
  EXPECT_EQ(world->Contexts(), contexts);
  EXPECT_EQ(world->Bitmaps(), bitmaps);
  EXPECT_EQ(Keys(), "");
  EXPECT_EQ(TakeErrors(), "") << "it is the caller's to tell of it";
  const Object oldHandles = VariableSnapshot::Of(Blender())[u"mOldHandles"].ToObject();
  EXPECT_EQ(oldHandles.Get("Count").ToLong(), 0);
  blending = nullptr;
  EXPECT_EQ(Blended(0, 1, 0.3F), 0xB20000u);
}

TEST_F(BlendCache, AMissingComponent_IsReportedAtTheLoad_AndFadesEndInSilence) {
  Begin();
  SetLibrary({{AdSettings({}, 300), 223, 32, 0x00FF00}});
  world->desk.Components().SetMissing(u"AlphaBlender.Main2", true);
  Boolean startedFromIcon = false;
  world->main->HandleCreateDocument(startedFromIcon);
  world->Settle();
  EXPECT_EQ(TakeErrors(), "429 AlphaBlender.Initialize\n");
  EXPECT_EQ(PanelState(), "0 0 on");
  const int contexts = world->Contexts();
  const desk::Surface before = PanelPixels();
  world->Wait(6000);
  EXPECT_EQ(PanelState(), "1 0 on");
  EXPECT_TRUE(PanelPixels() == before);
  EXPECT_EQ(TakeErrors(), "");
  EXPECT_EQ(world->Contexts(), contexts);
}

TEST_F(BlendCache, OutsideAFade_ABlendThatFailsIsReported) {
  BeginWithStrip({{AdSettings({}, 300)}});
  blending = [] { Raise(1000, u"no blend"); };
  Panel().SwitchListener(world->Bar());
  EXPECT_EQ(TakeErrors(), "1000 Advertisements.SwitchListener\n");
}

TEST_F(BlendCache, BeforeTheFirstLoad_NothingIsBlended) {
  Begin();
  Blend(0, 1, 0.5F);
  EXPECT_EQ(*world->SurfaceOf(Target()).At(0, 0), 0u);
}

TEST_F(BlendCache, TheBlender_ReportsItsVariablesInTheirOrder) {
  BeginWithAds();
  EXPECT_EQ(AsText(VariableSnapshot::Of(Blender()).Names()), "mAlphaBlender\nmWidth\nmHeight\nmCache\nmOldHandles\n");
  EXPECT_EQ(VariableSnapshot::Of(Blender()).Number(u"mWidth"), 60);
}

// From the tick that begins a fade to the step before its end, on a pair that has faded before.
TEST_F(BlendCache, AFadeThatComesRoundAgain_TakesNoMemory) {
  Begin();
  SetLibrary({{AdSettings(), 60, 20}});
  Paint();
  const Ref<Advertisements> panel = New<Advertisements>();
  panel->Initialize(world->Bar());
  class SilentStrip final : public AdStrip {
   public:
    void PaintAd(Boolean) override { ++paints; }
    int paints = 0;
  } strip;
  const Long bar = world->Bar();
  for (int i = 0; i < 20; ++i) panel->TimerTick(bar, strip);  // both pairs
  // The timers of the desk aren't the library's, and neither is what is asked of Word at the end.
  world->faults.Arm("SetTimer", 1000);
  world->faults.Arm("KillTimer", 1000);
  trace().Listen(0);
  world->library->SetLogObserver(nullptr);
  world->word.SetUseObserver(nullptr);
  strip.paints = 0;
  std::size_t taken = 0;
  std::size_t takenByWord = 0;
  for (int fade = 0; fade < 2; ++fade) {
    std::size_t before = AllocationsSoFar();
    for (int step = 1; step < 10; ++step) panel->TimerTick(bar, strip);
    taken += AllocationsSoFar() - before;
    before = AllocationsSoFar();
    Inside::ImActiveDocument(*panel);
    takenByWord += AllocationsSoFar() - before;
    before = AllocationsSoFar();
    panel->TimerTick(bar, strip);
    taken += AllocationsSoFar() - before;
  }
  EXPECT_EQ(strip.paints, 20);
  EXPECT_EQ(taken - takenByWord, 0u);
  EXPECT_EQ(blends.size(), 20u);
  world->faults.Clear();
}

}  // namespace
}  // namespace strandline
