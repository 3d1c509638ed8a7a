// The two relays with other sinks beside Main2.

#include "tests/addin/main2_fixture.h"
#include "tests/support/raised.h"

namespace strandline {
namespace {

class RelaySinks : public Main2Test {
 protected:
  class RibbonSink final : public RibbonEvents::Sink {
   public:
    void getToolbarIconBits(Integer& index, Array<Byte>& bits) override {
      heard.push_back("bits " + std::to_string(index) + ", " + std::to_string(bits.Elements().size()) + " so far");
      if (replaces) bits.Size(0, 2);
      if (writes) index = static_cast<Integer>(index + 1);
    }
    void run(String& command) override {
      heard.push_back("run " + ToUtf8(command));
      if (during) during();
      if (writes) command = Concat({command, u"!"});
    }
    TextLines heard;
    bool replaces = false;
    bool writes = false;
    std::function<void()> during;
  };
  class AdsSink final : public AdvertisementsCallbackStub::Sink {
   public:
    void ValueChanged(String& key, String& value) override {
      heard.push_back("value " + ToUtf8(key) + "=" + ToUtf8(value));
      if (!writes) return;
      key = Concat({key, u"1"});
      value = Concat({value, u"2"});
    }
    void NewAdvertisementsChanged(Boolean aborted) override { heard.push_back(aborted ? "new, aborted" : "new"); }
    void ValueChangedWithAds(Array<Boolean>& ads, String& value) override {
      heard.push_back("ads " + std::to_string(ads.Elements().size()) + " " + ToUtf8(value));
      if (during) during();
      if (!writes) return;
      ads.Size(0, static_cast<Long>(ads.Elements().size()));
      value = Concat({value, u"3"});
    }
    void DownloadedNewAds() override { heard.push_back("downloaded"); }
    TextLines heard;
    bool writes = false;
    std::function<void()> during;
  };

