#include "play/scene_lexer.h"

#include <gtest/gtest.h>

namespace strandline::play {
namespace {

std::string WordsOf(std::string_view line) {
  std::string joined;
  for (const SceneWord& word : LexLine(line).words) joined += "<" + word.text + ">";
  return joined;
}

struct LineCase {
  const char* line;
  const char* words;
};

TEST(SceneLexer_ALine, FallsIntoWordsAtBlanks) {
  const LineCase kCases[] = {
      {"", ""},
      {"   \t ", ""},
      {"start", "<start>"},
      {"  open\tA.doc   icon ", "<open><A.doc><icon>"},
      {"wait 5\r", "<wait><5>"},
      {"# all of it", ""},
      {"start # behind", "<start>"},
      {"open A#1.doc", "<open><A#1.doc>"},
      {"open \"#1.doc\"", "<open><#1.doc>"},
      {"\"a b\"", "<a b>"},
      {"text=\"a b\"c d", "<text=a bc><d>"},
      {"\"\"", "<>"},
      {"a\"\"b", "<ab>"},
      {"\"say \\\"hi\\\"\"", "<say \"hi\">"},
      {"\"C:\\Program Files\\\\\"", "<C:\\Program Files\\>"},
      {"back\\slash \\\"x\"", "<back\\slash><\\x>"},
      {"\"# no comment\"", "<# no comment>"},
      {"\xC3\xA9t\xC3\xA9 \xF0\x9F\x98\x80", "<\xC3\xA9t\xC3\xA9><\xF0\x9F\x98\x80>"},
  };
  for (const LineCase& each : kCases) {
    EXPECT_EQ(LexLine(each.line).error, "") << each.line;
    EXPECT_EQ(WordsOf(each.line), each.words) << each.line;
  }
}

TEST(SceneLexer_AWord, KnowsItsColumn) {
  const auto words = LexLine("  ab \"c d\"  e").words;
  ASSERT_EQ(words.size(), 3u);
  EXPECT_EQ(words[0].column, 3);
  EXPECT_EQ(words[1].column, 6);
  EXPECT_EQ(words[2].column, 13);
}

TEST(SceneLexer_AWrongLine, IsNamedAndGivesNoWords) {
  struct {
    std::string_view line;
    const char* error;
  } const kCases[] = {
      {"open \"A.doc", "the quote opened at column 6 isn't closed; close it with \" (inside, \\\" stands for a quote)"},
      {"\"", "the quote opened at column 1 isn't closed; close it with \" (inside, \\\" stands for a quote)"},
      {"\"a\\\"", "the quote opened at column 1 isn't closed; close it with \" (inside, \\\" stands for a quote)"},
      {"a\"b\"\"", "the quote opened at column 5 isn't closed; close it with \" (inside, \\\" stands for a quote)"},
      {"open \xFF", "the line isn't UTF-8 text; save the scene as UTF-8"},
      {"# \xC3", "the line isn't UTF-8 text; save the scene as UTF-8"},
      {{"a\0b", 3}, "the line holds a NUL character; a scene is plain text"},
  };
  for (const auto& each : kCases) {
    const LexResult result = LexLine(each.line);
    EXPECT_EQ(result.error, each.error);
    EXPECT_TRUE(result.words.empty());
  }
}

TEST(SceneLexer_Utf8, IsTakenWholeOrNotAtAll) {
  for (const char* good : {"", "a", "\xC2\x80", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xF4\x8F\xBF\xBF"}) {
    EXPECT_TRUE(IsUtf8(good)) << good;
  }
  for (const char* bad : {"\x80", "\xC1\x81", "\xE0\x80\x80", "\xED\xA0\x80", "\xF0\x80\x80\x80", "\xF4\x90\x80\x80",
                          "\xF5\x80\x80\x80", "\xE2\x82", "\xC3("}) {
    EXPECT_FALSE(IsUtf8(bad));
  }
}

}  // namespace
}  // namespace strandline::play
