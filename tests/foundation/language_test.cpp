#include <algorithm>
#include <random>
#include <set>

#include "foundation/LanguageExtensions.h"
#include "tests/foundation/foundation_fixture.h"
#include "tests/foundation/told.h"

namespace strandline::LanguageExtensions {
namespace {

class Language : public FoundationTest {
 protected:
  ~Language() override { LanguageExtensions::variables = {}; }

  // The texts, sorted from one index to another, in an array that begins at `lower`.
  static std::string Sorted(const std::vector<const char16_t*>& texts, Integer bottom, Integer top, Long lower = 0) {
    Array<String> values(lower, lower + static_cast<Long>(texts.size()) - 1);
    for (std::size_t i = 0; i < texts.size(); ++i) values(lower + static_cast<Long>(i)) = texts[i];
    QuickSortString(values, bottom, top);
    std::string sorted;
    for (const String& value : values.Elements()) sorted += (sorted.empty() ? "" : " ") + ToUtf8(value);
    return sorted;
  }
};

TEST_F(Language, Sort_OrdersByCharacterCodesBetweenItsIndexes) {
  const struct {
    std::vector<const char16_t*> texts;
    Integer bottom;
    Integer top;
    Long lower;
    const char* sorted;
  } cases[] = {
      {{u"Turabian", u"APA", u"MLA", u"Chicago"}, 0, 3, 0, "APA Chicago MLA Turabian"},
      {{u"d", u"c", u"b", u"a"}, 0, 3, 0, "a b c d"},
      {{u"a", u"b", u"c", u"d"}, 0, 3, 0, "a b c d"},
      {{u"b", u"a"}, 0, 1, 0, "a b"},
      // upper case before lower, and digits before both
      {{u"b", u"a", u"B", u"A", u"10", u"9", u"_"}, 0, 6, 0, "10 9 A B _ a b"},
      {{u"ab", u"a", u"abc", u"B"}, 0, 3, 0, "B a ab abc"},
      {{u"\u00E9", u"z", u"e"}, 0, 2, 0, "e z \u00E9"},
      // one element, and no more than it
      {{u"b", u"a"}, 0, 0, 0, "b a"},
      {{u"b", u"a"}, 1, 1, 0, "b a"},
      // a part
      {{u"d", u"c", u"b", u"a"}, 1, 2, 0, "d b c a"},
      // lower bounds of an array's own
      {{u"c", u"b", u"a"}, 1, 3, 1, "a b c"},
      {{u"c", u"b", u"a"}, -3, -1, -3, "a b c"},
      {{u"c", u"b", u"a", u"0"}, -1, 2, -1, "0 a b c"},
      // equal texts
      {{u"a", u"a", u"a", u"a", u"a"}, 0, 4, 0, "a a a a a"},
      {{u"b", u"a", u"b", u"a", u"b"}, 0, 4, 0, "a a b b b"},
  };
  for (const auto& [texts, bottom, top, lower, sorted] : cases) {
    EXPECT_EQ(Sorted(texts, bottom, top, lower), sorted);
  }
  EXPECT_TRUE(script.log.empty());
  EXPECT_EQ(vbwProtector::variables.mStackCalls, 0);
}

TEST_F(Language, Sort_OfManyTextsGivesTheirOrder) {
  std::mt19937 random(20090302);
  for (int round = 0; round < 50; ++round) {
    const Long count = 1 + static_cast<Long>(random() % 200);
    std::vector<String> expected;
    Array<String> values(0, count - 1);
    for (Long i = 0; i < count; ++i) {
      expected.push_back(values(i) = DecimalText(static_cast<std::int64_t>(random() % 50)));
    }
    std::sort(expected.begin(), expected.end());
    QuickSortString(values, 0, static_cast<Integer>(count - 1));
    EXPECT_EQ(values.Elements(), expected);
  }
  EXPECT_TRUE(script.log.empty());
}

TEST_F(Language, Sort_WhoseIndexesLeaveAnIntegerInSumFails) {
  Array<String> values(16383, 16385);
  values(16383) = u"c";
  values(16384) = u"b";
  values(16385) = u"a";
  QuickSortString(values, 16383, 16384);  // 32767 fits
  EXPECT_EQ(values(16383), u"b");
  EXPECT_TRUE(script.log.empty());
  QuickSortString(values, 16384, 16385);
  EXPECT_EQ(script.Asked(), LogLines{"6 LanguageExtensions.QuickSortString"});
  EXPECT_EQ(values(16384), u"c");
  EXPECT_EQ(values(16385), u"a");
}

TEST_F(Language, Sort_BeyondTheArrayFails) {
  const struct {
    Integer bottom;
    Integer top;
    Boolean sized;
  } cases[] = {{0, 0, false}, {5, 7, true}, {-4, -2, true}};
  for (const auto& [bottom, top, sized] : cases) {
    script.questions.clear();
    Array<String> values;
    if (sized) values.Size(0, 2);
    QuickSortString(values, bottom, top);
    EXPECT_EQ(script.Asked(), LogLines{"9 LanguageExtensions.QuickSortString"});
  }
}

TEST_F(Language, EmptyArray_IsOneWithoutStorage) {
  Array<Byte> values;
  EXPECT_TRUE(isEmptyArrayByte(values));
  values.Size(0, 0);
  EXPECT_FALSE(isEmptyArrayByte(values));
  values.Erase();
  EXPECT_TRUE(isEmptyArrayByte(values));
  values.Size(0, -1);
  EXPECT_FALSE(isEmptyArrayByte(values));
  values.Size(3, 9);
  EXPECT_FALSE(isEmptyArrayByte(values));
}

TEST_F(Language, RandomNumber_LiesBetweenItsBoundsAndReachesBoth) {
  const struct {
    Long lower;
    Long upper;
  } cases[] = {{5, 5}, {0, 1}, {1, 6}, {-3, 3}, {-9, -8}, {0, 2147483646}, {2147483640, 2147483647}, {0, 0}};
  for (const auto& [lower, upper] : cases) {
    SCOPED_TRACE(std::to_string(lower) + " to " + std::to_string(upper));
    std::set<Long> seen;
    for (int second = 0; second < 300; ++second) {
      const Long number = RandomNumber(lower, upper);
      ASSERT_GE(number, lower);
      ASSERT_LE(number, upper);
      seen.insert(number);
      desk.Clock().Wait(1000);
    }
    const bool isNarrow = upper - lower < 10;
    EXPECT_GE(seen.size(), isNarrow ? static_cast<std::size_t>(upper - lower + 1) : 250u);
  }
  EXPECT_TRUE(script.log.empty());
}

TEST_F(Language, RandomNumber_GoesByTheClock) {
  const Long one = RandomNumber(0, 1000000);
  EXPECT_EQ(RandomNumber(0, 1000000), one);
  desk.Clock().Wait(1000);
  EXPECT_NE(RandomNumber(0, 1000000), one);
}

TEST_F(Language, RandomNumber_OverTooWideARangeOverflows) {
  const struct {
    Long lower;
    Long upper;
  } cases[] = {{0, 2147483647}, {-1, 2147483646}, {-2147483647 - 1, 2147483647}};
  for (const auto& [lower, upper] : cases) {
    script.questions.clear();
    EXPECT_EQ(RandomNumber(lower, upper), 0) << lower << " " << upper;
    EXPECT_EQ(script.Asked(), LogLines{"6 LanguageExtensions.RandomNumber"});
  }
}

TEST_F(Language, InIDE_IsFalseUnlessSetByHand) {
  EXPECT_FALSE(InIDE());
  LanguageExtensions::variables.mInIDE = true;
  EXPECT_TRUE(InIDE());
  ToldVariables told;
  ReportModule(told);
  EXPECT_EQ(told.OneLine(), "mInIDE=True");
}

}  // namespace
}  // namespace strandline::LanguageExtensions
