// Main2 as the automation world reaches it: operations by name, arguments of any kind, by position, by name, by
// reference.

#include "addin/operations.h"
#include "drawing/ToolbarUtilities.h"
#include "tests/addin/main2_fixture.h"
#include "tests/support/raised.h"
#include "tests/support/scripted_object.h"

namespace strandline {
namespace {

class Door : public Main2Test {
 protected:
  Object Outside() { return Ref<Main2>(&Main()); }
  Variant Invoke(Use use, std::string_view member, std::span<const Variant> positional,
                 std::span<const Named> named = {}) {
    return Main().Invoke(use, Name::FromText(member), {positional, named});
  }
  Long InvokeRaises(std::string_view member, std::initializer_list<Variant> positional,
                    std::initializer_list<Named> named = {}) {
    return Raised([&] { Invoke(Use::kCall, member, positional, named); });
  }
};

// The order and the letters that outsiders are promised.
TEST_F(Door, Operations_StandInTheOrderOfTheInterface) {
  std::string list;
  for (const Main2Operation& operation : kMain2Operations) {
    list += std::string(operation.name.Text()) + (operation.isProperty ? " [get]" : "");
    for (const Parameter& parameter : operation.parameters) {
      static constexpr const char* kKinds[] = {"Boolean", "Integer", "String", "Object"};
      list += std::string(" ") + std::string(parameter.name.Text()) + ":" + kKinds[static_cast<int>(parameter.kind)];
    }
    list += "\n";
  }
  EXPECT_EQ(list,
            "Initialize word:Object properties:Object productState:Object productName:String\n"
            "Execute command:String\n"
            "EnableGotoQuickBookmark value:Boolean\n"
            "RibbonHandler [get]\n"
            "ReadingMode\nReadingModeLayout\nCloseReadingMode\nToggleLumivex\nFilePrintPreview2\nClosePreview\n"
            "ShrinkToolbar\nProductNameChanged\nOpenUserManual\nUseQuillmere\n"
            "HandleCreateDocument startedFromIcon:Boolean\n"
            "HandleDocumentChange\n"
            "HandleCloseDocument doc:Object\n"
            "ClickOnAd\nQuit\n");
}

// Each by its name, in either use, in whatever case.
TEST_F(Door, EachOperation_RunsItself) {
  for (const Main2Operation& operation : kMain2Operations) {
    for (const Use use : {Use::kGet, Use::kCall}) {
      for (const bool upper : {false, true}) {
        std::string name(operation.name.Text());
        const std::string procedure = "Main2." + name + (operation.isProperty ? "[Get](" : "(");
        if (upper) std::transform(name.begin(), name.end(), name.begin(), [](char c) { return std::toupper(c); });
        SCOPED_TRACE(name);
        BeginWithTrace(u"12.0");
        Word().Open(u"One.doc");
        std::vector<Variant> given;
        for (const Parameter& parameter : operation.parameters) {
          if (parameter.kind == ParameterKind::kBoolean) given.push_back(false);
          if (parameter.kind == ParameterKind::kString) given.push_back(u"ReadingMode");
          if (parameter.kind == ParameterKind::kObject) given.push_back(Word().Application());
        }
        MainCalls told;
        EXPECT_EQ(Raised([&] { Invoke(use, name, given); }), 0);
        ASSERT_FALSE(told.calls.empty());
        EXPECT_TRUE(told.calls[0].starts_with(procedure)) << told.calls[0];
      }
    }
  }
}

TEST_F(Door, Arguments_ReachTheirParameters) {
  BeginWithTrace();
  MainCalls told;
  Outside().Call("EnableGotoQuickBookmark", true);
  Outside().Call("EnableGotoQuickBookmark", u"False");
  Outside().Call("EnableGotoQuickBookmark", Long{7});
  Outside().Call("Execute", Long{42});
  EXPECT_EQ(Block(told.calls),
            "Main2.EnableGotoQuickBookmark(value=True)\n"
            "Main2.EnableGotoQuickBookmark(value=False)\n"
            "Main2.EnableGotoQuickBookmark(value=True)\n"
            "Main2.Execute(command='42')\n");
}

TEST_F(Door, WholeLifeOfALibrary_GoesThroughIt) {
  Prepare(ForWord(u"11.0")).Load();
  const Object main = Outside();
  const Object properties = Word().Properties();
  main.Call("Initialize", Word().Application(), properties, Word().ProductState(), u"Quillmere");
  Object document = Ref<wordsim::Document>(&Word().Open(u"One.doc"));
  main.Call("HandleCreateDocument", false);
  EXPECT_EQ(Registry(), "top 1");
  EXPECT_TRUE(main.Get("RibbonHandler").ToObject().IsNothing());
  EXPECT_EQ(main.Call("OpenUserManual").ToText(), u"C:\\Program Files\\Quillmere\\Quillmere user manual.doc");
  EXPECT_TRUE(main.Call("HandleDocumentChange").IsEmpty());
  const Variant mayClose = main.Call("HandleCloseDocument", document);
  ASSERT_NE(mayClose.If<Boolean>(), nullptr);
  EXPECT_TRUE(mayClose.ToBoolean());
  main.Call("Quit");
  EXPECT_EQ(TheWorld().desk.Windows().LiveHooks(), 0u);
  EXPECT_TRUE(Did().Errors().empty());
}

TEST_F(Door, RibbonHandler_IsTheComponent) {
  Begin(u"12.0");
  EXPECT_EQ(Outside().Get("RibbonHandler").ToObject(), Main().RibbonHandler());
  EXPECT_FALSE(Outside().Call("RibbonHandler").ToObject().IsNothing());
}

TEST_F(Door, UnknownNamesAndLets_ArentMembers) {
  TheWorld();
  for (const char* name : {"", "Main2", "Toolbars", "HandleDocumentCreateImpl", "UpdateLumivexIcon", "ReadingMode ",
                           "ToggleReadingMode", "RibbonHandler[Get]"}) {
    EXPECT_EQ(InvokeRaises(name, {}), errors::kNoSuchMember) << name;
  }
  for (const Main2Operation& operation : kMain2Operations) {
    const Variant value = true;
    EXPECT_EQ(Raised([&] { Invoke(Use::kLet, operation.name.Text(), {&value, 1}); }), errors::kNoSuchMember);
  }
  EXPECT_TRUE(Did().All().empty()) << "nothing ran, and nobody was asked";
}

TEST_F(Door, WrongCounts_AreRefused) {
  TheWorld();
  for (const Main2Operation& operation : kMain2Operations) {
    const std::string name(operation.name.Text());
    const std::vector<Variant> tooMany(operation.parameters.size() + 1, Variant(true));
    EXPECT_EQ(Raised([&] { Invoke(Use::kCall, name, tooMany); }), errors::kWrongNumberOfArguments) << name;
    EXPECT_EQ(Raised([&] { Invoke(Use::kGet, name, tooMany); }), errors::kWrongNumberOfArguments) << name;
    if (operation.parameters.empty()) continue;
    const std::vector<Variant> tooFew(operation.parameters.size() - 1, Variant(true));
    EXPECT_EQ(Raised([&] { Invoke(Use::kCall, name, tooFew); }), errors::kWrongNumberOfArguments) << name;
  }
  EXPECT_TRUE(Did().All().empty());
}

TEST_F(Door, WrongKinds_AreRefusedBeforeAnythingRuns) {
  TheWorld();
  const Object word = Word().Application();
  EXPECT_EQ(InvokeRaises("HandleCreateDocument", {u"perhaps"}), errors::kTypeMismatch);
  EXPECT_EQ(InvokeRaises("HandleCreateDocument", {word}), errors::kTypeMismatch);
  EXPECT_EQ(InvokeRaises("EnableGotoQuickBookmark", {Array<String>(0, 1)}), errors::kTypeMismatch);
  EXPECT_EQ(InvokeRaises("Execute", {word}), errors::kTypeMismatch);
  EXPECT_EQ(InvokeRaises("Execute", {Picture()}), errors::kTypeMismatch);
  EXPECT_EQ(InvokeRaises("HandleCloseDocument", {u"One.doc"}), errors::kTypeMismatch);
  EXPECT_EQ(InvokeRaises("HandleCloseDocument", {Long{0}}), errors::kTypeMismatch);
  EXPECT_EQ(InvokeRaises("HandleCloseDocument", {Variant()}), errors::kTypeMismatch) << "Empty is no object";
  EXPECT_EQ(InvokeRaises("Initialize", {word, word, u"state", u"name"}), errors::kTypeMismatch);
  EXPECT_TRUE(Did().All().empty());
}

TEST_F(Door, EmptyValues_AreFalseAndTheEmptyText) {
  BeginWithTrace();
  MainCalls told;
  Outside().Call("EnableGotoQuickBookmark", Variant());
  EXPECT_EQ(told.calls[0], "Main2.EnableGotoQuickBookmark(value=False)");
}

// Nothing is an object; what it brings about is the operation's.
TEST_F(Door, Nothing_IsPassedOn) {
  TheWorld();
  EXPECT_EQ(InvokeRaises("HandleCloseDocument", {Object()}), 0);
  EXPECT_EQ(Did().Count(Doings::kUse, "let template Quillmere.dot Saved(True)"), 1u);
  EXPECT_EQ(InvokeRaises("Initialize", {Object(), Word().Properties(), Word().ProductState(), u"Quillmere"}), 0);
  EXPECT_EQ(Did().Errors().at(0), "12345 CommonWordInteractionFunctions.Initialize");
}

TEST_F(Door, ErrorsInsideAnOperation_NeverLeaveIt) {
  TheWorld().Open(u"One.doc");
  Word().Faults().Arm("productState", "lumivexEnabled");
  EXPECT_EQ(InvokeRaises("ToggleLumivex", {}), 0);
  EXPECT_EQ(Block(Did().Errors()), "1000 Main2.ToggleLumivex\n");
}

TEST_F(Door, NamedArguments_GoToTheirParametersInAnyOrder) {
  Prepare(ForWord(u"11.0")).Load();
  Outside().Call("Initialize", Word().Application(), Named{"productNAME", u"Elsewhere"},
                 Named{"ProductState", Word().ProductState()}, Named{"properties", Word().Properties()});
  EXPECT_EQ(ToolbarUtilities::variables.mProductName, u"Elsewhere");
  EXPECT_EQ(ToolbarUtilities::variables.productState, Word().ProductState());
  EXPECT_TRUE(Did().Errors().empty());
  Outside().Call("EnableGotoQuickBookmark", Named{"value", true});
  EXPECT_EQ(Did().Logs().back(), "log 0 EnableGotoQuickBookmark True");
  EXPECT_EQ(Outside().Call("Execute", Named{"Command", u"OpenUserManual"}).ToText(), Main().OpenUserManual());
  EXPECT_EQ(InvokeRaises("HandleCreateDocument", {}, {{"startedFromIcon", false}}), 0);
  EXPECT_EQ(InvokeRaises("HandleCloseDocument", {}, {{"doc", Object()}}), 0);
}

TEST_F(Door, NamedArgumentsThatDontFit_AreRefused) {
  TheWorld();
  const Object word = Word().Application();
  EXPECT_EQ(InvokeRaises("EnableGotoQuickBookmark", {}, {{"flag", true}}), errors::kNoSuchNamedArgument);
  EXPECT_EQ(InvokeRaises("EnableGotoQuickBookmark", {true}, {{"flag", true}}), errors::kNoSuchNamedArgument);
  EXPECT_EQ(InvokeRaises("EnableGotoQuickBookmark", {true, true}, {{"flag", true}}), errors::kNoSuchNamedArgument);
  EXPECT_EQ(InvokeRaises("Quit", {}, {{"value", true}}), errors::kNoSuchNamedArgument);
  EXPECT_EQ(InvokeRaises("EnableGotoQuickBookmark", {true}, {{"value", true}}), errors::kWrongNumberOfArguments);
  EXPECT_EQ(InvokeRaises("EnableGotoQuickBookmark", {}, {{"value", true}, {"VALUE", true}}),
            errors::kWrongNumberOfArguments);
  EXPECT_EQ(InvokeRaises("Initialize", {word}, {{"productName", u"Q"}, {"properties", word}}),
            errors::kArgumentNotOptional);
  EXPECT_EQ(InvokeRaises("EnableGotoQuickBookmark", {}, {{"value", u"perhaps"}}), errors::kTypeMismatch);
  EXPECT_TRUE(Did().All().empty());
}

TEST_F(Door, ArgumentLeftOut_IsNotOptionalUnlessItIsNamed) {
  TheWorld();
  EXPECT_EQ(InvokeRaises("EnableGotoQuickBookmark", {Missing{}}), errors::kArgumentNotOptional);
  EXPECT_TRUE(Did().All().empty());
  EXPECT_EQ(InvokeRaises("EnableGotoQuickBookmark", {Missing{}}, {{"value", true}}), 0);
  EXPECT_EQ(Did().Logs()[0], "log 0 EnableGotoQuickBookmark True");
}

// The caller's variable is the operation's: what becomes of it during the call, the operation sees.
TEST_F(Door, VariableOfTheParametersType_IsPassedItself) {
  Begin(u"12.0");
  Boolean value = true;
  Did().during = [&](const Doings::Line& line) {
    if (line.text == "log 0 EnableGotoQuickBookmark True") value = false;
  };
  Outside().Call("EnableGotoQuickBookmark", Variant::ByRef(value));
  Did().during = nullptr;
  EXPECT_EQ(Did().Count(Doings::kUse, "call RibbonHandler.Main2 EnableGotoQuickBookmark(False)"), 1u);
  String command = u"OpenUserManual";
  EXPECT_FALSE(Outside().Call("Execute", Variant::ByRef(command)).ToText().IsEmpty());
  Object document;
  EXPECT_TRUE(Outside().Get("HandleCloseDocument", Variant::ByRef(document)).If<Boolean>() != nullptr);
}

TEST_F(Door, OtherVariables_AreConvertedAndKeepWhatTheyHold) {
  BeginWithTrace(u"11.0");
  String text = u"1";
  Long number = 5;
  Variant any = Integer{1};
  MainCalls told;
  Outside().Call("EnableGotoQuickBookmark", Variant::ByRef(text));
  Outside().Call("EnableGotoQuickBookmark", Variant::ByRef(number));
  Outside().Call("EnableGotoQuickBookmark", Variant::ByRef(any));
  EXPECT_EQ(std::count(told.calls.begin(), told.calls.end(), "Main2.EnableGotoQuickBookmark(value=True)"), 3);
  EXPECT_EQ(text, u"1");
  EXPECT_EQ(number, 5);
  EXPECT_EQ(any, Variant(Integer{1}));
}

// What an operation writes. None of the public ones does today, so this one stands for them.
class WritingDoor : public Door {
 protected:
  static constexpr Parameter kParameters[] = {
      {"flag", ParameterKind::kBoolean}, {"text", ParameterKind::kString}, {"object", ParameterKind::kObject}};
  static Variant Write(Main2&, ReceivedArguments& given) {
    given[0].Flag() = !given[0].Flag();
    given[1].Text() = u"12";
    given[2].Target() = Object();
    return Long{3};
  }
  static constexpr Main2Operation kWriter{"Writer", false, kParameters, {}, &Write};
  Variant Run(std::initializer_list<Variant> positional, std::initializer_list<Named> named = {}) {
    TheWorld();
    return kWriter.Invoke(Main(), {std::span(positional.begin(), positional.size()), named});
  }
};

TEST_F(WritingDoor, VariablesOfTheSameType_AreWritten) {
  Boolean flag = false;
  String text = u"before";
  Object object = TheWorld().Application();
  EXPECT_EQ(Run({Variant::ByRef(flag), Variant::ByRef(text), Variant::ByRef(object)}), Variant(Long{3}));
  EXPECT_TRUE(flag);
  EXPECT_EQ(text, u"12");
  EXPECT_TRUE(object.IsNothing());
}

TEST_F(WritingDoor, VariablesOfOtherTypes_AreWrittenInTheirOwn) {
  Integer flag = 0;
  Long text = 7;
  Variant object = TheWorld().Application();
  Run({Variant::ByRef(flag), Variant::ByRef(text), Variant::ByRef(object)});
  EXPECT_EQ(flag, -1);
  EXPECT_EQ(text, 12);
  ASSERT_NE(object.If<Object>(), nullptr);
  EXPECT_TRUE(object.ToObject().IsNothing());
}

TEST_F(WritingDoor, NamedVariables_AreWrittenToo) {
  Variant text = u"before";
  Boolean flag = true;
  Run({Missing{}, Variant::ByRef(text)}, {{"object", Object()}, {"flag", Variant::ByRef(flag)}});
  EXPECT_EQ(text, Variant(u"12"));
  EXPECT_FALSE(flag);
}

TEST_F(WritingDoor, Values_AreTheCallersOwnAndStay) {
  const Variant flag = false;
  const Variant text = u"before";
  Run({flag, text, Object()});
  EXPECT_EQ(flag, Variant(false));
  EXPECT_EQ(text, Variant(u"before"));
}

TEST_F(WritingDoor, VariableThatCantHoldWhatIsWritten_IsAnErrorOfTheCaller) {
  Boolean flag = false;
  Array<Byte> bytes;
  EXPECT_EQ(Raised([&] { Run({Variant::ByRef(flag), Variant::ByRef(bytes), Object()}); }), errors::kTypeMismatch);
  EXPECT_FALSE(flag) << "nothing has run";
}

// The product may let go of the object by what it brings about itself.
TEST_F(Door, ObjectThatIsLetGoDuringACall_LivesUntilItIsOver) {
  TheWorld().Open(u"One.doc");
  Main2& main = Main();
  Did().during = [&](const Doings::Line& line) {
    if (line.text == "log 0 HandleDocumentChange") TheWorld().Release();
  };
  EXPECT_EQ(Raised([&] { main.Invoke(Use::kCall, "HandleDocumentChange", {}); }), 0);
  Did().during = nullptr;
  EXPECT_EQ(Did().Logs().back().substr(0, 6), "log 0 ");
  EXPECT_EQ(Did().Count(Doings::kLog, "log 1 Quit"), 1u);
}

}  // namespace
}  // namespace strandline
