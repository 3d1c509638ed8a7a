#pragma once

// One line of a scene into its words. Words are separated by blanks; double quotes, opened anywhere in a word, keep
// blanks in it, with \" and \\ inside (any other backslash stands for itself, as in a path). A # at the start of a word
// begins a comment.

#include <string>
#include <string_view>
#include <vector>

namespace strandline::play {

struct SceneWord {
  std::string text;
  int column = 0;  // of its first character, in bytes from 1
  friend bool operator==(const SceneWord&, const SceneWord&) = default;
};

struct LexResult {
  std::vector<SceneWord> words;
  std::string error;  // what is wrong and what would be right; empty when nothing is
};

LexResult LexLine(std::string_view line);

// True for text that is whole UTF-8: no stray, overlong or surrogate sequence.
bool IsUtf8(std::string_view text);

}  // namespace strandline::play
