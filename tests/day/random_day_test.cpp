// Thousands of random steps. The seed is told on failure; STRANDLINE_DAY_SEED replays it, STRANDLINE_DAY_STEPS makes a
// longer day.

#include "tests/day/random_day.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace strandline::day {
namespace {

std::uint64_t NumberOf(const char* variable, std::uint64_t otherwise) {
  const char* const text = std::getenv(variable);
  return text ? std::strtoull(text, nullptr, 10) : otherwise;
}

}  // namespace

TEST(RandomDay, WhateverTheUserDoes_WhatMustHoldHolds) {
  const std::uint64_t seed = NumberOf("STRANDLINE_DAY_SEED", 20030211);
  const std::uint64_t steps = NumberOf("STRANDLINE_DAY_STEPS", 5000);
  constexpr std::uint64_t kStepsOfALoad = 250;
  std::printf("STRANDLINE_DAY_SEED=%llu\n", static_cast<unsigned long long>(seed));
  RandomDay day(seed);
  for (std::uint64_t step = 1; step <= steps; ++step) {
    const std::string wrong = day.Step();
    ASSERT_EQ(wrong, "") << "at step " << step << " of STRANDLINE_DAY_SEED=" << seed << ", after\n" << day.LastSteps();
    if (step % kStepsOfALoad == 0) {
      const std::string before = day.LastSteps();
      ASSERT_EQ(day.BeginAnew(), "") << "at step " << step << " of STRANDLINE_DAY_SEED=" << seed << ", after\n"
                                     << before;
    }
  }
}

}  // namespace strandline::day
