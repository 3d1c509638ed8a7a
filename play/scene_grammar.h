#pragma once

// The grammar of one form of a command, read from its text in the table of commands, and the matching of words against
// it.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "play/scene_command.h"

namespace strandline::play {

struct GrammarElement {
  enum class Kind { kLiteral, kFlag, kChoice, kNumber, kText };
  Kind kind = Kind::kText;
  bool optional = false;
  bool rest = false;  // takes all words that follow
  std::string_view name;
  std::string_view type;
  std::int64_t lowest = 0;
  std::int64_t highest = 0;
};

std::vector<GrammarElement> ReadGrammar(std::string_view grammar);

// What is wrong with `text` as this element, or nothing.
std::string CheckValue(const GrammarElement& element, const std::string& text, std::int64_t& number);

// Fills the command's values and rest from the words behind those that name the form. The error, or nothing.
std::string MatchWords(const std::vector<GrammarElement>& grammar, std::span<const SceneWord> words, Command& command);

// How many words of the grammar, from the first, name the form: its leading literals.
std::size_t LeadingLiterals(const std::vector<GrammarElement>& grammar);

// A word of a scene for an error line: in quotes, without control characters, cut where it is long.
std::string Quoted(std::string_view text);

}  // namespace strandline::play
