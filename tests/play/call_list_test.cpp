#include "play/call_list.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

namespace strandline::play {
namespace {

class Calls : public testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(mCalls.emplace().Open(mPath), ""); }
  void TearDown() override { std::filesystem::remove(mPath); }

  std::string Text() {
    mCalls.reset();
    std::ifstream file(mPath, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  const std::string mPath = testing::TempDir() + "strandline_calls.jsonl";
  std::optional<CallList> mCalls;
};

TEST_F(Calls, OfTheFourKinds_AreListedWithoutTimeAndWithSmallMembers) {
  Journal journal(
      nullptr, [] { return 17; }, false);
  journal.SetCalls(&*mCalls);
  journal.Add("object", Json{{"object", "Documents"}, {"member", "Count"}, {"value", 2}});
  journal.Add("create", Json{{"progid", "A.B"}, {"ok", true}});
  journal.Add("box", Json{{"text", "x"}});
  journal.Add("result", Json{{"of", "close"}});
  for (const char* kind : {"window", "hook", "message", "log", "picture", "paint", "state"}) {
    journal.Add(kind, Json{{"member", "Count"}});
  }
  journal.Stop();
  journal.Add("result", Json{{"of", "execute"}});
  EXPECT_EQ(Text(),
            "{\"kind\":\"object\",\"object\":\"Documents\",\"member\":\"count\",\"value\":2}\n"
            "{\"kind\":\"create\",\"progid\":\"A.B\",\"ok\":true}\n"
            "{\"kind\":\"box\",\"text\":\"x\"}\n"
            "{\"kind\":\"result\",\"of\":\"close\"}\n");
}

TEST_F(Calls, WhileTheSystemHasItsTurn_AreLeftOut) {
  {
    const CallList::SystemsTurn outer(*mCalls);
    { const CallList::SystemsTurn inner(*mCalls); }
    mCalls->Add("result", Json{{"of", "close"}});
  }
  mCalls->Add("result", Json{{"of", "execute"}});
  EXPECT_EQ(Text(), "{\"kind\":\"result\",\"of\":\"execute\"}\n");
}

TEST_F(Calls, ThatMixPictures_DontTellTheContextsOfAWorld) {
  const Json arguments = Json::array({"dc 4", 0, 0, "dc 2", 77, "0.1"});
  mCalls->Add("object", Json{{"object", "AlphaBlender.Main2"}, {"member", "AlphaBlend"}, {"args", arguments}});
  mCalls->Add("object", Json{{"object", "AlphaBlender.Main2"}, {"member", "Create"}, {"args", Json::array({223, 32})}});
  mCalls->Add("object", Json{{"object", "AlphaBlender.Main2"}, {"member", "alphablend"}, {"args", Json::array({1})}});
  EXPECT_EQ(Text(),
            "{\"kind\":\"object\",\"object\":\"AlphaBlender.Main2\",\"member\":\"alphablend\","
            "\"args\":[\"dc\",0,0,\"dc\",\"dc\",\"0.1\"]}\n"
            "{\"kind\":\"object\",\"object\":\"AlphaBlender.Main2\",\"member\":\"create\",\"args\":[223,32]}\n"
            "{\"kind\":\"object\",\"object\":\"AlphaBlender.Main2\",\"member\":\"alphablend\",\"args\":[\"dc\"]}\n");
}

TEST_F(Calls, OfAWorldWithValuesOfItsOwn_AreNormalised) {
  mCalls->SetNormaliser([](Json& line) { line["args"][0] = "1"; });
  mCalls->Add("object", Json{{"member", "Item"}, {"args", Json::array({"90210"})}});
  EXPECT_EQ(Text(), "{\"kind\":\"object\",\"member\":\"item\",\"args\":[\"1\"]}\n");
}

TEST(CallList_TheSystemsMessages, ArePaintsAndTimers) {
  const struct {
    Long message;
    bool isSystems;
  } kCases[] = {{15, true}, {275, true},  {20, true},   {133, true},
                {5, false}, {512, false}, {533, false}, {0x400, false}};
  for (const auto& each : kCases) EXPECT_EQ(CallList::IsSystems(each.message), each.isSystems) << each.message;
}

}  // namespace
}  // namespace strandline::play
