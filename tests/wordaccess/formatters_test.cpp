// The citation formatters: discovery, and what follows from it for the active document.

#include "tests/foundation/told.h"
#include "tests/support/scripted_object.h"
#include "tests/support/variables.h"
#include "tests/wordaccess/word_access_fixture.h"
#include "wordsim/store.h"

namespace strandline {
namespace {

using namespace CommonPropertyFunctions;

// A formatter by its component's name, what it calls itself, and its kind of reference.
struct Style {
  const char16_t* progId;
  const char16_t* displayName;
  const char16_t* outputType;
};

class Formatters : public WordAccessTest {
 protected:
  // Formatters of the test's own, in the place of the product's.
  void Install(std::initializer_list<Style> styles) {
    for (const Style& style : styles) {
      TheWorld().desk.Components().Register(style.progId, [style] {
        return Object(New<ScriptedObject>([style](Use use, Name member, const Arguments& arguments) -> Variant {
          EXPECT_EQ(use, Use::kCall);
          EXPECT_EQ(member, Name("getMetaData"));
          EXPECT_EQ(arguments.positional.size(), 1u);
          arguments.positional[0].ToObject().Call("Add", u"defaultOutputType", style.outputType);
          return String(style.displayName);
        }));
      });
    }
  }
  // None of whose names is in the order of discovery.
  void InstallOthers() {
    Install({{u"StylanthAMA.Main2", u"Medical", u"endnote"},
             {u"StylanthAPA.Main2", u"Basic", u"citation"},
             {u"StylanthMLA.Main2", u"Zeta", u"footnote"},
             {u"StylanthTurabian.Main2", u"Alpha", u"numbered reference"}});
  }
  void Open(const char16_t* name) { Word().Open(name); }
  void SetUserFormat(const char16_t* text) { Word().TheProduct().Store().SetUserValue(u"FormatType", text); }
  TextLines Created() { return Did().Of(Doings::kCreate); }
  std::string DisplayNames() {
    std::string names;
    for (const String& name : variables.mFormatDisplayNames.Elements()) names += ToUtf8(name) + " ";
    return names;
  }
};

TEST_F(Formatters, Discovery_CreatesTheFourInTheirOrderOnce) {
  TheWorld();
  formatType();
  formatType();
  String name = u"APA";
  formatMetaData(name);
  EXPECT_EQ(Block(Created()),
            "create StylanthAMA.Main2\ncreate StylanthAPA.Main2\n"
            "create StylanthMLA.Main2\ncreate StylanthTurabian.Main2\n");
}

TEST_F(Formatters, Discovery_FillsTheMapsAndSortsTheNames) {
  InstallOthers();
  initializeDisplayToClassNames();
  EXPECT_EQ(DisplayNames(), "Alpha Basic Medical Zeta ");
  EXPECT_EQ(variables.mFormatDisplayNames.Lower(), 0);
  const struct {
    const char16_t* displayName;
    const char16_t* className;
    const char16_t* outputType;
  } expected[] = {{u"Medical", u"StylanthAMA", u"endnote"},
                  {u"Basic", u"StylanthAPA", u"citation"},
                  {u"Zeta", u"StylanthMLA", u"footnote"},
                  {u"Alpha", u"StylanthTurabian", u"numbered reference"}};
  for (Long i = 0; i < 4; ++i) {
    EXPECT_EQ(variables.mDisplayToClassNames->KeyAt(i).ToText(), expected[i].displayName);
    EXPECT_EQ(variables.mDisplayToClassNames->ItemAt(i).ToText(), expected[i].className);
    EXPECT_EQ(variables.mFormatMetaData->KeyAt(i).ToText(), expected[i].displayName);
    EXPECT_EQ(variables.mFormatters->KeyAt(i).ToText(), expected[i].displayName);
    EXPECT_EQ(defaultOutputType(expected[i].displayName), expected[i].outputType);
  }
}

TEST_F(Formatters, ClassNames_AreFour) {
  Array<String> names;
  getFormatterClassNames(names);
  EXPECT_EQ(names.Lower(), 0);
  EXPECT_EQ(names.Elements(),
            (std::vector<String>{u"StylanthAMA", u"StylanthAPA", u"StylanthMLA", u"StylanthTurabian"}));
}

TEST_F(Formatters, MapThatTheComponentReplaces_IsTheOneThatCounts) {
  TheWorld().desk.Components().Register(u"StylanthAPA.Main2", [this] {
    return Object(New<ScriptedObject>([this](Use, Name, const Arguments& arguments) -> Variant {
      const Object own = TheWorld().desk.Components().CreateDictionary();
      own.Call("Add", u"defaultOutputType", u"endnote");
      arguments.positional[0].Assign(own);
      return String(u"APA");
    }));
  });
  EXPECT_EQ(defaultOutputType(u"APA"), u"endnote");
}

TEST_F(Formatters, MissingComponent_EndsTheDiscoveryForGood) {
  TheWorld().desk.Components().SetMissing(u"StylanthMLA.Main2", true);
  EXPECT_EQ(formatType(), u"APA");
  EXPECT_EQ(Block(Did().Errors()), "429 CommonPropertyFunctions.initializeDisplayToClassNames\n");
  EXPECT_EQ(variables.mFormatMetaData->Count(), 2);
  EXPECT_EQ(DisplayNames(), "AMA APA   ") << "the room for the others stays, unsorted";
  TheWorld().desk.Components().SetMissing(u"StylanthMLA.Main2", false);
  Did().Clear();
  EXPECT_EQ(formatType(), u"APA");
  EXPECT_TRUE(Created().empty());
}

TEST_F(Formatters, NoComponentAtAll_IsAnErrorAndNoCrash) {
  TheWorld().desk.Components().SetMissing(u"StylanthAMA.Main2", true);
  EXPECT_EQ(outputType(), u"");
  EXPECT_FALSE(Did().Errors().empty());
  EXPECT_EQ(Did().Errors()[0], "429 CommonPropertyFunctions.initializeDisplayToClassNames");
}

TEST_F(Formatters, TwoOfOneName_AreADuplicateInTheTail) {
  Install({{u"StylanthAPA.Main2", u"AMA", u"citation"}});
  initializeDisplayToClassNames();
  EXPECT_EQ(Block(Did().Errors()), "457 CommonPropertyFunctions.initializeDisplayToClassNames\n");
  EXPECT_EQ(variables.mFormatMetaData->Count(), 1);
}

// The document's style, the user's, the style that comes of it. Null: not set.
TEST_F(Formatters, FormatType_GoesFromTheDocumentToTheUserToTheFirstDiscovered) {
  const struct {
    const char16_t* document;
    const char16_t* user;
    const char16_t* format;
  } cases[] = {
      {u"Zeta", u"Basic", u"Zeta"},      {u"Chicago", u"Basic", u"Basic"}, {u"", u"Basic", u"Basic"},
      {nullptr, u"Basic", u"Basic"},     {u"zeta", u"Basic", u"Basic"},    {u"Chicago", u"Removed", u"Medical"},
      {nullptr, u"Removed", u"Medical"}, {nullptr, nullptr, u"Medical"},   {u"Zeta", u"Removed", u"Zeta"},
      {nullptr, u"", u"Medical"},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE((row.document ? ToUtf8(row.document) : "-") + "/" + (row.user ? ToUtf8(row.user) : "-"));
    Begin(u"11.0");
    InstallOthers();
    Open(u"One.doc");
    if (row.document) Word().SetVariable(u"FormatType", row.document);
    if (row.user) SetUserFormat(row.user);
    EXPECT_EQ(ToUtf8(formatType()), ToUtf8(row.format));
    EXPECT_TRUE(Did().Errors().empty());
  }
}

TEST_F(Formatters, UsersFormat_IsAskedForWithADefault) {
  TheWorld();
  EXPECT_EQ(formatType(), u"APA");
  EXPECT_EQ(Did().Count(Doings::kUse, "get properties GlobalUserValueWithDefault(FormatType, APA) = APA"), 1u);
}

// The document's kind of reference, its style, the kind that comes of it.
TEST_F(Formatters, OutputType_IsTheDocumentsOrTheStyles) {
  const struct {
    const char16_t* output;
    const char16_t* format;
    const char16_t* result;
  } cases[] = {
      {u"citation", u"Turabian", u"citation"},
      {u"footnote", u"APA", u"footnote"},
      {u"endnote", u"APA", u"endnote"},
      {u"numbered reference", u"APA", u"numbered reference"},
      {u"Citation", u"Turabian", u"footnote"},
      {u"FOOTNOTE", u"AMA", u"numbered reference"},
      {u" endnote", u"AMA", u"numbered reference"},
      {u"reference", u"MLA", u"citation"},
      {u"", u"Turabian", u"footnote"},
      {nullptr, u"Turabian", u"footnote"},
      {nullptr, nullptr, u"citation"},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE((row.output ? ToUtf8(row.output) : "-") + "/" + (row.format ? ToUtf8(row.format) : "-"));
    Begin(u"11.0");
    Open(u"One.doc");
    if (row.output) Word().SetVariable(u"OutputType", row.output);
    if (row.format) Word().SetVariable(u"FormatType", row.format);
    EXPECT_EQ(ToUtf8(outputType()), ToUtf8(row.result));
    EXPECT_TRUE(Did().Errors().empty());
  }
}

TEST_F(Formatters, OutputTypeWithoutADocument_IsThatOfTheUsersStyle) {
  TheWorld();
  SetUserFormat(u"AMA");
  EXPECT_EQ(outputType(), u"numbered reference");
  for (const std::string& use : Did().Of(Doings::kUse)) EXPECT_EQ(use.find("Variables"), std::string::npos) << use;
  EXPECT_TRUE(Did().Errors().empty());
}

TEST_F(Formatters, SetOfKinds_IsMadeOnFirstNeedAndOnce) {
  Open(u"One.doc");
  outputType();
  EXPECT_FALSE(variables.outputMap);
  Word().Open(u"Two.doc");
  Word().SetVariable(u"OutputType", u"endnote");
  outputType();
  const auto map = variables.outputMap;
  ASSERT_TRUE(map);
  outputType();
  EXPECT_EQ(variables.outputMap, map);
}

TEST_F(Formatters, PossibleValues_BecomeKeysWithZero) {
  TheWorld();
  const auto map = InitializeMapWithPossibleValues(u"one,two words,,Three");
  const char16_t* keys[] = {u"one", u"two words", u"", u"Three"};
  ASSERT_EQ(map->Count(), 4);
  for (Long i = 0; i < 4; ++i) {
    EXPECT_EQ(map->KeyAt(i).ToText(), keys[i]);
    EXPECT_EQ(map->ItemAt(i), Variant(Integer{0}));
  }
}

TEST_F(Formatters, MetaDataWithoutAName_IsThatOfTheActiveStyle) {
  Open(u"One.doc");
  Word().SetVariable(u"FormatType", u"MLA");
  String name;
  const Object data = formatMetaData(name);
  EXPECT_EQ(name, u"MLA") << "the caller's variable too";
  EXPECT_EQ(data.Get("Item", u"displayName").ToText(), u"MLA");
  EXPECT_EQ(defaultOutputType(String()), u"citation");
}

// The name is found before the metadata are asked for, so that these are asked for by name.
TEST_F(Formatters, DefaultOutputTypeWithoutAName_AsksForTheActiveStyleFirst) {
  WorldOptions options = ForWord(u"11.0");
  options.commandLine = u"/trace";
  Begin(options);
  initializeDisplayToClassNames();
  ToldProcedures told;
  EXPECT_EQ(defaultOutputType(String()), u"citation");
  std::erase_if(told.calls, [](const std::string& call) {
    return !call.starts_with("CommonPropertyFunctions.formatType") &&
           !call.starts_with("CommonPropertyFunctions.formatMetaData") &&
           !call.starts_with("CommonPropertyFunctions.defaultOutputType");
  });
  ASSERT_GE(told.calls.size(), 3u);
  EXPECT_EQ(told.calls[0], "CommonPropertyFunctions.defaultOutputType(formatType='')");
  EXPECT_EQ(told.calls[1], "CommonPropertyFunctions.formatType()");
  EXPECT_EQ(told.calls.back(), "CommonPropertyFunctions.formatMetaData(displayName='APA')");
}

TEST_F(Formatters, MetaDataOfAnUnknownName_IsAnError) {
  TheWorld();
  String name = u"Chicago";
  EXPECT_TRUE(formatMetaData(name).IsNothing());
  EXPECT_EQ(Block(Did().Errors()), "13 CommonPropertyFunctions.formatMetaData\n");
}

TEST_F(Formatters, ReInitializeBeforeDiscovery_ClearsTheFormatterAlone) {
  TheWorld();
  variables.mCurrentFormatter = u"APA";
  ReInitialize();
  EXPECT_EQ(variables.mCurrentFormatter, u"");
  EXPECT_FALSE(variables.mDisplayToClassNames);
  EXPECT_FALSE(variables.mFormatters);
  EXPECT_FALSE(variables.mFormatDisplayNames.IsSized());
  EXPECT_TRUE(Did().All().empty());
}

TEST_F(Formatters, ReInitialize_EmptiesTheMapsAndKeepsOne) {
  TheWorld();
  formatType();
  const auto displayToClass = variables.mDisplayToClassNames;
  const auto metaData = variables.mFormatMetaData;
  const auto formatters = variables.mFormatters;
  variables.mCurrentFormatter = u"APA";
  ReInitialize();
  EXPECT_EQ(variables.mCurrentFormatter, u"");
  EXPECT_EQ(displayToClass->Count() + metaData->Count() + formatters->Count(), 0);
  EXPECT_FALSE(variables.mDisplayToClassNames);
  EXPECT_FALSE(variables.mFormatMetaData);
  EXPECT_EQ(variables.mFormatters, formatters);
  EXPECT_EQ(DisplayNames(), "AMA APA MLA Turabian ");
  EXPECT_FALSE(properties().IsNothing());
}

TEST_F(Formatters, AfterReInitialize_DiscoveryRunsAnew) {
  TheWorld();
  formatType();
  const auto formatters = variables.mFormatters;
  ReInitialize();
  InstallOthers();
  Did().Clear();
  EXPECT_EQ(formatType(), u"Medical");
  EXPECT_EQ(Created().size(), 4u);
  EXPECT_NE(variables.mFormatters, formatters);
  EXPECT_EQ(DisplayNames(), "Alpha Basic Medical Zeta ");
}

TEST_F(Formatters, Terminate_LetsGoOfTheFormattersAndTheStore) {
  TheWorld();
  int living = 0;
  TheWorld().desk.Components().Register(u"StylanthAMA.Main2", [&] {
    ++living;
    return Object(New<ScriptedObject>([](Use, Name, const Arguments&) -> Variant { return String(u"Own"); },
                                      [&living] { --living; }));
  });
  formatType();
  ASSERT_EQ(living, 1);
  Terminate();
  EXPECT_EQ(living, 0);
  EXPECT_TRUE(properties().IsNothing());
}

}  // namespace
}  // namespace strandline
