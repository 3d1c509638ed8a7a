// The bridge to the ribbon component: the relay that it is given, and what it is asked.

#include "platform/modules.h"
#include "tests/addin/main2_fixture.h"
#include "tests/support/raised.h"
#include "tests/support/scripted_object.h"
#include "wordsim/components.h"

namespace strandline {
namespace {

class Ribbon : public Main2Test {
 protected:
  Ribbon() { Begin(u"12.0"); }

  Object Relay() { return Inside::Events(Main()); }
  // The image as it is stored.
  Array<Byte> Stored(Long number) {
    Array<Byte> bytes;
    EXPECT_TRUE(TheWorld().desk.Modules().LoadResData(number, u"CUSTOM", bytes));
    return bytes;
  }
  static Array<Byte> BytesOf(const Variant& value) {
    const auto* bytes = value.If<Variant::Shared<Byte>>();
    EXPECT_NE(bytes, nullptr);
    return bytes ? **bytes : Array<Byte>();
  }
  TextLines Calls() { return Did().Of(Doings::kUse, "call"); }
};

TEST_F(Ribbon, IconBits_AreTheStoredFileAsItIs) {
  for (const Integer number : {102, 116, 202, 210}) {
    SCOPED_TRACE(number);
    const Array<Byte> stored = Stored(number);
    ASSERT_GT(stored.Elements().size(), 6u);
    EXPECT_EQ(BytesOf(Relay().Call("getToolbarIconBits", number)), stored);
    Integer index = number;
    EXPECT_EQ(Inside::Events(Main())->getToolbarIconBits(index), stored);
  }
  const Array<Byte> bits = BytesOf(Relay().Call("getToolbarIconBits", Integer{102}));
  const std::string start(bits.Elements().begin(), bits.Elements().begin() + 3);
  EXPECT_TRUE(start == "GIF" || start.starts_with("BM")) << "not decoded";
  EXPECT_TRUE(Did().Of(Doings::kPicture).empty());
}

TEST_F(Ribbon, IconBitsOfNoImage_AreEmptyAndAnError) {
  for (const Integer number : {0, -1, 999, 32767}) {
    Did().Clear();
    EXPECT_FALSE(BytesOf(Relay().Call("getToolbarIconBits", number)).IsSized());
    EXPECT_EQ(Block(Did().Errors()), "326 Main2.mRibbonEvents_getToolbarIconBits\n");
  }
}

TEST_F(Ribbon, Run_HandsTheCommandToTheProductAlone) {
  Relay().Call("run", u"InsertReference");
  EXPECT_EQ(Block(Calls()), "call properties ExecuteQLMCommand(InsertReference)\n");
  EXPECT_TRUE(Did().Errors().empty());
}

TEST_F(Ribbon, Run_GivesNoParameter) {
  BeginWithTrace(u"12.0");
  ToldProcedures told;
  Relay().Call("run", u"InsertReference");
  EXPECT_EQ(Block(told.calls),
            "RibbonEvents.run(command='InsertReference')\n"
            "Main2.mRibbonEvents_run(command='InsertReference')\n"
            "CommonPropertyFunctions.ExecuteQLMCommand(command='InsertReference' param=Missing)\n");
}

TEST_F(Ribbon, RunWithAFailingProduct_EndsInTheLibrary) {
  Word().Faults().Arm("properties", "ExecuteQLMCommand");
  EXPECT_EQ(Raised([&] { Relay().Call("run", u"InsertReference"); }), 0);
  EXPECT_EQ(Block(Did().Errors()), "1000 CommonPropertyFunctions.ExecuteQLMCommand\n");
}

TEST_F(Ribbon, RelayWithoutASink_DoesNothing) {
  const Object relay = New<RibbonEvents>();
  relay.Call("run", u"InsertReference");
  EXPECT_FALSE(BytesOf(relay.Call("getToolbarIconBits", Integer{102})).IsSized());
  EXPECT_TRUE(Did().All().empty());
}

TEST_F(Ribbon, RelayAfterQuit_DoesNothing) {
  const Object relay = Relay();
  Main().Quit();
  Did().Clear();
  relay.Call("run", u"InsertReference");
  EXPECT_FALSE(BytesOf(relay.Call("getToolbarIconBits", Integer{102})).IsSized());
  EXPECT_TRUE(Did().All().empty());
  TheWorld().Unload();
  relay.Call("run", u"InsertReference");
  EXPECT_TRUE(Did().All().empty());
}

TEST_F(Ribbon, Relay_KnowsItsTwoOperationsOnly) {
  const Object relay = Relay();
  EXPECT_EQ(Raised([&] { relay.Call("RUN", u"InsertReference"); }), 0);
  EXPECT_EQ(Raised([&] { relay.Call("GetToolbarIconBits", u"102"); }), 0);
  EXPECT_EQ(Raised([&] { relay.Call("run"); }), errors::kWrongNumberOfArguments);
  EXPECT_EQ(Raised([&] { relay.Call("run", u"a", u"b"); }), errors::kWrongNumberOfArguments);
  EXPECT_EQ(Raised([&] { relay.Call("getToolbarIconBits", u"first"); }), errors::kTypeMismatch);
  EXPECT_EQ(Raised([&] { relay.Call("getToolbarIconBits", Long{70000}); }), errors::kOverflow);
  EXPECT_EQ(Raised([&] { relay.Call("walk", u"a"); }), errors::kNoSuchMember);
  EXPECT_EQ(Raised([&] { relay.Let("run", u"a"); }), errors::kNoSuchMember);
}

TEST_F(Ribbon, Handler_IsTheComponentUntilQuit) {
  ASSERT_NE(Word().TheProduct().Ribbon(), nullptr);
  EXPECT_EQ(Main().RibbonHandler(), Object(Ref<wordsim::RibbonHandlerObject>(Word().TheProduct().Ribbon())));
  Main().Quit();
  EXPECT_TRUE(Main().RibbonHandler().IsNothing());
  EXPECT_EQ(Word().TheProduct().Ribbon(), nullptr) << "nobody else holds it";
}

TEST_F(Ribbon, HandlerBefore2007_IsNothing) {
  for (const char16_t* version : {u"9.0", u"10.0", u"11.0"}) {
    Prepare(ForWord(version)).Start();
    EXPECT_TRUE(Main().RibbonHandler().IsNothing());
    EXPECT_FALSE(Inside::Events(Main()));
    EXPECT_EQ(Did().Count(Doings::kCreate), 0u);
  }
}

TEST_F(Ribbon, Component_IsGivenTheRelayAndTheName) {
  const auto* ribbon = Word().TheProduct().Ribbon();
  ASSERT_NE(ribbon, nullptr);
  EXPECT_EQ(ribbon->Events(), Relay());
  EXPECT_EQ(ribbon->ProductName(), u"Quillmere");
}

// The name is the state's, not the one of the call that starts the library.
TEST_F(Ribbon, Component_IsGivenTheNameOfTheState) {
  Prepare(ForWord(u"12.0"));
  Word().TheProduct().Rename(u"Tomehaven");
  TheWorld().Start();
  EXPECT_EQ(Word().TheProduct().Ribbon()->ProductName(), u"Tomehaven");
}

// All of the component's operations, by what brings them about.
TEST_F(Ribbon, Component_IsAskedAtItsMoments) {
  TheWorld().Open(u"One.doc", {}, true);
  Main().HandleDocumentChange();
  Word().TheProduct().SetLumivex(true);
  Inside::UpdateLumivexIcon(Main());
  Main().ProductNameChanged();
  TheWorld().Close(u"One.doc");
  EXPECT_EQ(Block(Did().Of(Doings::kUse, "call RibbonHandler.Main2")),
            "call RibbonHandler.Main2 EnableToolbar(True)\n"
            "call RibbonHandler.Main2 ActivateQuillmereTab(bar Ribbon)\n"
            "call RibbonHandler.Main2 EnableGotoQuickBookmark(False)\n"
            "call RibbonHandler.Main2 UpdateLumivexIcon(True)\n"
            "call RibbonHandler.Main2 ProductNameChanged(Quillmere)\n"
            "call RibbonHandler.Main2 UpdateLumivexIcon(True)\n"
            "call RibbonHandler.Main2 EnableToolbar(False)\n");
  EXPECT_TRUE(Did().Errors().empty());
}

TEST_F(Ribbon, FailingComponent_IsAnErrorOfTheOperation) {
  const struct {
    const char* member;
    const char* error;
  } cases[] = {
      {"EnableToolbar", "1000 Main2.HandleCreateDocument"},
      {"ActivateQuillmereTab", "1000 Main2.ActivateQuillmereTab"},
      {"ProductNameChanged", "1000 Main2.ProductNameChanged"},
      {"UpdateLumivexIcon", "1000 Main2.UpdateLumivexIcon"},
  };
  for (const auto& [member, error] : cases) {
    Begin(u"12.0");
    Word().Faults().Arm("RibbonHandler.Main2", member);
    TheWorld().Open(u"One.doc", {}, true);
    Main().ProductNameChanged();
    EXPECT_EQ(Block(Did().Errors()), Block({error}));
  }
}

// A component that uses its relay at once finds the library ready for it.
TEST_F(Ribbon, ComponentThatCallsBackWhileItStarts_IsServed) {
  Prepare(ForWord(u"12.0"));
  const Array<Byte> stored = Stored(102);
  Array<Byte> bits;
  Boolean wasSmall = true;
  std::string registry;
  TheWorld().desk.Components().Register(u"RibbonHandler.Main2", [&] {
    return Object(New<ScriptedObject>([&](Use, Name member, const Arguments& arguments) -> Variant {
      if (member != Name("Initialize")) return {};
      const Object relay = arguments.positional[0].ToObject();
      relay.Call("run", u"InsertReference");
      bits = BytesOf(relay.Call("getToolbarIconBits", Integer{102}));
      wasSmall = Inside::SmallToolbar(Main());
      Main().HandleDocumentChange();
      return {};
    }));
  });
  TheWorld().Start();
  EXPECT_EQ(bits, stored);
  EXPECT_FALSE(wasSmall);
  EXPECT_TRUE(Inside::SmallToolbar(Main()));
  EXPECT_EQ(Did().Count(Doings::kUse, "call properties ExecuteQLMCommand(InsertReference)"), 1u);
  EXPECT_TRUE(Did().Errors().empty());
}

}  // namespace
}  // namespace strandline
