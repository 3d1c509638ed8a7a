#include "play/scene_grammar.h"

#include "play/journal_kinds.h"

namespace strandline::play {

// As a terminal can show it: one line, no controls, no more than tells what is meant.
std::string Quoted(std::string_view text) {
  constexpr std::size_t kMost = 100;
  std::string shown(text.substr(0, kMost));
  for (char& c : shown) {
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) c = '?';
  }
  return "\"" + shown + (text.size() > kMost ? "…" : "") + "\"";
}

namespace {

using Kind = GrammarElement::Kind;

bool IsLowerCase(std::string_view text) { return !text.empty() && text[0] >= 'a' && text[0] <= 'z'; }

GrammarElement ReadElement(std::string_view piece, bool optional) {
  GrammarElement element;
  element.optional = optional;
  if (piece.ends_with("...")) {
    element.rest = true;
    piece.remove_suffix(3);
  }
  const std::size_t colon = piece.find(':');
  element.name = piece.substr(0, colon);
  if (colon != std::string_view::npos) element.type = piece.substr(colon + 1);
  const std::size_t range = element.type.find("..");
  if (element.type.find('|') != std::string_view::npos) {
    element.kind = Kind::kChoice;
  } else if (range != std::string_view::npos) {
    element.kind = Kind::kNumber;
    ParseNumber(element.type.substr(0, range), element.lowest);
    ParseNumber(element.type.substr(range + 2), element.highest);
  } else if (IsLowerCase(element.name)) {
    element.kind = optional ? Kind::kFlag : Kind::kLiteral;
  }
  return element;
}

bool IsChoice(std::string_view choices, std::string_view text) {
  while (!choices.empty()) {
    const std::size_t bar = choices.find('|');
    if (choices.substr(0, bar) == text) return true;
    choices.remove_prefix(bar == std::string_view::npos ? choices.size() : bar + 1);
  }
  return false;
}

bool IsHexColour(std::string_view text) {
  return text.size() == 6 && text.find_first_not_of("0123456789abcdefABCDEF") == std::string_view::npos;
}

std::string CheckText(const GrammarElement& element, const std::string& text, std::int64_t& number) {
  const std::string name(element.name);
  if (element.type == "name" && text.empty()) return name + " is empty; give a name";
  if (element.type == "png" && (text.size() < 5 || !text.ends_with(".png"))) {
    return name + " must be a file name that ends with .png, not " + Quoted(text);
  }
  if (element.type == "rgb") {
    if (!IsHexColour(text)) return name + " must be six hexadecimal digits, not " + Quoted(text);
    return ParseNumber("0x" + text, number) ? "" : name;
  }
  if (element.type == "time" && !ParseTime(text, number)) {
    return name + " must be a day from 1900 to 9999 as YYYY-MM-DD or YYYY-MM-DDTHH:MM:SS, not " + Quoted(text);
  }
  if (element.type == "kind" && !IsJournalKind(text)) {
    return Quoted(text) + " is no kind of journal line; the kinds are: " + JournalKindList();
  }
  if (element.type == "pair" && (text.find('=') == std::string::npos || text[0] == '=')) {
    return "a field must be given as FIELD=TEXT, not " + Quoted(text);
  }
  return "";
}

std::string Missing(const GrammarElement& element) {
  if (element.kind == Kind::kLiteral) return "the word " + Quoted(element.name) + " is missing";
  return std::string(element.kind == Kind::kChoice ? element.type : element.name) + " is missing";
}

// An optional number in front of something that must come is left out when the word there is no number.
bool IsLeftOut(const std::vector<GrammarElement>& grammar, std::size_t at, std::string_view word) {
  if (!grammar[at].optional || grammar[at].kind != Kind::kNumber || word.empty()) return false;
  const bool looksLikeNumber = (word[0] >= '0' && word[0] <= '9') || word[0] == '-' || word[0] == '+';
  if (looksLikeNumber) return false;
  for (std::size_t i = at + 1; i < grammar.size(); ++i) {
    if (!grammar[i].optional) return true;
  }
  return false;
}

class Matcher {
 public:
  Matcher(const std::vector<GrammarElement>& grammar, std::span<const SceneWord> words, Command& command)
      : mGrammar(grammar), mWords(words), mCommand(command) {}

