#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <vector>

#include "tests/deskprogram/desk_runner.h"

namespace strandline::deskprogram {
namespace {

std::vector<std::filesystem::path> ScenesIn(const char* folder) {
  std::vector<std::filesystem::path> scenes;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() == ".scene") scenes.push_back(entry.path());
  }
  std::sort(scenes.begin(), scenes.end());
  return scenes;
}

class Tour : public testing::TestWithParam<std::filesystem::path> {};

TEST_P(Tour, HoldsAndIsTheSameInEachRun) {
  DeskRunner runner;
  const std::string words = "play '" + GetParam().string() + "' --out pictures";
  const DeskRun run = runner.Run(words);
  EXPECT_EQ(run.exitCode, 0) << run.errors;
  EXPECT_EQ(run.errors, "");
  EXPECT_TRUE(runner.Run(words).journal == run.journal);
}

std::string NameOf(const testing::TestParamInfo<std::filesystem::path>& scene) { return scene.param.stem().string(); }

INSTANTIATE_TEST_SUITE_P(Scenes, Tour, testing::ValuesIn(ScenesIn(STRANDLINE_SOURCE_DIR "/scenes/tour")), NameOf);
// Those that play on real windows too.
INSTANTIATE_TEST_SUITE_P(OfBothWorlds, Tour, testing::ValuesIn(ScenesIn(STRANDLINE_SOURCE_DIR "/scenes/both")), NameOf);

}  // namespace
}  // namespace strandline::deskprogram