  static std::size_t SizeOf(const Array<Byte>& bits) { return bits.Elements().size(); }
  static std::size_t BitsOf(const Ref<RibbonEvents>& relay, Integer index) {
    return SizeOf(relay->getToolbarIconBits(index));
  }
  static void Run(RibbonEvents& relay) {
    String command = u"Anything";
    relay.run(command);
  }
  static void ChangeLondon(AdvertisementsCallbackStub& stub, Array<Boolean> ads) {
    String value = u"London";
    stub.ValueChangedWithAds(ads, value);
  }
};

TEST_F(RelaySinks, Main2_HearsBeforeTheOthers) {
  Begin(u"12.0");
  RibbonSink other;
  Inside::Events(Main())->Advise(&other);
  std::size_t usesBefore = 0;
  other.during = [&] { usesBefore = Did().Count(Doings::kUse, "call properties ExecuteQLMCommand(Anything)"); };
  Run(*Inside::Events(Main()));
  EXPECT_EQ(Block(other.heard), "run Anything\n");
  EXPECT_EQ(usesBefore, 1u);
}

TEST_F(RelaySinks, IconBits_AreOneVariableForAll) {
  Begin(u"12.0");
  RibbonSink second;
  RibbonSink third;
  const Ref<RibbonEvents> relay = Inside::Events(Main());
  const std::size_t stored = BitsOf(relay, 102);
  ASSERT_GT(stored, 3u);
  relay->Advise(&second);
  relay->Advise(&third);
  EXPECT_EQ(BitsOf(relay, 102), stored);
  second.replaces = true;
  EXPECT_EQ(BitsOf(relay, 102), 3u);
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
  Run(*relay);
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
  Run(*relay);
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
  ChangeLondon(*stub, Array<Boolean>(0, 4));
  stub->DownloadedNewAds();
  EXPECT_EQ(Block(first.heard), "value City=London\nnew, aborted\nnew\nads 5 London\ndownloaded\n");
  EXPECT_EQ(first.heard, second.heard);
  stub->Unadvise(&first);
  stub->DownloadedNewAds();
  EXPECT_EQ(second.heard.size(), first.heard.size() + 1);
}

// What is written goes on to the next sink and back to the caller, whatever kind of variable the caller has.
TEST_F(RelaySinks, WhatASinkWrites_TheNextOneAndTheCallerSee) {
  TheWorld();
  RibbonSink first;
  RibbonSink second;
  first.writes = second.writes = true;
  const Ref<RibbonEvents> relay = New<RibbonEvents>();
  relay->Advise(&first);
  relay->Advise(&second);
  Integer index = 7;
  relay->getToolbarIconBits(index);
  EXPECT_EQ(index, 9);
  Long whole = 20;
  Object(relay).Call("getToolbarIconBits", Variant::ByRef(whole));
  EXPECT_EQ(whole, 22);
  String command = u"Go";
  Object(relay).Call("run", Variant::ByRef(command));
  EXPECT_EQ(command, u"Go!!");
  Variant any = u"Come";
  Object(relay).Call("run", Variant::ByRef(any));
  EXPECT_EQ(any.ToText(), u"Come!!");
  Object(relay).Call("run", u"Stay");
  EXPECT_EQ(Block(second.heard), "bits 8, 0 so far\nbits 21, 0 so far\nrun Go!\nrun Come!\nrun Stay!\n");
}

TEST_F(RelaySinks, WhatAnAdsSinkWrites_TheNextOneAndTheCallerSee) {
  TheWorld();
  AdsSink first;
  AdsSink second;
  first.writes = second.writes = true;
  const Ref<AdvertisementsCallbackStub> stub = New<AdvertisementsCallbackStub>();
  stub->Advise(&first);
  stub->Advise(&second);
  String key = u"City";
  Variant value = Long{4};
  Object(stub).Call("ValueChanged", Variant::ByRef(key), Variant::ByRef(value));
  EXPECT_EQ(key, u"City11");
  EXPECT_EQ(value.ToText(), u"422");
  Array<Boolean> ads(0, 4);
  String text = u"London";
  stub->ValueChangedWithAds(ads, text);
  EXPECT_EQ(ads.Elements().size(), 7u);
  EXPECT_EQ(text, u"London33");
  EXPECT_EQ(Block(second.heard), "value City1=42\nads 6 London3\n");
}

TEST_F(RelaySinks, NamedArguments_GoToTheirParameters) {
  TheWorld();
  AdsSink ads;
  RibbonSink ribbon;
  const Ref<AdvertisementsCallbackStub> stub = New<AdvertisementsCallbackStub>();
  const Ref<RibbonEvents> relay = New<RibbonEvents>();
  stub->Advise(&ads);
  relay->Advise(&ribbon);
  const auto call = [](const Object& object, Name member, std::initializer_list<Variant> positional,
                       std::initializer_list<Named> named) {
    return Raised([&] { object.Target()->Invoke(Use::kCall, member, {positional, named}); });
  };
  EXPECT_EQ(call(stub, "ValueChanged", {}, {{"VALUE", u"London"}, {"key", u"City"}}), 0);
  EXPECT_EQ(call(stub, "ValueChanged", {u"City"}, {{"value", u"Paris"}}), 0);
  EXPECT_EQ(call(stub, "NewAdvertisementsEvent", {}, {{"abortedAfterFiveSeconds", true}}), 0);
  EXPECT_EQ(call(relay, "run", {}, {{"command", u"Go"}}), 0);
  EXPECT_EQ(call(relay, "getToolbarIconBits", {}, {{"index", Long{3}}}), 0);
  EXPECT_EQ(Block(ads.heard), "value City=London\nvalue City=Paris\nnew, aborted\n");
  EXPECT_EQ(Block(ribbon.heard), "run Go\nbits 3, 0 so far\n");
  EXPECT_EQ(call(stub, "ValueChanged", {}, {{"value", u"Paris"}}), errors::kArgumentNotOptional);
  EXPECT_EQ(call(stub, "ValueChanged", {u"City"}, {{"key", u"Paris"}}), errors::kWrongNumberOfArguments);
  EXPECT_EQ(call(relay, "run", {}, {{"key", u"Go"}}), errors::kNoSuchNamedArgument);
  EXPECT_EQ(call(relay, "run", {u"Go"}, {{"command", u"Go"}}), errors::kWrongNumberOfArguments);
  EXPECT_EQ(ads.heard.size() + ribbon.heard.size(), 5u);
}

TEST_F(RelaySinks, StubThatLosesItsLastHolderDuringAnEvent_LivesUntilItIsOver) {
  AdsSink first;
  AdsSink second;
  Ref<AdvertisementsCallbackStub> stub = New<AdvertisementsCallbackStub>();
  TheWorld();
  stub->Advise(&first);
  stub->Advise(&second);
  first.during = [&] { stub = nullptr; };
  ChangeLondon(*stub, Array<Boolean>(0, 0));
  EXPECT_EQ(Block(second.heard), "ads 1 London\n");
}

}  // namespace
}  // namespace strandline
