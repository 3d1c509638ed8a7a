#include "play/scene_command.h"

#include <algorithm>

#include "play/scene_grammar.h"

namespace strandline::play {

namespace {

#define EDGES "top|bottom|left|right|floating"
#define COORDINATE "-100000..100000"
#define MILLISECONDS "0..31622400000"  // up to a leap year
#define COUNT_RANGE "1..1000000000"
#define NUMBER_RANGE "-2147483648..2147483647"
#define WORD_RANGE "-2147483648..4294967295"

// A form with more words of its own stands before one that would take them for values.
constexpr CommandForm kForms[] = {
    {Verb::kWord, Phase::kSetup, "word TEXT"},
    {Verb::kProduct, Phase::kSetup, "product NAME:name"},
    {Verb::kNow, Phase::kSetup, "now TIME:time"},
    {Verb::kCommandLine, Phase::kSetup, "commandline TEXT"},
    {Verb::kSetting, Phase::kSetup, "setting NAME:name TEXT"},
    {Verb::kLumivex, Phase::kSetup, "lumivex SWITCH:on|off"},
    {Verb::kIcon, Phase::kSetup, "icon SWITCH:on|off"},
    {Verb::kComponent, Phase::kSetup, "component PROGID:name missing"},
    {Verb::kBarLate, Phase::kSetup, "bar late MS:0..2000000000"},
    {Verb::kBarHeight, Phase::kSetup, "bar height N:1..2000"},
    {Verb::kBarEdge, Phase::kSetup, "bar EDGE:" EDGES},
    {Verb::kDpi, Phase::kSetup, "dpi N:24..960"},
    {Verb::kControls, Phase::kSetup, "controls N:0..255"},
    {Verb::kCell, Phase::kAny,
     "cell N:1..255 LEFT:" COORDINATE " TOP:" COORDINATE " WIDTH:" COORDINATE " HEIGHT:" COORDINATE},
    {Verb::kTemplate, Phase::kSetup, "template NAME:name"},
    {Verb::kAds, Phase::kSetup, "ads FILE|none:name"},
    {Verb::kVerifier, Phase::kAny, "verifier N:" NUMBER_RANGE " TEXT"},
    {Verb::kClipboardHeld, Phase::kSetup, "clipboard held"},
    {Verb::kClipboard, Phase::kSetup, "clipboard KIND:rtf|text TEXT"},

    {Verb::kStart, Phase::kSetup, "start"},
    {Verb::kAfter, Phase::kAny, "after MS:" MILLISECONDS " COMMAND..."},
    {Verb::kOpen, Phase::kStarted, "open NAME:name [icon] [reading] [mail] [new]"},
    {Verb::kActivate, Phase::kStarted, "activate NAME:name"},
    {Verb::kType, Phase::kAny, "type NAME:name [N:" COUNT_RANGE "]"},
    {Verb::kClose, Phase::kStarted, "close NAME:name"},
    {Verb::kVanish, Phase::kAny, "vanish NAME:name"},
    {Verb::kCall, Phase::kStarted, "call OPERATION:name [ARG...]"},
    {Verb::kExecute, Phase::kStarted, "execute COMMAND"},
    {Verb::kMouseMove, Phase::kAny, "mouse move X:" COORDINATE " Y:" COORDINATE " [left] [shift]"},
    {Verb::kMouseDown, Phase::kAny, "mouse down"},
    {Verb::kMouseUp, Phase::kAny, "mouse up"},
    {Verb::kMouseDouble, Phase::kAny, "mouse double"},
    {Verb::kMouseRight, Phase::kAny, "mouse right"},
    {Verb::kMouseLeave, Phase::kAny, "mouse leave"},
    {Verb::kMouseOver, Phase::kAny, "mouse over NAME:name"},
    {Verb::kHover, Phase::kAny, "hover CELL:1..255"},
    {Verb::kClick, Phase::kAny, "click CELL:1..255"},
    {Verb::kPick, Phase::kAny, "pick CAPTION:name"},
    {Verb::kMacro, Phase::kAny, "macro CELL:1..255 COMMAND..."},
    {Verb::kSend, Phase::kAny, "send MSG:" WORD_RANGE " WPARAM:" WORD_RANGE " LPARAM:" WORD_RANGE},
    {Verb::kResize, Phase::kAny, "resize W:0..32767 H:0..32767"},
    {Verb::kDock, Phase::kAny, "dock EDGE:" EDGES},
    {Verb::kMinimise, Phase::kAny, "minimise NAME:name"},
    {Verb::kRestore, Phase::kAny, "restore NAME:name"},
    {Verb::kBookmark, Phase::kAny, "bookmark NAME:name SWITCH:on|off"},
    {Verb::kCover, Phase::kAny, "cover"},
    {Verb::kUncover, Phase::kAny, "uncover"},
    {Verb::kDrop, Phase::kAny, "drop CELL:1..255 SWITCH:on|off"},
    {Verb::kValue, Phase::kAny, "value SCOPE:user|global|document KEY:name TEXT"},
    {Verb::kVariable, Phase::kAny, "variable KEY:name TEXT"},
    {Verb::kEmail, Phase::kAny, "email SWITCH:on|off"},
    {Verb::kRename, Phase::kStarted, "rename NAME:name"},
    {Verb::kRibbonRun, Phase::kStarted, "ribbon run COMMAND"},
    {Verb::kRibbonIcon, Phase::kStarted, "ribbon icon INDEX:-32768..32767"},
    {Verb::kAnswerBox, Phase::kAny, "answer box BUTTON:ok|yes|no|cancel"},
    {Verb::kAnswerError, Phase::kAny, "answer error N:" NUMBER_RANGE "..."},
    {Verb::kFailWindow, Phase::kAny, "fail window CALL:name [COUNT:" COUNT_RANGE "]"},
    {Verb::kFail, Phase::kAny, "fail OBJECT:name MEMBER:name [COUNT:" COUNT_RANGE " [NUMBER:" NUMBER_RANGE "]]"},
    {Verb::kLibrary, Phase::kStarted, "library FILE|none:name [aborted]"},
    {Verb::kWait, Phase::kAny, "wait MS:" MILLISECONDS},
    {Verb::kShotDesk, Phase::kAny, "shot desk FILE.png:png"},
    {Verb::kShot, Phase::kAny, "shot FILE.png:png"},
    {Verb::kState, Phase::kAny, "state"},
    {Verb::kMark, Phase::kAny, "mark"},
    {Verb::kExpectPixel, Phase::kAny, "expect pixel X:" COORDINATE " Y:" COORDINATE " RRGGBB:rgb"},
    {Verb::kExpect, Phase::kAny, "expect [N:0..1000000000] KIND:kind [FIELD=TEXT:pair...]"},
    {Verb::kThen, Phase::kAny, "then KIND:kind [FIELD=TEXT:pair...]"},
    {Verb::kQuit, Phase::kStarted, "quit"},
};

constexpr std::string_view kTimeUsage = "YYYY-MM-DD[THH:MM:SS]";
// Commands in commands: far beyond any use, and the end of what a line can nest.
constexpr int kDeepestInner = 16;

std::string_view FirstWord(const CommandForm& form) {
  const std::string_view grammar = form.grammar;
  return grammar.substr(0, grammar.find(' '));
}

const std::vector<GrammarElement>& GrammarOf(const CommandForm& form) {
  static const std::vector<std::vector<GrammarElement>> kGrammars = [] {
    std::vector<std::vector<GrammarElement>> all;
    for (const CommandForm& each : kForms) all.push_back(ReadGrammar(each.grammar));
    return all;
  }();
  return kGrammars[static_cast<std::size_t>(&form - kForms)];
}

std::string KnownCommands() {
  std::string list;
  std::string_view last;
  for (const CommandForm& form : kForms) {
    if (FirstWord(form) == last) continue;
    last = FirstWord(form);
    list.append(list.empty() ? "" : ", ").append(last);
  }
  return list;
}

// The form whose own words these are; null where the first word is no command's, or where each form of that command
// asks for another second word.
const CommandForm* FindForm(std::span<const SceneWord> words, std::string& usages) {
  for (const CommandForm& form : kForms) {
    if (FirstWord(form) != words[0].text) continue;
    usages.append(usages.empty() ? "" : " or ").append(Usage(form));
    const auto& grammar = GrammarOf(form);
    const std::size_t literals = LeadingLiterals(grammar);
    if (words.size() < literals) continue;
    bool same = true;
    for (std::size_t i = 0; i < literals; ++i) same = same && grammar[i].name == words[i].text;
    if (same) return &form;
  }
  return nullptr;
}

}  // namespace

std::span<const CommandForm> CommandForms() { return kForms; }

std::string Usage(const CommandForm& form) {
  std::string usage;
  std::string_view rest = form.grammar;
  for (const GrammarElement& element : GrammarOf(form)) {
    const std::string_view piece = rest.substr(0, rest.find(' '));
    rest.remove_prefix(std::min(rest.size(), piece.size() + 1));
    if (!usage.empty()) usage += ' ';
    if (piece.starts_with('[')) usage += '[';
    usage += element.type == "time"                          ? kTimeUsage
             : element.kind == GrammarElement::Kind::kChoice ? element.type
                                                             : element.name;
    if (element.rest) usage += "...";
    usage.append(piece.size() - std::min(piece.size(), piece.find_last_not_of(']') + 1), ']');
  }
  return usage;
}

const CommandValue* Command::Find(std::string_view slot) const {
  for (const CommandValue& value : values) {
    if (value.slot == slot) return &value;
  }
  return nullptr;
}

const std::string& Command::Text(std::string_view slot) const {
  static const std::string kNone;
  const CommandValue* value = Find(slot);
  return value ? value->text : kNone;
}

std::int64_t Command::Number(std::string_view slot, std::int64_t otherwise) const {
  const CommandValue* value = Find(slot);
  return value ? value->number : otherwise;
}

namespace {

ParsedCommand ParseCommand(std::span<const SceneWord> words, int line, int depth) {
  ParsedCommand parsed;
  std::string usages;
  const CommandForm* form = FindForm(words, usages);
  if (!form) {
    if (usages.empty()) {
      parsed.error = "unknown command " + Quoted(words[0].text) + "; known commands are: " + KnownCommands();
    } else {
      const std::string wrong = words.size() > 1 ? Quoted(words[1].text) + " isn't known here" : "a word is missing";
      parsed.error = wrong + "; usage: " + usages;
    }
    return parsed;
  }
  parsed.command.form = form;
  parsed.command.line = line;
  const auto& grammar = GrammarOf(*form);
  const auto values = words.subspan(LeadingLiterals(grammar));
  parsed.error = MatchWords(grammar, values, parsed.command);
  if (!parsed.error.empty()) {
    parsed.error += "; usage: " + Usage(*form);
  } else if (form->verb == Verb::kAfter || form->verb == Verb::kMacro) {
    const std::string word(FirstWord(*form));
    if (depth == kDeepestInner) {
      parsed.error = word + " stands in itself too often; " + std::to_string(kDeepestInner) + " times are allowed";
      return parsed;
    }
    ParsedCommand inner = ParseCommand(values.subspan(1), line, depth + 1);
    parsed.error = std::move(inner.error);
    if (parsed.error.empty() && IsSetting(*inner.command.form)) {
      parsed.error = "\"" + Usage(*inner.command.form) + "\" can't wait for its time; it must stand before start";
    }
    parsed.command.inner = std::make_shared<const Command>(std::move(inner.command));
  }
  return parsed;
}

}  // namespace

ParsedCommand ParseCommand(std::span<const SceneWord> words, int line) { return ParseCommand(words, line, 0); }

ParsedScene ParseScene(std::string_view text) {
  ParsedScene scene;
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  for (int line = 1; !text.empty(); ++line) {
    const std::size_t end = text.find('\n');
    LexResult lexed = LexLine(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    scene.error = std::move(lexed.error);
    if (scene.error.empty() && !lexed.words.empty()) {
      ParsedCommand parsed = ParseCommand(lexed.words, line);
      scene.error = std::move(parsed.error);
      if (scene.error.empty()) scene.commands.push_back(std::move(parsed.command));
    }
    if (!scene.error.empty()) {
      scene.errorLine = line;
      return scene;
    }
  }
  return scene;
}

}  // namespace strandline::play
