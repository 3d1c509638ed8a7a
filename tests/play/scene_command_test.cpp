#include "play/scene_command.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>

#include "play/expectation.h"
#include "play/scene_grammar.h"
#include "play/scene_player.h"

namespace strandline::play {
namespace {

// "bar late MS:250": the form and what was given.
std::string Describe(const Command& command) {
  std::string text = Usage(*command.form) + " =";
  for (const CommandValue& value : command.values) {
    text.append(" ").append(value.slot).append(":").append(value.text);
    if (value.number != 0) text += "(" + std::to_string(value.number) + ")";
  }
  for (const std::string& word : command.rest) text += " +" + word;
  if (command.inner) text += " {" + Describe(*command.inner) + "}";
  return text;
}

std::string Parse(std::string_view line) {
  const ParsedScene scene = ParseScene(line);
  if (!scene.error.empty()) return std::to_string(scene.errorLine) + ": " + scene.error;
  return scene.commands.empty() ? "" : Describe(scene.commands.front());
}

struct ParseCase {
  const char* line;
  const char* parsed;
};

TEST(SceneCommand_ARightLine, BecomesACommand) {
  const ParseCase kCases[] = {
      {"start", "start ="},
      {"word 10.0", "word TEXT = TEXT:10.0"},
      {"bar floating", "bar top|bottom|left|right|floating = EDGE:floating"},
      {"bar late 250", "bar late MS = MS:250(250)"},
      {"bar height 20", "bar height N = N:20(20)"},
      {"cell 16 0 -3 40 30", "cell N LEFT TOP WIDTH HEIGHT = N:16(16) LEFT:0 TOP:-3(-3) WIDTH:40(40) HEIGHT:30(30)"},
      {"open A.doc", "open NAME [icon] [reading] [mail] [new] = NAME:A.doc"},
      {"open icon new icon", "open NAME [icon] [reading] [mail] [new] = NAME:icon new:new icon:icon"},
      {"type A.doc", "type NAME [N] = NAME:A.doc"},
      {"type A.doc 7", "type NAME [N] = NAME:A.doc N:7(7)"},
      {"call Quit", "call OPERATION [ARG...] = OPERATION:Quit"},
      {"call X true -2 \"a b\"", "call OPERATION [ARG...] = OPERATION:X +true +-2 +a b"},
      {"execute \"\"", "execute COMMAND = COMMAND:"},
      {"ribbon run UseQuillmere", "ribbon run COMMAND = COMMAND:UseQuillmere"},
      {"ribbon icon -3", "ribbon icon INDEX = INDEX:-3(-3)"},
      {"send 0x112 0xFFFFFFFF -1",
       "send MSG WPARAM LPARAM = MSG:0x112(274) WPARAM:0xFFFFFFFF(4294967295) LPARAM:-1(-1)"},
      {"answer box no", "answer box ok|yes|no|cancel = BUTTON:no"},
      {"answer error 4 5 -1", "answer error N... = +4 +5 +-1"},
      {"fail window SetTimer", "fail window CALL [COUNT] = CALL:SetTimer"},
      {"fail \"control 3\" Left 2 91",
       "fail OBJECT MEMBER [COUNT [NUMBER]] = OBJECT:control 3 MEMBER:Left COUNT:2(2) NUMBER:91(91)"},
      {"fail Documents Item(19)", "fail OBJECT MEMBER [COUNT [NUMBER]] = OBJECT:Documents MEMBER:Item(19)"},
      {"shot desk all.png", "shot desk FILE.png = FILE.png:all.png"},
      {"shot desk.png", "shot FILE.png = FILE.png:desk.png"},
      {"expect window", "expect [N] KIND [FIELD=TEXT...] = KIND:window"},
      {"expect 0 log text=\"a b=c\"", "expect [N] KIND [FIELD=TEXT...] = N:0 KIND:log +text=a b=c"},
      {"expect pixel 3 4 00ff7F", "expect pixel X Y RRGGBB = X:3(3) Y:4(4) RRGGBB:00ff7F(65407)"},
      {"then box answer=1", "then KIND [FIELD=TEXT...] = KIND:box +answer=1"},
      {"after 50 wait 5", "after MS COMMAND... = MS:50(50) +wait +5 {wait MS = MS:5(5)}"},
      {"mouse move 30 -4", "mouse move X Y [left] [shift] = X:30(30) Y:-4(-4)"},
      {"mouse move 30 4 shift left", "mouse move X Y [left] [shift] = X:30(30) Y:4(4) shift:shift left:left"},
      {"mouse double", "mouse double ="},
      {"mouse over A.doc", "mouse over NAME = NAME:A.doc"},
      {"hover 3", "hover CELL = CELL:3(3)"},
      {"pick \"&Shrink Toolbar\"", "pick CAPTION = CAPTION:&Shrink Toolbar"},
      {"macro 3 execute Quit", "macro CELL COMMAND... = CELL:3(3) +execute +Quit {execute COMMAND = COMMAND:Quit}"},
      {"clipboard rtf {}", "clipboard rtf|text TEXT = KIND:rtf TEXT:{}"},
      {"clipboard held", "clipboard held ="},
      {"ads \"../my ads.dll\"", "ads FILE|none = FILE|none:../my ads.dll"},
      {"verifier -5 \"a b\"", "verifier N TEXT = N:-5(-5) TEXT:a b"},
      {"library none", "library FILE|none [aborted] = FILE|none:none"},
      {"library a.dll aborted", "library FILE|none [aborted] = FILE|none:a.dll aborted:aborted"},
      {"\n\n# x\n", ""},
      {"\xEF\xBB\xBFstart", "start ="},
  };
  for (const ParseCase& each : kCases) EXPECT_EQ(Parse(each.line), each.parsed) << each.line;
}

TEST(SceneCommand_AWrongLine, SaysWhatIsWrongAndWhatWouldBeRight) {
  const ParseCase kCases[] = {
      {"start now", "1: \"now\" is too much; usage: start"},
      {"\nwait", "2: MS is missing; usage: wait MS"},
      {"wait soon", "1: MS must be a whole number from 0 to 31622400000, not \"soon\"; usage: wait MS"},
      {"wait -1", "1: MS must be a whole number from 0 to 31622400000, not \"-1\"; usage: wait MS"},
      {"wait 5x", "1: MS must be a whole number from 0 to 31622400000, not \"5x\"; usage: wait MS"},
      {"dpi 99999999999999999999",
       "1: N must be a whole number from 24 to 960, not \"99999999999999999999\"; usage: dpi N"},
      {"bar", "1: top|bottom|left|right|floating is missing; usage: bar top|bottom|left|right|floating"},
      {"bar middle",
       "1: \"middle\" stands where one of top|bottom|left|right|floating belongs; usage: bar "
       "top|bottom|left|right|floating"},
      {"component A.B", "1: the word \"missing\" is missing; usage: component PROGID missing"},
      {"component A.B gone", "1: \"gone\" stands where \"missing\" belongs; usage: component PROGID missing"},
      {"answer", "1: a word is missing; usage: answer box ok|yes|no|cancel or answer error N..."},
      {"answer maybe", "1: \"maybe\" isn't known here; usage: answer box ok|yes|no|cancel or answer error N..."},
      {"open A.doc fast", "1: \"fast\" is too much; usage: open NAME [icon] [reading] [mail] [new]"},
      {"open A.doc new new", "1: \"new\" is too much; usage: open NAME [icon] [reading] [mail] [new]"},
      {"open \"\"", "1: NAME is empty; give a name; usage: open NAME [icon] [reading] [mail] [new]"},
      {"now 2009-02-29",
       "1: TIME must be a day from 1900 to 9999 as YYYY-MM-DD or YYYY-MM-DDTHH:MM:SS, not "
       "\"2009-02-29\"; usage: now YYYY-MM-DD[THH:MM:SS]"},
      {"shot a.bmp", "1: FILE.png must be a file name that ends with .png, not \"a.bmp\"; usage: shot FILE.png"},
      {"expect 2", "1: KIND is missing; usage: expect [N] KIND [FIELD=TEXT...]"},
      {"expect windows",
       "1: \"windows\" is no kind of journal line; the kinds are: object, create, window, hook, "
       "message, log, box, result, picture, paint, state; usage: expect [N] KIND [FIELD=TEXT...]"},
      {"expect -1 log",
       "1: N must be a whole number from 0 to 1000000000, not \"-1\"; usage: expect [N] KIND "
       "[FIELD=TEXT...]"},
      {"expect log text",
       "1: a field must be given as FIELD=TEXT, not \"text\"; usage: expect [N] KIND [FIELD=TEXT...]"},
      {"then log =x", "1: a field must be given as FIELD=TEXT, not \"=x\"; usage: then KIND [FIELD=TEXT...]"},
      {"expect pixel 1 2 12345",
       "1: RRGGBB must be six hexadecimal digits, not \"12345\"; usage: expect pixel X Y RRGGBB"},
      {"mouse", "1: a word is missing; usage: mouse move X Y [left] [shift] or mouse down or mouse up or *"},
      {"mouse wiggle", "1: \"wiggle\" isn't known here; usage: mouse move X Y [left] [shift] or mouse down or *"},
      {"mouse move 3", "1: Y is missing; usage: mouse move X Y [left] [shift]"},
      {"mouse move 3 4 right", "1: \"right\" is too much; usage: mouse move X Y [left] [shift]"},
      {"hover 0", "1: CELL must be a whole number from 1 to 255, not \"0\"; usage: hover CELL"},
      {"clipboard picture x", "1: \"picture\" stands where one of rtf|text belongs; usage: clipboard rtf|text TEXT"},
      {"ads", "1: FILE|none is missing; usage: ads FILE|none"},
      {"ads \"\"", "1: FILE|none is empty; give a name; usage: ads FILE|none"},
      {"verifier many", "1: N must be a whole number from -2147483648 to 2147483647, not \"many\"; usage: *"},
      {"verifier 3", "1: TEXT is missing; usage: verifier N TEXT"},
      {"library a.dll late", "1: \"late\" is too much; usage: library FILE|none [aborted]"},
      {"after 5 ads a.dll", "1: \"ads FILE|none\" can't wait for its time; it must stand before start"},
      {"macro 3", "1: COMMAND is missing; usage: macro CELL COMMAND..."},
      {"macro 3 dpi 96", "1: \"dpi N\" can't wait for its time; it must stand before start"},
      {"after 5", "1: COMMAND is missing; usage: after MS COMMAND..."},
      {"after 5 wait", "1: MS is missing; usage: wait MS"},
      {"after 5 dpi 96", "1: \"dpi N\" can't wait for its time; it must stand before start"},
      {"fail window", "1: CALL is missing; usage: fail window CALL [COUNT]"},
      {"open \"A", "1: the quote opened at column 6 isn't closed; close it with \" (inside, \\\" stands for a quote)"},
  };
  for (const ParseCase& each : kCases) {
    EXPECT_TRUE(MatchesPattern(each.parsed, Parse(each.line))) << Parse(each.line) << "\n" << each.parsed;
  }
}

TEST(SceneCommand_AnUnknownWord, ListsTheKnownOnesInOneLine) {
  const std::string error = Parse("word 10.0\njuggle 3");
  EXPECT_TRUE(error.starts_with("2: unknown command \"juggle\"; known commands are: word, product, now, ")) << error;
  EXPECT_EQ(error.find('\n'), std::string::npos);
}

TEST(SceneCommand_AfterInItself, HasAnEnd) {
  std::string line;
  for (int i = 0; i < 16; ++i) line += "after 1 ";
  EXPECT_EQ(Parse(line + "mark").find("too often"), std::string::npos);
  for (int i = 0; i < 100000; ++i) line += "after 1 ";
  EXPECT_EQ(Parse(line + "mark"), "1: after stands in itself too often; 16 times are allowed");
  line.clear();
  for (int i = 0; i < 17; ++i) line += "macro 1 ";
  EXPECT_EQ(Parse(line + "mark"), "1: macro stands in itself too often; 16 times are allowed");
}

// A word that this element takes.
std::string WordFor(const GrammarElement& element) {
  using Kind = GrammarElement::Kind;
  switch (element.kind) {
    case Kind::kLiteral:
    case Kind::kFlag:
      return std::string(element.name);
    case Kind::kChoice:
      return std::string(element.type.substr(0, element.type.find('|')));
    case Kind::kNumber:
      return std::to_string(element.lowest);
    case Kind::kText:
      break;
  }
  if (element.name == "COMMAND" && element.rest) return "mark";
  const std::map<std::string_view, std::string> kWords = {
      {"time", "2009-03-02"}, {"png", "a.png"}, {"rgb", "00ff7f"}, {"kind", "log"}, {"pair", "text=x"}};
  const auto found = kWords.find(element.type);
  return found == kWords.end() ? "x" : found->second;
}

// A line in this form, with all that may be left out or without it.
std::string LineIn(const CommandForm& form, bool withOptional) {
  std::string line;
  for (const GrammarElement& element : ReadGrammar(form.grammar)) {
    if (element.optional && !withOptional) continue;
    line += (line.empty() ? "" : " ") + WordFor(element);
  }
  return line;
}

TEST(SceneCommand_EachForm, IsFoundByALineInIt) {
  for (const CommandForm& form : CommandForms()) {
    for (const bool withOptional : {false, true}) {
      const std::string line = LineIn(form, withOptional);
      const ParsedScene scene = ParseScene(line);
      ASSERT_EQ(scene.error, "") << line;
      ASSERT_EQ(scene.commands.size(), 1u) << line;
      EXPECT_EQ(Usage(*scene.commands.front().form), Usage(form)) << line;
    }
  }
}

TEST(SceneCommand_EachVerb, HasAForm) {
  std::set<Verb> verbs;
  for (const CommandForm& form : CommandForms()) verbs.insert(form.verb);
  EXPECT_EQ(verbs.size(), static_cast<std::size_t>(Verb::kQuit) + 1) << "kQuit is the last verb";
}

// The library of ads is both: it must stand before start, and is put into its place when its turn comes.
TEST(SceneCommand_EachForm, IsEitherASettingThatIsTakenOrACommandThatIsPlayed) {
  for (const CommandForm& form : CommandForms()) {
    SceneSettings settings;
    const ParsedScene scene = ParseScene(LineIn(form, false));
    ASSERT_EQ(scene.commands.size(), 1u) << Usage(form);
    const bool isTaken = settings.Apply(scene.commands.front());
    EXPECT_NE(isTaken, ScenePlayer::Plays(form.verb)) << Usage(form);
    EXPECT_EQ(isTaken, IsSetting(form) && form.verb != Verb::kAds) << Usage(form);
  }
}

TEST(SceneCommand_ATime, IsADayOfTheCalendar) {
  struct {
    const char* text;
    bool good;
  } const kCases[] = {
      {"2009-03-02", true},           {"2008-02-29", true},           {"2009-03-02T23:59:59", true},
      {"1900-01-01", true},           {"9999-12-31", true},           {"1899-12-31", false},
      {"1900-02-29", false},          {"2009-13-01", false},          {"2009-00-01", false},
      {"2009-01-32", false},          {"2009-04-31", false},          {"2009-3-2", false},
      {"2009-03-02T24:00:00", false}, {"2009-03-02T00:60:00", false}, {"2009-03-02T09:00", false},
      {"2009-03-02 ", false},         {"2009-03-02T", false},         {"", false},
  };
  for (const auto& each : kCases) {
    std::int64_t time = 0;
    EXPECT_EQ(ParseTime(each.text, time), each.good) << each.text;
  }
  std::int64_t before = 0, after = 0;
  ASSERT_TRUE(ParseTime("2008-02-28T23:59:59", before) && ParseTime("2008-03-01", after));
  EXPECT_EQ(after - before, 86'400'000 + 1000);
}

TEST(SceneCommand_OddScenes, NeverCrash) {
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(STRANDLINE_SOURCE_DIR "/fuzz/corpus/scenes")) {
    std::ifstream file(entry.path(), std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    const ParsedScene scene = ParseScene(text);
    EXPECT_EQ(scene.error.empty(), scene.errorLine == 0) << entry.path();
    EXPECT_EQ(scene.error.find('\n'), std::string::npos) << entry.path();
    ++files;
  }
  EXPECT_GE(files, 10);
}

}  // namespace
}  // namespace strandline::play
