// A world that can't do all that a scene may ask for.

#include <gtest/gtest.h>

#include "desk/desk_session.h"
#include "desk/watchdog.h"
#include "play/scene_player.h"
#include "wordsim/product.h"

namespace strandline::play {
namespace {

// The desk, but for what it pretends not to have.
class LackingSession final : public Session {
 public:
  explicit LackingSession(const SceneSettings& settings, bool keepLines) : mDesk(settings, nullptr, keepLines) {
    World().TheProduct().SetLibraryCheck(nullptr);
  }

  Journal& TheJournal() override { return mDesk.TheJournal(); }
  const JournalNaming& Naming() const override { return mDesk.Naming(); }
  LibraryWatch& Watch() override { return mDesk.Watch(); }
  wordsim::WordWorld& World() override { return mDesk.World(); }
  HostClock& Clock() override { return mDesk.Clock(); }
  HostMouse& Mouse() override { return mDesk.Mouse(); }
  std::string Start() override {
    if (World().TheSettings().productName == u"Nowhere") return "there is no library; install one";
    return mDesk.Start();
  }
  bool IsStarted() const override { return mDesk.IsStarted(); }
  Object Main2() const override { return mDesk.Main2(); }
  void Unload() override { mDesk.Unload(); }
  std::string ServeAdLibrary(const AdLibraryFile* file) override { return file ? "" : "there is no room; make some"; }
  Object AdCallback() override { return {}; }
  void Schedule(std::int64_t milliseconds, std::function<void()> work) override {
    mDesk.Schedule(milliseconds, std::move(work));
  }
  std::string WhereStuck() const override { return mDesk.WhereStuck(); }
  std::string Unsupported(Verb verb) const override { return verb == Verb::kState ? "nothing is to be seen" : ""; }
  bool Hears(std::string_view kind) const override { return kind == "result" || kind == "object"; }
  Json State() override { return nullptr; }
  std::string ArmFailure(const std::string& call, int count) override { return mDesk.ArmFailure(call, count); }
  String IdentityOf(wordsim::Document& document) override { return mDesk.IdentityOf(document); }
  std::optional<std::uint32_t> BarPixel(Long, Long) override { return std::nullopt; }
  std::string WriteBarPicture(const std::string&) override { return "there is no paper; buy some"; }
  std::string WriteDeskPicture(const std::string&) override { return ""; }

 private:
  deskprogram::DeskSession mDesk;
};

struct Played {
  Outcome outcome;
  std::string messages;
  int unchecked;
};

Played Play(const std::string& text) {
  const ParsedScene scene = ParseScene(text);
  EXPECT_EQ(scene.error, "");
  deskprogram::CpuWatchdog watchdog(nullptr);
  const SessionMaker make = [](const SceneSettings& settings, bool keepLines) {
    return std::make_unique<LackingSession>(settings, keepLines);
  };
  ScenePlayer player(scene, {"a.scene", testing::TempDir()}, make, watchdog);
  std::vector<std::string> lines;
  Played run{player.Play(lines), "", 0};
  for (const std::string& line : lines) run.messages += line + "\n";
  run.unchecked = player.Unchecked();
  return run;
}

TEST(LackingWorld_ACommandThatItCantPlay, IsWrongAndSaysWhyInOneLine) {
  const Played run = Play("start\nopen A.doc\nstate\n");
  EXPECT_EQ(run.outcome, Outcome::kWrong);
  EXPECT_EQ(run.messages, "a.scene:3: \"state\" can't be played here: nothing is to be seen\n");
}

TEST(LackingWorld_AnExpectationOfLinesThatItDoesntTell, IsCountedAndNotChecked) {
  const Played run = Play(
      "start\nopen A.doc\nexpect log text=never\nthen object member=never\nexpect 0 window\n"
      "expect object member=Version\nthen hook\nthen object member=Documents\nexpect 0 result\n");
  EXPECT_EQ(run.outcome, Outcome::kHeld) << run.messages;
  EXPECT_EQ(run.unchecked, 4);
}

TEST(LackingWorld_AnExpectationOfLinesThatItTells, IsStillChecked) {
  const Played run = Play("start\nexpect log\nexpect object member=never\n");
  EXPECT_EQ(run.outcome, Outcome::kExpectationFailed);
  EXPECT_EQ(run.messages.find("a.scene:3: expected object member=never"), 0u) << run.messages;
  EXPECT_EQ(run.unchecked, 1);
}

TEST(LackingWorld_ALibraryThatItCantVerify, IsWrongUntilTheAnswerIsLaidDown) {
  const std::string ads = "ads " STRANDLINE_SOURCE_DIR "/scenes/ads/three.dll\n";
  const std::string wrong = "ad libraries can't be verified here; lay the answer down before with verifier N TEXT\n";
  EXPECT_EQ(Play(ads + "start\n").messages, "a.scene:2: " + wrong);
  EXPECT_EQ(Play(ads + "start\n").outcome, Outcome::kWrong);
  EXPECT_EQ(Play("verifier 3 good\n" + ads + "start\n").messages, "");
  EXPECT_EQ(Play("start\nlibrary" + ads.substr(3)).messages, "a.scene:2: " + wrong);
  EXPECT_EQ(Play("verifier 3 good\nstart\nlibrary" + ads.substr(3)).messages.find("a.scene:3: nobody who hears "), 0u);
}

TEST(LackingWorld_WhatGoesWrongInIt, IsToldWithTheLine) {
  const struct {
    const char* scene;
    const char* message;
  } kCases[] = {
      {"product Nowhere\nstart\n", "a.scene:2: there is no library; install one\n"},
      {"start\nopen A.doc\nshot a.png\n", "a.scene:3: there is no paper; buy some\n"},
      {"ads none\nstart\n", "a.scene:1: there is no room; make some\n"},
  };
  for (const auto& each : kCases) {
    const Played run = Play(each.scene);
    EXPECT_EQ(run.outcome, Outcome::kWrong);
    EXPECT_EQ(run.messages, each.message);
  }
  EXPECT_EQ(Play("start\nopen A.doc\nexpect pixel 1 1 000000\n").messages,
            "a.scene:3: expected pixel 1 1 000000, found no such pixel in the bar's window\n");
}

}  // namespace
}  // namespace strandline::play
