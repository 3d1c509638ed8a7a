#include "platform/desk/desk_dictionary.h"
#include "tests/wordsim/world_fixture.h"
#include "wordsim/components.h"
#include "wordsim/product_objects.h"

namespace strandline::wordsim {
namespace {

using ProductTest = WorldTest;

// Remembers what it is told; raises when it is to.
class Listener final : public Dispatch {
 public:
  Variant Invoke(Use, Name member, const Arguments& arguments) override {
    if (raises) Raise(errors::kOverflow);
    std::string line(member.Text());
    for (const Variant& argument : arguments.positional) line += " " + Shown(argument);
    heard.push_back(std::move(line));
    return {};
  }
  Long Identity() const override { return 1; }

  bool raises = false;
  std::vector<std::string> heard;
};

TEST_F(ProductTest, Store_AnswersByLevel_AndIsEmptyWhereNothingIs) {
  const Object store = World().Properties();
  World().TheProduct().ChangeValue(ValueLevel::kUser, u"Key", u"mine");
  World().TheProduct().ChangeValue(ValueLevel::kGlobal, u"Key", u"everybody's");
  EXPECT_EQ(store.Get("GlobalUserValue", u"Key").ToText(), u"mine");
  EXPECT_EQ(store.Get("GlobalValue", u"Key").ToText(), u"everybody's");
  EXPECT_TRUE(store.Get("GlobalValue", u"key").ToText().IsEmpty());
  EXPECT_EQ(store.Get("GlobalUserValueWithDefault", u"Key", u"other").ToText(), u"mine");
  EXPECT_EQ(store.Get("GlobalUserValueWithDefault", u"FormatType", u"APA").ToText(), u"APA");
}

TEST_F(ProductTest, Store_KeepsAMapForEachDocument) {
  const Object store = World().Properties();
  EXPECT_FALSE(store.Get("DocumentValueMapExists", u"1").ToBoolean());
  EXPECT_TRUE(store.Get("DocumentValue", u"Key", u"1").ToText().IsEmpty());
  const auto map = New<desk::DeskDictionary>();
  map->Add(u"Key", u"Value");
  store.Let("DocumentValueMap", u"1", Object(map));
  EXPECT_TRUE(store.Get("DocumentValueMapExists", u"1").ToBoolean());
  EXPECT_EQ(store.Get("DocumentValue", u"Key", u"1").ToText(), u"Value");
  EXPECT_TRUE(store.Get("DocumentValue", u"Other", u"1").ToText().IsEmpty());
  EXPECT_EQ(map->Count(), 1);
}

TEST_F(ProductTest, AValueOfADocumentWithoutAMap_MakesOneWithItAlone) {
  const Object store = World().Properties();
  World().TheProduct().ChangeValue(ValueLevel::kDocument, u"OutputType", u"endnote", u"4");
  EXPECT_TRUE(store.Get("DocumentValueMapExists", u"4").ToBoolean());
  EXPECT_EQ(store.Get("DocumentValue", u"OutputType", u"4").ToText(), u"endnote");
}

TEST_F(ProductTest, Listeners_AreRememberedOnce_AndToldOfTheirKey) {
  const auto listener = New<Listener>();
  const auto broken = New<Listener>();
  broken->raises = true;
  const Object store = World().Properties();
  store.Call("AddListener", u"Country", Object(broken));
  store.Call("AddListener", u"Country", Object(listener));
  store.Call("AddListener", u"Country", Object(listener));
  store.Call("AddListener", u"City", Object(listener));
  World().TheProduct().ChangeValue(ValueLevel::kUser, u"Country", u"Norway");
  World().TheProduct().ChangeValue(ValueLevel::kGlobal, u"Colour", u"blue");
  EXPECT_EQ(listener->heard, std::vector<std::string>{"ValueChanged Country Norway"});
}

TEST_F(ProductTest, Commands_GoToWhoeverPlaysProduct) {
  std::vector<std::string> commands;
  World().TheHooks().productCommand = [&](const String& command, const Variant& param) {
    commands.push_back(ToUtf8(command) + " " + Shown(param));
    return Variant(u"done");
  };
  const Object store = World().Properties();
  EXPECT_EQ(store.Call("ExecuteQLMCommand", u"InsertReference").ToText(), u"done");
  store.Call("ExecuteQLMCommand", u"Login", u"me");
  EXPECT_EQ(commands, (std::vector<std::string>{"InsertReference Missing", "Login me"}));
}

TEST_F(ProductTest, State_TellsNameLumivexAndIcon) {
  Settings settings;
  settings.hasIcon = true;
  const Object state = Begin(settings).ProductState();
  EXPECT_EQ(state.Get("productName").ToText(), u"Quillmere");
  World().TheProduct().Rename(u"Halcyra");
  EXPECT_EQ(state.Get("productName").ToText(), u"Halcyra");
  state.Let("lumivexEnabled", true);
  EXPECT_TRUE(World().TheProduct().IsLumivexEnabled());
  const Picture icon = state.Get("icon").ToPicture();
  ASSERT_TRUE(icon);
  EXPECT_GT(icon->Width(), 0);
}

TEST_F(ProductTest, StatesIcon_IsAPictureOfItsOwnAtEachReading) {
  Settings settings;
  settings.hasIcon = true;
  const Object state = Begin(settings).ProductState();
  const Picture first = state.Get("icon").ToPicture();
  const Picture second = state.Get("icon").ToPicture();
  ASSERT_TRUE(first && second);
  EXPECT_NE(first->Handle(), second->Handle());
  EXPECT_EQ(first->Width(), second->Width());
}

TEST_F(ProductTest, WithoutAnIcon_TheStateHasNothing) {
  const Variant icon = World().ProductState().Get("icon");
  EXPECT_TRUE(icon.ToObject().IsNothing());
  EXPECT_FALSE(icon.ToPicture());
}

TEST_F(ProductTest, Tooltip_RemembersWhatItShows) {
  const Object tooltip = World().Properties().Get("tooltip").ToObject();
  EXPECT_EQ(tooltip.Call("TooltipBackground", u"Text").ToText(), u"Text");
  tooltip.Call("Show", Long{9}, u"Text", Named{"forceRedraw", true});
  EXPECT_TRUE(World().TheProduct().Tooltip().IsShown());
  EXPECT_EQ(World().TheProduct().Tooltip().Owner(), 9);
  tooltip.Call("Hide");
  EXPECT_FALSE(World().TheProduct().Tooltip().IsShown());
  tooltip.Let("TooltipIconIndex", Integer{401});
  EXPECT_EQ(World().TheProduct().Tooltip().IconIndex(), 401);
}

struct FormatterCase {
  const char16_t* progId;
  const char16_t* displayName;
  const char16_t* outputType;
};

TEST_F(ProductTest, Formatters_DescribeThemselves) {
  const FormatterCase kCases[] = {
      {u"StylanthAMA.Main2", u"AMA", u"numbered reference"},
      {u"stylanthapa.main2", u"APA", u"citation"},
      {u"StylanthMLA.Main2", u"MLA", u"citation"},
      {u"StylanthTurabian.Main2", u"Turabian", u"footnote"},
  };
  for (const FormatterCase& one : kCases) {
    const auto data = New<desk::DeskDictionary>();
    Object given = data;
    const Object formatter = World().CreateComponent(one.progId);
    EXPECT_EQ(formatter.Call("getMetaData", Variant::ByRef(given)).ToText(), one.displayName);
    EXPECT_EQ(data->Item(u"defaultOutputType").ToText(), one.outputType);
  }
}

TEST_F(ProductTest, AComponentThatIsMissingOrUnknown_CantBeCreated) {
  Settings settings;
  settings.missingComponents = {u"stylanthmla.MAIN2"};
  Begin(settings);
  EXPECT_EQ(NumberRaised([&] { World().CreateComponent(u"StylanthMLA.Main2"); }), errors::kCannotCreateComponent);
  EXPECT_EQ(NumberRaised([&] { World().CreateComponent(u"Nobody.Main2"); }), errors::kCannotCreateComponent);
  for (const TextView name : Product::ComponentNames()) {
    if (SameText(name, u"StylanthMLA.Main2")) continue;
    EXPECT_EQ(NumberRaised([&] { World().CreateComponent(name); }), 0) << ToUtf8(name);
  }
}

TEST_F(ProductTest, TheErrorComponent_AnswersInTurn_ThenZero) {
  const Object component = World().CreateComponent(u"QuillmereError.Main2");
  World().TheProduct().AnswerErrors(std::vector<Long>{5, 8});
  const auto ask = [&] {
    return component
        .Call("vbwErrorHandler", Long{91}, u"description", u"Strandline", u"Main2", u"Quit", Long{12}, Integer{1},
              Array<String>(1, 64))
        .ToLong();
  };
  EXPECT_EQ(ask(), 5);
  EXPECT_EQ(ask(), 8);
  EXPECT_EQ(ask(), 0);
}

TEST_F(ProductTest, TheErrorComponent_KeepsTheLinesOfAReport) {
  const Object component = World().CreateComponent(u"QuillmereError.Main2");
  bool ended = false;
  World().TheHooks().exitThread = [&] { ended = true; };
  component.Call("vbwOpenDumpFile");
  component.Call("vbwReportToFile", u"banner");
  component.Call("vbwReportVariable", u"mHwnd", Long{7}, Long{0});
  component.Call("vbwReportObject", u"mDocument", Long{0}, Object());
  component.Call("vbwCloseDumpFile");
  EXPECT_EQ(component.Call("vbwReportParameter", u"hwnd", Long{7}).ToText(), u"hwnd = 7");
  EXPECT_EQ(World().TheProduct().ReportedLines(),
            (std::vector<String>{u"banner", u"mHwnd = 7", u"mDocument = Nothing"}));
  component.Call("vbwExitThread");
  EXPECT_TRUE(ended);
}

TEST_F(ProductTest, TheRibbon_HoldsTheRelay_AsLongAsItLives) {
  const auto relay = New<Listener>();
  Object ribbon = BeginVersion(u"12.0").CreateComponent(u"RibbonHandler.Main2");
  ribbon.Call("Initialize", Object(relay), u"Quillmere");
  ribbon.Call("EnableToolbar", true);
  ribbon.Call("ActivateQuillmereTab", Bar(u"Ribbon"));
  ASSERT_NE(World().TheProduct().Ribbon(), nullptr);
  EXPECT_EQ(World().TheProduct().Ribbon()->Events(), Object(relay));
  EXPECT_TRUE(World().TheProduct().Ribbon()->IsEnabled());
  EXPECT_TRUE(World().TheProduct().Ribbon()->IsTabActive());
  ribbon = nullptr;
  EXPECT_EQ(World().TheProduct().Ribbon(), nullptr);
}

}  // namespace
}  // namespace strandline::wordsim
