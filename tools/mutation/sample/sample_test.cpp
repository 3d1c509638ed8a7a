// Tests with gaps, which the self-test of tools/mutate must find.

#include "tools/mutation/sample/sample.h"

#include <gtest/gtest.h>

namespace strandline_mutants_sample {
namespace {

TEST(Sample, ThreePieces_CostTwelve) { EXPECT_EQ(Price(3), 12); }

TEST(Sample, OnePiece_CostsNothing) { EXPECT_EQ(Price(1), 0); }

TEST(Sample, ALittleS_IsSmall) {
  EXPECT_EQ(SizeOf('s'), Size::kSmall);
  EXPECT_EQ(SizeOf('x'), Size::kLarge);
}

TEST(Sample, AQuickOne_HasOneRound) { EXPECT_EQ(Rounds(true), 1); }

TEST(Sample, Count_Runs) {
  int counted = 7;
  Count(counted);
}

TEST(Sample, ThatFailsByItself_IsNotUsed) { EXPECT_EQ(Price(3), 13); }

}  // namespace
}  // namespace strandline_mutants_sample
