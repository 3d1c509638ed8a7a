// The ads' events on their way through Main2 to the toolbars.

#include "tests/addin/main2_fixture.h"
#include "tests/support/raised.h"

namespace strandline {
namespace {

class Callback : public Main2Test {
 protected:
  static Array<Boolean> Ads(std::initializer_list<bool> flags) {
    Array<Boolean> ads(0, static_cast<Long>(flags.size()) - 1);
    Long at = 0;
    for (const bool flag : flags) ads(at++) = flag;
    return ads;
  }
  // Which toolbars were reached, in their order, by the windows' names.
  class Reached final : public vbwProtector::ProcedureObserver {
   public:
    Reached(std::string procedure) : mProcedure(std::move(procedure)) { vbwProtector::procedureObserver = this; }
    ~Reached() { vbwProtector::procedureObserver = nullptr; }
    void OnProcedure(const ProcedureName& name, void (*report)(const void*, Reporter&),
                     const void* parameters) override {
      if (ToUtf8(name.TraceName()) != mProcedure) return;
      ToldVariables told;
      report(parameters, told);
      calls.push_back(told.OneLine());
    }
    TextLines calls;

   private:
    std::string mProcedure;
  };
  static void Change(const Ref<AdvertisementsCallbackStub>& stub, Array<Boolean> ads, String value = u"London") {
    stub->ValueChangedWithAds(ads, value);
  }
  // Two documents with a toolbar, and between them one with an Empty entry, which a click on its ad has left.
  void OpenWithAnEmptyEntry() {
    TheWorld().Open(u"One.doc");
    Word().Open(u"Two.doc");
    Main().ClickOnAd();
    TheWorld().Open(u"Three.doc");
    ASSERT_EQ(Registry(), "top 1, top 2, top 3");
    ASSERT_EQ(ToolbarOf("top 2"), nullptr);
    Did().Clear();
  }
  Ref<AdvertisementsCallbackStub> Stub() { return Inside::Callback(Main()); }
};

TEST_F(Callback, ChangedValue_ReachesEveryToolbar) {
  BeginWithTrace();
  TheWorld().Open(u"One.doc");
  TheWorld().Open(u"Two.doc");
  Reached reached("Toolbar.ValueChanged");
  Change(Stub(), Ads({true, false, true}));
  ASSERT_EQ(reached.calls.size(), 2u);
  EXPECT_EQ(reached.calls[0], reached.calls[1]);
  EXPECT_NE(reached.calls[0].find("value='London'"), std::string::npos) << reached.calls[0];
  EXPECT_NE(reached.calls[0].find("ads=[0 1 0 1]"), std::string::npos) << reached.calls[0];
}

TEST_F(Callback, NewAds_ReachEveryToolbar) {
  BeginWithTrace();
  TheWorld().Open(u"One.doc");
  TheWorld().Open(u"Two.doc");
  Reached reached("Toolbar.ReprimeTimerCycle");
  Stub()->DownloadedNewAds();
  EXPECT_EQ(reached.calls.size(), 2u);
}

// One has a test for an empty entry, the other hasn't, and its round ends there.
TEST_F(Callback, EmptyEntry_EndsTheChangedValuesRoundAndNotTheNewAds) {
  BeginWithTrace();
  OpenWithAnEmptyEntry();
  {
    Reached reached("Toolbar.ValueChanged");
    Change(Stub(), Ads({true}));
    EXPECT_EQ(reached.calls.size(), 1u);
  }
  EXPECT_EQ(Block(Did().Errors()), "13 Main2.Toolbars[Get]\n91 Main2.mCallbackToMe_ValueChangedWithAds\n");
  Did().Clear();
  Reached reached("Toolbar.ReprimeTimerCycle");
  Stub()->DownloadedNewAds();
  EXPECT_EQ(reached.calls.size(), 2u);
  EXPECT_TRUE(Did().Errors().empty());
}

TEST_F(Callback, EmptyEntryThatIsPassedOver_LeavesTheRound) {
  BeginWithTrace();
  OpenWithAnEmptyEntry();
  TheWorld().AnswerErrors({5, 5});
  Reached reached("Toolbar.ValueChanged");
  Change(Stub(), Ads({true}));
  EXPECT_EQ(reached.calls.size(), 2u);
}

TEST_F(Callback, WithoutToolbars_NothingHappens) {
  TheWorld();
  Change(Stub(), Ads({}), String());
  Stub()->DownloadedNewAds();
  EXPECT_TRUE(Did().All().empty());
}

TEST_F(Callback, FromWord2007On_ThereIsNoRegistryToGoThrough) {
  Begin(u"12.0");
  Change(Stub(), Ads({true}));
  Stub()->DownloadedNewAds();
  EXPECT_EQ(Block(Did().Errors()),
            "91 Main2.mCallbackToMe_ValueChangedWithAds\n91 Main2.mCallbackToMe_DownloadedNewAds\n");
}

// What outsiders tell the stub is the factory's business; this one has no part in it.
TEST_F(Callback, OutsidersNews_IsLoggedAndGoesNoFurther) {
  TheWorld().Open(u"One.doc");
  Did().Clear();
  const Object stub = Stub();
  stub.Call("ValueChanged", u"City", u"London");
  stub.Call("NewAdvertisementsEvent", true);
  EXPECT_EQ(Block(Did().Of(Doings::kAll)), "log 0 ValueChanged event\nlog 0 NewAdvertisementsEvent\n");
}

TEST_F(Callback, Outsiders_KnowTwoOperationsOnly) {
  TheWorld();
  const Object stub = Stub();
  EXPECT_EQ(Raised([&] { stub.Call("DownloadedNewAds"); }), errors::kNoSuchMember);
  EXPECT_EQ(Raised([&] { stub.Call("ValueChangedWithAds", u"a", u"b"); }), errors::kNoSuchMember);
  EXPECT_EQ(Raised([&] { stub.Call("ValueChanged", u"a"); }), errors::kWrongNumberOfArguments);
  EXPECT_EQ(Raised([&] { stub.Call("NewAdvertisementsEvent"); }), errors::kWrongNumberOfArguments);
  EXPECT_EQ(Raised([&] { stub.Call("NewAdvertisementsEvent", u"perhaps"); }), errors::kTypeMismatch);
  EXPECT_EQ(Raised([&] { stub.Let("ValueChanged", u"a"); }), errors::kNoSuchMember);
}

TEST_F(Callback, StubAfterQuit_DoesNothing) {
  TheWorld().Open(u"One.doc");
  const Ref<AdvertisementsCallbackStub> stub = Stub();
  Main().Quit();
  EXPECT_FALSE(Stub());
  Did().Clear();
  Change(stub, Ads({true}));
  stub->DownloadedNewAds();
  EXPECT_TRUE(Did().All().empty());
  TheWorld().Unload();
  Change(stub, Ads({true}));
  stub->DownloadedNewAds();
  EXPECT_TRUE(Did().All().empty());
}

}  // namespace
}  // namespace strandline
