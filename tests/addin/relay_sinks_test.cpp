// The two relays with other sinks beside Main2.

#include "tests/addin/main2_fixture.h"
#include "tests/support/raised.h"

namespace strandline {
namespace {

class RelaySinks : public Main2Test {
 protected:
  class RibbonSink final : public RibbonEvents::Sink {
   public:
    void getToolbarIconBits(Integer index, Array<Byte>& bits) override {
      heard.push_back("bits " + std::to_string(index) + ", " + std::to_string(bits.Elements().size()) + " so far");
      if (replaces) bits.Size(0, 2);
    }
    void run(const String& command) override {
      heard.push_back("run " + ToUtf8(command));
      if (during) during();
    }
    TextLines heard;
    bool replaces = false;
    std::function<void()> during;
  };
  class AdsSink final : public AdvertisementsCallbackStub::Sink {
   public:
    void ValueChanged(const String& key, const String& value) override {
      heard.push_back("value " + ToUtf8(key) + "=" + ToUtf8(value));
    }
    void NewAdvertisementsChanged(Boolean aborted) override { heard.push_back(aborted ? "new, aborted" : "new"); }
    void ValueChangedWithAds(const Array<Boolean>& ads, const String& value) override {
      heard.push_back("ads " + std::to_string(ads.Elements().size()) + " " + ToUtf8(value));
      if (during) during();
    }
    void DownloadedNewAds() override { heard.push_back("downloaded"); }
    TextLines heard;
    std::function<void()> during;
  };

  static std::size_t SizeOf(const Array<Byte>& bits) { return bits.Elements().size(); }
};

TEST_F(RelaySinks, Main2_HearsBeforeTheOthers) {
  Begin(u"12.0");
  RibbonSink other;
  Inside::Events(Main())->Advise(&other);
  std::size_t usesBefore = 0;
  other.during = [&] { usesBefore = Did().Count(Doings::kUse, "call properties ExecuteQLMCommand(Anything)"); };
  Inside::Events(Main())->run(u"Anything");
  EXPECT_EQ(Block(other.heard), "run Anything\n");
  EXPECT_EQ(usesBefore, 1u);
}

TEST_F(RelaySinks, IconBits_AreOneVariableForAll) {
  Begin(u"12.0");
  RibbonSink second;
  RibbonSink third;
  const Ref<RibbonEvents> relay = Inside::Events(Main());
  const std::size_t stored = SizeOf(relay->getToolbarIconBits(102));
  ASSERT_GT(stored, 3u);
  relay->Advise(&second);
  relay->Advise(&third);
  EXPECT_EQ(SizeOf(relay->getToolbarIconBits(102)), stored);
  second.replaces = true;
  EXPECT_EQ(SizeOf(relay->getToolbarIconBits(102)), 3u);
  const std::string whole = "bits 102, " + std::to_string(stored) + " so far\n";
  EXPECT_EQ(Block(second.heard), whole + whole);
  EXPECT_EQ(Block(third.heard), whole + "bits 102, 3 so far\n");
}

TEST_F(RelaySinks, AfterQuit_TheOthersStillHear) {
  Begin(u"12.0");
  RibbonSink other;
  const Ref<RibbonEvents> relay = Inside::Events(Main());
  relay->Advise(&other);
  Main().Quit();
  Did().Clear();
  relay->run(u"Anything");
  EXPECT_EQ(Block(other.heard), "run Anything\n");
  EXPECT_TRUE(Did().All().empty());
}

TEST_F(RelaySinks, QuitDuringAnEvent_LetsItRunOut) {
  Begin(u"12.0");
  RibbonSink first;
  RibbonSink second;
  RibbonEvents* const relay = Inside::Events(Main()).get();
  relay->Advise(&first);
  relay->Advise(&second);
  // The component goes and so do both holders of the relay; the call that is under way is the last.
  first.during = [&] { Main().Quit(); };
  relay->run(u"Anything");
  EXPECT_EQ(Block(second.heard), "run Anything\n");
  EXPECT_FALSE(Inside::Events(Main()));
}

TEST_F(RelaySinks, ErrorOfASink_EndsInTheRelay) {
  Begin(u"12.0");
  RibbonSink first;
  RibbonSink second;
  const Ref<RibbonEvents> relay = Inside::Events(Main());
  relay->Advise(&first);
  relay->Advise(&second);
  first.during = [] { Raise(errors::kInvalidArgument); };
  EXPECT_EQ(Raised([&] { Object(relay).Call("run", u"Anything"); }), 0);
  EXPECT_EQ(Block(Did().Errors()), "5 RibbonEvents.run\n");
  EXPECT_TRUE(second.heard.empty());
}

TEST_F(RelaySinks, AdsEvents_ReachEverySinkWithWhatTheyBring) {
  TheWorld();
  AdsSink first;
  AdsSink second;
  const Ref<AdvertisementsCallbackStub> stub = Inside::Callback(Main());
  stub->Advise(&first);
  stub->Advise(&second);
  const Object outside = stub;
  outside.Call("ValueChanged", u"City", u"London");
  outside.Call("NewAdvertisementsEvent", true);
  outside.Call("NewAdvertisementsEvent", false);
  stub->ValueChangedWithAds(Array<Boolean>(0, 4), u"London");
  stub->DownloadedNewAds();
  EXPECT_EQ(Block(first.heard), "value City=London\nnew, aborted\nnew\nads 5 London\ndownloaded\n");
  EXPECT_EQ(first.heard, second.heard);
  stub->Unadvise(&first);
  stub->DownloadedNewAds();
  EXPECT_EQ(second.heard.size(), first.heard.size() + 1);
}

TEST_F(RelaySinks, StubThatLosesItsLastHolderDuringAnEvent_LivesUntilItIsOver) {
  AdsSink first;
  AdsSink second;
  Ref<AdvertisementsCallbackStub> stub = New<AdvertisementsCallbackStub>();
  TheWorld();
  stub->Advise(&first);
  stub->Advise(&second);
  first.during = [&] { stub = nullptr; };
  stub->ValueChangedWithAds(Array<Boolean>(0, 0), u"London");
  EXPECT_EQ(Block(second.heard), "ads 1 London\n");
}

}  // namespace
}  // namespace strandline
