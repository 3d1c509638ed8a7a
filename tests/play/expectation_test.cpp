#include "play/expectation.h"

#include <gtest/gtest.h>

namespace strandline::play {
namespace {

TEST(Expectation_APattern, MatchesTextWithStars) {
  const struct {
    const char* pattern;
    const char* text;
    bool matches;
  } kCases[] = {
      {"", "", true},          {"", "a", false},           {"*", "", true},
      {"*", "anything", true}, {"abc", "abc", true},       {"abc", "abcd", false},
      {"abc", "ab", false},    {"a*c", "abbc", true},      {"a*c", "ac", true},
      {"a*c", "acb", false},   {"*b*", "abc", true},       {"*b*b*", "abc", false},
      {"*ab", "aab", true},    {"a*b*c", "aXbYbZc", true}, {"**", "x", true},
      {"Abc", "abc", false},   {"a.c", "abc", false},      {"[\"bar *\",4096,*]", "[\"bar 1\",4096,5000]", true},
  };
  for (const auto& each : kCases) {
    EXPECT_EQ(MatchesPattern(each.pattern, each.text), each.matches) << each.pattern << " on " << each.text;
  }
}

TEST(Expectation_APath, LeadsIntoObjectsAndArrays) {
  const Json line = Json::parse(
      R"({"args":["bar 1",4096,{"Show":true}],"value":{"Main2":{"mSmallToolbar":false,"mRect.left":3},"a.b":{"c":1}}})");
  const struct {
    const char* path;
    const char* found;  // null: nothing
  } kCases[] = {
      {"args", "[\"bar 1\",4096,{\"Show\":true}]"},
      {"args.0", "\"bar 1\""},
      {"args.1", "4096"},
      {"args.2.Show", "true"},
      {"value.Main2.mSmallToolbar", "false"},
      {"value.Main2.mRect.left", "3"},
      {"value.a.b.c", "1"},
      {"args.3", nullptr},
      {"args.x", nullptr},
      {"args.1.0", nullptr},
      {"args.0x", nullptr},
      {"args.", nullptr},
      {"args.99999999999999999999", nullptr},
      {"value.main2.mSmallToolbar", nullptr},
      {"value.Main2.mSmallToolbar.x", nullptr},
      {"", nullptr},
      {".", nullptr},
  };
  for (const auto& each : kCases) {
    const Json* found = FindField(line, each.path);
    EXPECT_EQ(found ? CompactJson(*found) : "nothing", each.found ? each.found : "nothing") << each.path;
  }
}

// A journal of these lines, each after its kind.
class ExpectationOnAJournal : public testing::Test {
 protected:
  void Add(const char* kind, const char* fields) { mJournal.Add(kind, Json::parse(fields)); }
  std::string Expect(std::optional<std::size_t> exactly, const char* kind, std::vector<std::string> fields = {}) {
    return mState.Expect(exactly, Expectation(kind, fields));
  }
  std::string Then(const char* kind, std::vector<std::string> fields = {}) {
    return mState.Then(Expectation(kind, fields));
  }

  Journal mJournal{nullptr, [] { return 7; }, true};
  ExpectationState mState{mJournal};
};

TEST_F(ExpectationOnAJournal, AsksForKindAndAllFields) {
  Add("object", R"({"object":"control 3","op":"get","member":"Left","args":[],"value":12})");
  EXPECT_EQ(Expect({}, "object", {"object=CONTROL 3", "member=left", "value=12"}), "");
  EXPECT_EQ(Expect({}, "object", {"at=7", "args=[]"}), "");
  EXPECT_NE(Expect({}, "object", {"op=Get"}), "");
  EXPECT_NE(Expect({}, "object", {"value=1"}), "");
  EXPECT_NE(Expect({}, "object", {"error=*"}), "");
  EXPECT_NE(Expect({}, "window"), "");
}

TEST_F(ExpectationOnAJournal, CountsExactlyWhereANumberIsGiven) {
  Add("log", R"({"level":0,"text":"a"})");
  Add("log", R"({"level":0,"text":"a"})");
  EXPECT_EQ(Expect(2, "log", {"text=a"}), "");
  EXPECT_EQ(Expect(0, "log", {"text=b"}), "");
  EXPECT_EQ(Expect(1, "log", {"text=a"}), "1 log text=a, found 2 lines (2 of that kind)");
  EXPECT_EQ(Expect(3, "log", {"text=a", "level=0"}), "3 log text=a level=0, found 2 lines (2 of that kind)");
}

TEST_F(ExpectationOnAJournal, TellsTheNearestLineOfAFailure) {
  Add("log", R"({"level":0,"text":"a"})");
  Add("log", R"({"level":1,"text":"b c"})");
  Add("box", R"({"text":"b c"})");
  EXPECT_EQ(Expect({}, "log", {"text=b c", "level=2"}),
            "log text=\"b c\" level=2, found 0 lines (2 of that kind); the nearest: "
            R"({"at":7,"kind":"log","level":1,"text":"b c"})");
}

TEST_F(ExpectationOnAJournal, LooksOnlyBehindTheMark) {
  Add("log", R"({"text":"a"})");
  mState.Mark();
  EXPECT_NE(Expect({}, "log", {"text=a"}), "");
  Add("log", R"({"text":"a"})");
  EXPECT_EQ(Expect(1, "log", {"text=a"}), "");
}

TEST_F(ExpectationOnAJournal, GoesOnBehindTheLineFound) {
  for (const char* text : {"a", "b", "a", "c", "b"}) Add("log", (R"({"text":")" + std::string(text) + "\"}").c_str());
  EXPECT_EQ(Expect({}, "log", {"text=a"}), "");  // the first of them
  EXPECT_EQ(Then("log", {"text=a"}), "");
  EXPECT_EQ(Then("log", {"text=b"}), "");
  EXPECT_NE(Then("log", {"text=c"}), "");
  EXPECT_EQ(Expect(2, "log", {"text=a"}), "");  // the last of them
  EXPECT_EQ(Then("log", {"text=c"}), "");
  EXPECT_NE(Then("log", {"text=a"}), "");
}

TEST_F(ExpectationOnAJournal, GoesOnBehindTheLineFoundAcrossAMark) {
  Add("log", R"({"text":"a"})");
  Add("log", R"({"text":"b"})");
  EXPECT_FALSE(mState.CanContinue());
  EXPECT_EQ(Expect({}, "log", {"text=a"}), "");
  EXPECT_TRUE(mState.CanContinue());
  mState.Mark();
  EXPECT_EQ(Then("log", {"text=b"}), "");
}

TEST(Journal_AStoppedOne, TakesNothingMore) {
  Journal journal(
      nullptr, [] { return 0; }, true);
  journal.Add("log", Json{{"text", "a"}});
  journal.Stop();
  journal.Add("log", Json{{"text", "b"}});
  EXPECT_EQ(journal.Count(), 1u);
  EXPECT_EQ(journal.At(0).text, R"({"at":0,"kind":"log","text":"a"})");
}

}  // namespace
}  // namespace strandline::play
