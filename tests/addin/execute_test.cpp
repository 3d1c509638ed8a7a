// The commands that the product's macros reach by their names.

#include "addin/operations.h"
#include "tests/addin/main2_fixture.h"

namespace strandline {
namespace {

class Execute : public Main2Test {
 protected:
  std::string Run(const char16_t* name) {
    String command = name;
    return ToUtf8(Main().Execute(command));
  }
};

constexpr const char16_t* kCommands[][3] = {
    {u"ReadingMode", u"readingmode", u"READINGMODE"},
    {u"ReadingModeLayout", u"readingmodelayout", u"ReadingmodeLAYOUT"},
    {u"CloseReadingMode", u"closereadingmode", u"CLOSEREADINGMODE"},
    {u"ToggleLumivex", u"togglelumivex", u"TOGGLELUMIVEX"},
    {u"FilePrintPreview2", u"fileprintpreview2", u"FILEPRINTPREVIEW2"},
    {u"ClosePreview", u"closepreview", u"CLOSEPREVIEW"},
    {u"ShrinkToolbar", u"shrinktoolbar", u"SHRINKTOOLBAR"},
    {u"ProductNameChanged", u"productnamechanged", u"PRODUCTNAMECHANGED"},
    {u"OpenUserManual", u"openusermanual", u"OPENUSERMANUAL"},
    {u"UseQuillmere", u"usequillmere", u"USEQUILLMERE"},
    {u"HandleDocumentChange", u"handledocumentchange", u"HANDLEDOCUMENTCHANGE"},
    {u"ClickOnAd", u"clickonad", u"CLICKONAD"},
    {u"Quit", u"quit", u"QUIT"},
};

TEST_F(Execute, EachCommand_RunsItsOperation_WhateverTheCase) {
  for (const char16_t* version : {u"11.0", u"12.0"}) {
    for (const auto& spellings : kCommands) {
      const std::string name = ToUtf8(spellings[0]);
      SCOPED_TRACE(name);
      BeginWithTrace(version);
      TheWorld().Open(u"One.doc");
      for (const char16_t* spelling : spellings) {
        // Quit takes the documents away from what is told of it.
        if (name == "Quit") TheWorld().Start();
        Did().Clear();
        MainCalls told;
        EXPECT_EQ(Run(spelling),
                  name == "OpenUserManual" ? "C:\\Program Files\\Quillmere\\Quillmere user manual.doc" : "");
        EXPECT_EQ(std::count(told.calls.begin(), told.calls.end(), "Main2." + name + "()"), 1);
        EXPECT_EQ(Did().Logs()[0], "log 0 " + ToUtf8(spelling) + " for One.doc");
        EXPECT_EQ(Did().Count(Doings::kError, "438") + Did().Count(Doings::kError, "450"), 0u);
      }
    }
  }
}

// No command is left out of the list above, and none is too many.
TEST_F(Execute, Commands_AreTheMethodsWithoutParameters) {
  std::size_t commands = 0;
  for (const Main2Operation& operation : kMain2Operations) {
    if (operation.isProperty || !operation.parameters.empty()) continue;
    EXPECT_TRUE(std::any_of(std::begin(kCommands), std::end(kCommands), [&](const auto& spellings) {
      return ToUtf8(spellings[0]) == operation.name.Text();
    })) << operation.name.Text();
    ++commands;
  }
  EXPECT_EQ(commands, std::size(kCommands));
}

TEST_F(Execute, Operations_AnswerTheKindThatTheTableTells) {
  for (const Main2Operation& operation : kMain2Operations) {
    SCOPED_TRACE(operation.name.Text());
    Begin(u"12.0");
    std::vector<Variant> given;
    for (const Parameter& parameter : operation.parameters) {
      const bool isObject = parameter.kind == ParameterKind::kObject;
      given.push_back(isObject                                    ? Variant(Object())
                      : parameter.kind == ParameterKind::kBoolean ? Variant(false)
                                                                  : Variant(u""));
    }
    const Variant answer = operation.Invoke(Main(), {given, {}});
    if (!operation.result) {
      EXPECT_TRUE(answer.IsEmpty());
      continue;
    }
    switch (*operation.result) {
      case ParameterKind::kBoolean:
        EXPECT_NE(answer.If<Boolean>(), nullptr);
        break;
      case ParameterKind::kInteger:
        EXPECT_NE(answer.If<Integer>(), nullptr);
        break;
      case ParameterKind::kString:
        EXPECT_NE(answer.If<String>(), nullptr);
        break;
      case ParameterKind::kObject:
        EXPECT_NE(answer.If<Object>(), nullptr);
        break;
    }
  }
}

TEST_F(Execute, WithoutADocument_LogsNoCommand) {
  TheWorld();
  EXPECT_NE(Run(u"OpenUserManual"), "");
  EXPECT_TRUE(Did().Logs().empty());
  EXPECT_TRUE(Did().Has("get Documents count() = 0"));
}

TEST_F(Execute, WhatIsNoCommand_ReachesTheTailAndChangesNothing) {
  const struct {
    const char16_t* name;
    const char* error;
  } cases[] = {
      {u"NoSuchCommand", "438 Main2.Execute"},
      {u"", "438 Main2.Execute"},
      {u"ReadingMode ", "438 Main2.Execute"},
      {u"HandleDocumentCreateImpl", "438 Main2.Execute"},
      {u"UpdateLumivexIcon", "438 Main2.Execute"},
      {u"RibbonHandler", "438 Main2.Execute"},
      {u"LumivexToggled", "438 Main2.Execute"},
      {u"R\u00E9adingMode", "438 Main2.Execute"},
      {u"Initialize", "450 Main2.Execute"},
      {u"Execute", "450 Main2.Execute"},
      {u"EnableGotoQuickBookmark", "450 Main2.Execute"},
      {u"handlecreatedocument", "450 Main2.Execute"},
      {u"HandleCloseDocument", "450 Main2.Execute"},
  };
  TheWorld().Open(u"One.doc");
  const Ref<Toolbar> toolbar = ToolbarOf("top 1");
  for (const auto& [name, error] : cases) {
    SCOPED_TRACE(ToUtf8(name));
    Did().Clear();
    EXPECT_EQ(Run(name), "");
    EXPECT_EQ(Block(Did().Errors()), Block({error}));
    EXPECT_EQ(Block(Did().Logs()), "log 0 " + ToUtf8(name) + " for One.doc\n");
    EXPECT_EQ(Acts(), "");
    EXPECT_TRUE(Did().Of(Doings::kHook | Doings::kBox).empty());
  }
  EXPECT_EQ(ToolbarOf("top 1"), toolbar.get());
}

TEST_F(Execute, ErrorInsideACommand_EndsThereAndAnswersEmpty) {
  TheWorld().Open(u"One.doc");
  Word().Faults().Arm("productState", "lumivexEnabled");
  EXPECT_EQ(Run(u"ToggleLumivex"), "");
  EXPECT_EQ(Block(Did().Errors()), "1000 Main2.ToggleLumivex\n");
}

TEST_F(Execute, DocumentsThatCantBeCounted_LeaveTheCommandUndone) {
  TheWorld().Open(u"One.doc");
  Did().Clear();
  Word().Faults().Arm("Documents", "count");
  EXPECT_EQ(Run(u"ToggleLumivex"), "");
  EXPECT_EQ(Block(Did().Errors()), "1000 Main2.Execute\n");
  EXPECT_FALSE(Word().TheProduct().IsLumivexEnabled());
  // Passed over, the command runs.
  Word().Faults().Arm("Documents", "count");
  TheWorld().AnswerErrors({5});
  Run(u"ToggleLumivex");
  EXPECT_TRUE(Word().TheProduct().IsLumivexEnabled());
}

TEST_F(Execute, AfterQuit_NoCommandRuns) {
  TheWorld().Open(u"One.doc");
  EXPECT_EQ(Run(u"Quit"), "");
  Did().Clear();
  EXPECT_EQ(Run(u"OpenUserManual"), "");
  EXPECT_EQ(Did().Count(Doings::kLog), 0u);
}

}  // namespace
}  // namespace strandline
