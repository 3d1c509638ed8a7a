#include "play/command_line.h"

#include <gtest/gtest.h>

#include <vector>

namespace strandline::play {
namespace {

CommandLine Parsed(const std::vector<const char*>& words) {
  return ParseCommandLine(words, {"usage: as one likes", {"--module"}});
}

std::string Parse(const std::vector<const char*>& words) {
  const CommandLine line = Parsed(words);
  return line.error.empty() ? line.scene + " | " + line.journal + " | " + line.out : line.error;
}

TEST(CommandLine_Words, NameSceneJournalAndFolder) {
  const struct {
    std::vector<const char*> words;
    const char* parsed;
  } kCases[] = {
      {{"play", "a.scene"}, "a.scene | - | ."},
      {{"play", "a.scene", "--journal", "-"}, "a.scene | - | ."},
      {{"play", "a.scene", "--journal", "j.jsonl"}, "a.scene | j.jsonl | ."},
      {{"play", "--journal", "x/y/j.jsonl", "a.scene"}, "a.scene | x/y/j.jsonl | x/y"},
      {{"play", "a.scene", "--out", "d", "--journal", "x/j"}, "a.scene | x/j | d"},
      {{"play", "-"}, "- | - | ."},
  };
  for (const auto& each : kCases) EXPECT_EQ(Parse(each.words), each.parsed);
}

TEST(CommandLine_AnOptionOfTheProgramsOwn, StandsApart) {
  const CommandLine line = Parsed({"play", "--module", "x.dll", "a"});
  EXPECT_EQ(line.scene, "a");
  EXPECT_EQ(line.further, (std::map<std::string, std::string>{{"--module", "x.dll"}}));
  EXPECT_TRUE(Parsed({"play", "a"}).further.empty());
}

TEST(CommandLine_AWrongOne, SaysWhatIsWrongAndTheUsage) {
  const struct {
    std::vector<const char*> words;
    const char* wrong;
  } kCases[] = {
      {{}, "no command is given"},
      {{"perform", "a"}, "unknown command \"perform\""},
      {{"play"}, "no scene is given"},
      {{"play", ""}, "no scene is given"},
      {{"play", "a", "b"}, "\"b\" is too much, one scene is played"},
      {{"play", "a", "--journal"}, "--journal needs a name behind it"},
      {{"play", "a", "--out", ""}, "--out needs a name behind it"},
      {{"play", "a", "--out", "x", "--out", "y"}, "--out is given twice"},
      {{"play", "a", "--module"}, "--module needs a name behind it"},
      {{"play", "a", "--module", "x", "--module", "y"}, "--module is given twice"},
      {{"play", "a", "--fast"}, "unknown option \"--fast\""},
  };
  for (const auto& each : kCases) {
    EXPECT_EQ(Parse(each.words), std::string(each.wrong) + "; usage: as one likes");
  }
}

}  // namespace
}  // namespace strandline::play