  std::string Run() {
    for (std::size_t at = LeadingLiterals(mGrammar); at < mGrammar.size();) {
      if (mGrammar[at].kind == Kind::kFlag) {
        at = TakeFlags(at);
        continue;
      }
      const std::string error = Take(at++);
      if (!error.empty()) return error;
    }
    return mNext < mWords.size() ? Quoted(mWords[mNext].text) + " is too much" : "";
  }

 private:
  // Flags that stand side by side come in any order, each once.
  std::size_t TakeFlags(std::size_t at) {
    std::size_t end = at;
    while (end < mGrammar.size() && mGrammar[end].kind == Kind::kFlag) ++end;
    while (mNext < mWords.size()) {
      std::size_t flag = at;
      while (flag < end && (mGrammar[flag].name != mWords[mNext].text || mCommand.Has(mGrammar[flag].name))) ++flag;
      if (flag == end) break;
      mCommand.values.push_back({mGrammar[flag].name, mWords[mNext++].text});
    }
    return end;
  }

  std::string Take(std::size_t at) {
    const GrammarElement& element = mGrammar[at];
    if (mNext == mWords.size()) return element.optional ? "" : Missing(element);
    if (element.kind == Kind::kLiteral) {
      if (mWords[mNext].text != element.name) {
        return Quoted(mWords[mNext].text) + " stands where " + Quoted(element.name) + " belongs";
      }
      ++mNext;
      return "";
    }
    if (IsLeftOut(mGrammar, at, mWords[mNext].text)) return "";
    do {
      CommandValue value{element.name, mWords[mNext++].text};
      const std::string error = CheckValue(element, value.text, value.number);
      if (!error.empty()) return error;
      if (element.rest) {
        mCommand.rest.push_back(std::move(value.text));
      } else {
        mCommand.values.push_back(std::move(value));
      }
    } while (element.rest && mNext < mWords.size());
    return "";
  }

  const std::vector<GrammarElement>& mGrammar;
  std::span<const SceneWord> mWords;
  Command& mCommand;
  std::size_t mNext = 0;
};

}  // namespace

std::vector<GrammarElement> ReadGrammar(std::string_view grammar) {
  std::vector<GrammarElement> elements;
  bool optional = false;
  while (!grammar.empty()) {
    const std::size_t blank = grammar.find(' ');
    std::string_view piece = grammar.substr(0, blank);
    grammar.remove_prefix(blank == std::string_view::npos ? grammar.size() : blank + 1);
    if (piece.starts_with('[')) {
      optional = true;
      piece.remove_prefix(1);
    }
    const bool ends = piece.ends_with(']');
    while (piece.ends_with(']')) piece.remove_suffix(1);
    elements.push_back(ReadElement(piece, optional));
    if (ends) optional = false;
  }
  return elements;
}

std::string CheckValue(const GrammarElement& element, const std::string& text, std::int64_t& number) {
  if (element.kind == Kind::kChoice && !IsChoice(element.type, text)) {
    return Quoted(text) + " stands where one of " + std::string(element.type) + " belongs";
  }
  if (element.kind == Kind::kNumber) {
    if (ParseNumber(text, number) && number >= element.lowest && number <= element.highest) return "";
    return std::string(element.name) + " must be a whole number from " + std::to_string(element.lowest) + " to " +
           std::to_string(element.highest) + ", not " + Quoted(text);
  }
  return element.kind == Kind::kText ? CheckText(element, text, number) : "";
}

std::string MatchWords(const std::vector<GrammarElement>& grammar, std::span<const SceneWord> words, Command& command) {
  return Matcher(grammar, words, command).Run();
}

std::size_t LeadingLiterals(const std::vector<GrammarElement>& grammar) {
  std::size_t count = 0;
  while (count < grammar.size() && grammar[count].kind == Kind::kLiteral) ++count;
  return count;
}

}  // namespace strandline::play
