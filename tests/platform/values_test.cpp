// Conversions, texts and arrays.

#include <gtest/gtest.h>
#include <locale.h>
#include <wctype.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "platform/array.h"
#include "platform/convert.h"
#include "platform/text.h"
#include "tests/support/allocations.h"
#include "tests/support/raised.h"

namespace strandline {
namespace {

constexpr Double kInfinity = std::numeric_limits<Double>::infinity();
constexpr Double kNoNumber = std::numeric_limits<Double>::quiet_NaN();

TEST(Convert, Rounding_GoesToTheNearestAndOnTiesToTheEvenNumber) {
  const struct {
    Double value;
    Double rounded;
  } cases[] = {{0, 0},           {0.4, 0},           {0.5, 0},       {0.6, 1},      {1.5, 2},
               {2.5, 2},         {3.5, 4},           {-0.4, 0},      {-0.5, 0},     {-0.6, -1},
               {-1.5, -2},       {-2.5, -2},         {-3.5, -4},     {1e15, 1e15},  {0.49999999999999994, 0},
               {32767.5, 32768}, {-32768.5, -32768}, {2.4999999, 2}, {2.5000001, 3}};
  for (const auto& [value, rounded] : cases) EXPECT_EQ(RoundHalfEven(value), rounded) << value;
}

TEST(Convert, WholeNumbers_OverflowBeyondTheirWidth) {
  EXPECT_EQ(ToInteger(32767), 32767);
  EXPECT_EQ(ToInteger(-32768), -32768);
  EXPECT_EQ(ToLong(2147483647LL), 2147483647);
  EXPECT_EQ(ToLong(-2147483648LL), std::numeric_limits<Long>::min());
  for (const std::int64_t value : {32768LL, -32769LL, 70000LL, 4294967296LL}) {
    EXPECT_EQ(Raised([&] { ToInteger(value); }), errors::kOverflow) << value;
  }
  for (const std::int64_t value : {2147483648LL, -2147483649LL, 4294967296LL, std::numeric_limits<long long>::max()}) {
    EXPECT_EQ(Raised([&] { ToLong(value); }), errors::kOverflow) << value;
  }
}

TEST(Convert, RoundedNumbers_OverflowAfterRounding) {
  EXPECT_EQ(RoundToInteger(32767.4), 32767);
  EXPECT_EQ(RoundToInteger(-32768.5), -32768);
  EXPECT_EQ(RoundToLong(2147483647.4), 2147483647);
  EXPECT_EQ(RoundToLong(-2147483648.5), std::numeric_limits<Long>::min());
  for (const Double value : {32767.5, -32768.6, 1e9, kInfinity, -kInfinity, kNoNumber}) {
    EXPECT_EQ(Raised([&] { RoundToInteger(value); }), errors::kOverflow) << value;
  }
  for (const Double value : {2147483647.5, -2147483648.6, 1e300, kInfinity, -kInfinity, kNoNumber}) {
    EXPECT_EQ(Raised([&] { RoundToLong(value); }), errors::kOverflow) << value;
  }
}

TEST(Convert, NumberInText_IsUnderstood) {
  const struct {
    const char16_t* text;
    Double number;
  } cases[] = {{u"0", 0},
               {u"12", 12},
               {u"-12", -12},
               {u"+12", 12},
               {u"  12\t", 12},
               {u"\u00A012", 12},
               {u"1,234", 1234},
               {u"1,234.5", 1234.5},
               {u"0.5", 0.5},
               {u".5", 0.5},
               {u"5.", 5},
               {u"-.5", -0.5},
               {u"1e3", 1000},
               {u"1E-3", 0.001},
               {u"2d2", 200},
               {u"1.5E+2", 150},
               {u"007", 7},
               {u"1e-400", 0},
               {u"3000000000", 3e9},
               {u"-1e-400", 0},
               {u"0e999", 0},
               {u"1e-99999999999999999999", 0},
               {u"1000e-310", 1e-307},
               {u"0.001e310", 1e307}};
  for (const auto& [text, number] : cases) EXPECT_EQ(NumberFromText(text), number) << ToUtf8(text);
}

TEST(Convert, OtherText_IsNoNumber) {
  for (const char16_t* text :
       {u"",    u" ",     u"abc",   u"1a", u"a1",   u"--1",  u"+-1", u"1 2", u".",   u"-",      u"1e",
        u"1e+", u"1.2.3", u"1.5,0", u"e5", u"0x10", u"&H10", u"1/2", u"inf", u"nan", u"\u0661", u"12%"}) {
    EXPECT_EQ(Raised([&] { NumberFromText(text); }), errors::kTypeMismatch) << ToUtf8(text);
  }
  for (const char16_t* text : {u"1e400", u"-1e400", u"1e99999999999999999999", u"0.01e311", u"1000000e304"}) {
    EXPECT_EQ(Raised([&] { NumberFromText(text); }), errors::kOverflow) << ToUtf8(text);
  }
  EXPECT_EQ(Raised([] { NumberFromText(std::u16string(400, u'9')); }), errors::kOverflow);
  EXPECT_EQ(NumberFromText(u"0." + std::u16string(400, u'0') + u"1"), 0);
  EXPECT_EQ(NumberFromText(u"0." + std::u16string(400, u'0') + u"1e401"), 1);
  EXPECT_EQ(Raised([] {
              NumberFromText(
                  TextView(u"1\0"
                           u"2",
                           3));
            }),
            errors::kTypeMismatch);
}

TEST(Convert, NumberWithTheNulThatEndsIt_IsUnderstood) {
  EXPECT_EQ(NumberFromText(TextView(u"12\0", 3)), 12);
  EXPECT_TRUE(IsNumberText(TextView(u"12 \0", 4)));
  EXPECT_EQ(Raised([] { NumberFromText(TextView(u"\0", 1)); }), errors::kTypeMismatch);
}

TEST(Convert, IsNumberText_TellsWhatCanBeConverted) {
  for (const char16_t* text : {u"0", u"31", u" 31 ", u"+31", u"-31", u"3.1", u"1,000", u"1e3"}) {
    EXPECT_TRUE(IsNumberText(text)) << ToUtf8(text);
  }
  for (const char16_t* text : {u"", u" ", u"x31", u"31x", u"-", u"3 1", u"1e400"}) {
    EXPECT_FALSE(IsNumberText(text)) << ToUtf8(text);
  }
}

TEST(Convert, NumberToText_HasAtMost15Digits) {
  const struct {
    Double number;
    const char16_t* text;
  } cases[] = {{0, u"0"},
               {1, u"1"},
               {-1.5, u"-1.5"},
               {0.1, u"0.1"},
               {1.0 / 3, u"0.333333333333333"},
               {1e14, u"100000000000000"},
               {1e15, u"1E+15"},
               {1e20, u"1E+20"},
               {1e-5, u"1E-05"},
               {0.0001, u"0.0001"}};
  for (const auto& [number, text] : cases) EXPECT_EQ(TextFromNumber(number), text) << number;
}

TEST(Convert, Booleans_AndTheirTexts) {
  EXPECT_EQ(TextFromBoolean(true), u"True");
  EXPECT_EQ(TextFromBoolean(false), u"False");
  const struct {
    const char16_t* text;
    Boolean value;
  } cases[] = {{u"True", true}, {u"TRUE", true}, {u" false ", false}, {u"1", true},
               {u"-1", true},   {u"0", false},   {u"0.0", false},     {u"0.1", true}};
  for (const auto& [text, value] : cases) EXPECT_EQ(BooleanFromText(text), value) << ToUtf8(text);
  for (const char16_t* text : {u"", u"yes", u"Tru", u"Truee"}) {
    EXPECT_EQ(Raised([&] { BooleanFromText(text); }), errors::kTypeMismatch) << ToUtf8(text);
  }
}

TEST(Text, String_SharesItsCharacters) {
  String one = u"characters";
  const String two = one;
  EXPECT_EQ(one.View().data(), two.View().data());
  one = u"others";
  EXPECT_EQ(two, u"characters");
  String moved = std::move(one);
  EXPECT_EQ(moved, u"others");
  const String& itself = moved;
  moved = itself;
  EXPECT_EQ(moved, u"others");
}

TEST(Text, EmptyString_IsTheDefault) {
  EXPECT_TRUE(String().IsEmpty());
  EXPECT_TRUE(String(u"").IsEmpty());
  EXPECT_EQ(String(), String(u""));
  EXPECT_EQ(String().Length(), 0);
  EXPECT_EQ(std::u16string(String().c_str()), u"");
  EXPECT_FALSE(String(TextView(u"\0", 1)).IsEmpty());
  EXPECT_EQ(String(TextView(u"a\0b", 3)).Length(), 3);
}

TEST(Text, Strings_CompareByCharacterCodes) {
  const std::vector<String> ordered = {u"", u"10", u"9", u"A", u"B", u"a", u"aa", u"b", u"\u00E9"};
  for (std::size_t i = 0; i + 1 < ordered.size(); ++i) {
    EXPECT_LT(ordered[i], ordered[i + 1]) << i;
    EXPECT_NE(ordered[i], ordered[i + 1]) << i;
  }
}

TEST(Text, Numbers_AreWrittenInDecimalAndHexadecimal) {
  EXPECT_EQ(DecimalText(0), u"0");
  EXPECT_EQ(DecimalText(-2147220958), u"-2147220958");
  EXPECT_EQ(DecimalText(std::numeric_limits<std::int64_t>::min()), u"-9223372036854775808");
  EXPECT_EQ(HexText(0), u"0");
  EXPECT_EQ(HexText(0x1AbC), u"1ABC");
  EXPECT_EQ(HexText(-1), u"FFFFFFFF");
  EXPECT_EQ(HexText(std::numeric_limits<Long>::min()), u"80000000");
}

TEST(Text, Case_IsKnownOfEveryAlphabet) {
  const struct {
    char16_t upper;
    char16_t lower;
  } pairs[] = {{u'A', u'a'},     {u'Z', u'z'},     {0x00C9, 0x00E9}, {0x00D8, 0x00F8}, {0x0178, 0x00FF},
               {0x0100, 0x0101}, {0x0139, 0x013A}, {0x017D, 0x017E}, {0x0391, 0x03B1}, {0x0386, 0x03AC},
               {0x03A9, 0x03C9}, {0x0410, 0x0430}, {0x042F, 0x044F}, {0x0401, 0x0451}, {0x1EC6, 0x1EC7},
               {0x1F88, 0x1F80}, {0x2160, 0x2170}, {0xFF3A, 0xFF5A}};
  for (const auto& [upper, lower] : pairs) {
    EXPECT_EQ(UpperCase(lower), upper) << int{lower};
    EXPECT_EQ(LowerCase(upper), lower) << int{upper};
    EXPECT_EQ(UpperCase(upper), upper) << int{upper};
    EXPECT_EQ(LowerCase(lower), lower) << int{lower};
  }
  for (const int code : {0, 0x30, 0x40, 0x5B, 0x60, 0x7B, 0xB5, 0xD7, 0xF7, 0xDF, 0x130, 0x131, 0x17F, 0x1C5, 0x212A,
                         0x4E00, 0xD801, 0xDC00, 0xFFFF}) {
    const auto c = static_cast<char16_t>(code);
    EXPECT_EQ(UpperCase(c), c) << int{c};
    EXPECT_EQ(LowerCase(c), c) << int{c};
  }
  EXPECT_EQ(LowerCase(TextView(u"MorVANE 12 \u00C9")), u"morvane 12 \u00E9");
}

// The C library brings a table of its own with a locale that is always there.
TEST(Text, Case_IsThatOfTheCLibrary_WhereItGoesThereAndBack) {
  const locale_t unicode = ::newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  ASSERT_NE(unicode, nullptr);
  for (wint_t code = 0; code < 0x10000; ++code) {
    const auto c = static_cast<char16_t>(code);
    const wint_t lower = ::towlower_l(code, unicode);
    const wint_t upper = ::towupper_l(code, unicode);
    EXPECT_EQ(LowerCase(c), ::towupper_l(lower, unicode) == code ? lower : code) << std::hex << code;
    EXPECT_EQ(UpperCase(c), ::towlower_l(upper, unicode) == code ? upper : code) << std::hex << code;
  }
  ::freelocale(unicode);
}

TEST(Text, Find_TellsThePositionWithoutRegardToCase) {
  const struct {
    TextView text;
    TextView sought;
    Long position;
  } cases[] = {{u"winword /TRACE", u"/trace", 9},
               {u"abc", u"A", 1},
               {u"abc", u"", 1},
               {u"", u"", 0},
               {u"abcabc", u"BC", 2},
               {u"abc", u"abcd", 0},
               {u"abc", u"d", 0},
               {u"", u"a", 0},
               {TextView(u"\0a\0", 3), TextView(u"A\0", 2), 2},
               {u"aab", u"ab", 2}};
  for (const auto& [text, sought, position] : cases) EXPECT_EQ(FindText(text, sought), position) << ToUtf8(text);
}

TEST(Text, SameText_TakesNoAccountOfCase) {
  EXPECT_TRUE(SameText(u"VI\u1EC6T-\u0386\u0178", u"vi\u1EC7t-\u03AC\u00FF"));
  EXPECT_TRUE(SameText(u"Word\u00C9", u"wORD\u00E9"));
  EXPECT_TRUE(SameText(u"", u""));
  EXPECT_FALSE(SameText(u"a", u"ab"));
  EXPECT_FALSE(SameText(u"a", u"b"));
  EXPECT_FALSE(SameText(u"[", u"{"));
}

TEST(Text, Utf8_GoesThereAndBack) {
  const struct {
    TextView text;
    std::string_view utf8;
  } cases[] = {{u"", ""},
               {u"a", "a"},
               {u"\u00E9", "\xC3\xA9"},
               {u"\u20AC", "\xE2\x82\xAC"},
               {u"\U0001F600", "\xF0\x9F\x98\x80"},
               {u"\U0010FFFF", "\xF4\x8F\xBF\xBF"},
               {TextView(u"a\0b", 3), std::string_view("a\0b", 3)},
               {u"x\U00010000y", "x\xF0\x90\x80\x80y"},
               // The first and the last of each length, and the neighbours of the surrogates.
               {u"\x7F", "\x7F"},
               {u"\x80", "\xC2\x80"},
               {u"\u07FF", "\xDF\xBF"},
               {u"\u0800", "\xE0\xA0\x80"},
               {u"\uD7FF", "\xED\x9F\xBF"},
               {u"\uE000", "\xEE\x80\x80"},
               {u"\uFFFF", "\xEF\xBF\xBF"},
               {u"\U000103FF", "\xF0\x90\x8F\xBF"},
               {u"\U00010400", "\xF0\x90\x90\x80"}};
  for (const auto& [text, utf8] : cases) {
    EXPECT_EQ(ToUtf8(text), utf8);
    EXPECT_EQ(FromUtf8(utf8), text) << utf8;
  }
}

TEST(Text, MalformedText_BecomesReplacementCharacters) {
  const char16_t lone[] = {u'a', 0xD800, u'b', 0xDC00, 0};
  EXPECT_EQ(ToUtf8(lone),
            "a\xEF\xBF\xBD"
            "b\xEF\xBF\xBD");
  // each followed by an x that has to survive
  for (const char* bad : {"\x80", "\xC3", "\xC0\x80", "\xE2\x82", "\xE0\x80\x80", "\xED\xA0\x80", "\xF0\x9F\x98",
                          "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "\xFF", "\xC3\x28"}) {
    const String text = FromUtf8(std::string(bad) + "x");
    ASSERT_FALSE(text.IsEmpty());
    EXPECT_EQ(text.View().front(), 0xFFFD) << bad;
    EXPECT_EQ(text.View().back(), u'x') << bad;
  }
  EXPECT_EQ(FromUtf8("a\xC3"), u"a\uFFFD");
  // A malformed byte is replaced, and what follows it is read anew.
  const struct {
    std::string_view utf8;
    const char16_t* text;
  } cases[] = {{"\xF5\x80\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
               {"\xF5\x80\x80", u"\uFFFD\uFFFD\uFFFD"},
               {"\xC1\xBF", u"\uFFFD\uFFFD"},
               {"\xE0\x9F\xBF", u"\uFFFD\uFFFD\uFFFD"},
               {"\xF0\x8F\xBF\xBF", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
               {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
               {"\xED\xBF\xBF", u"\uFFFD\uFFFD\uFFFD"},
               {"\xC3\xC3\xA9", u"\uFFFD\u00E9"},
               {"\xE2\x82\xE2\x82\xAC", u"\uFFFD\uFFFD\u20AC"}};
  for (const auto& [utf8, text] : cases) EXPECT_EQ(FromUtf8(utf8), text) << utf8;
  // Surrogates that are no pair: of one kind, in the wrong order, at the end.
  const char16_t twoHigh[] = {0xDBFF, 0xD83D, 0xDE00, 0};
  EXPECT_EQ(ToUtf8(twoHigh), "\xEF\xBF\xBD\xF0\x9F\x98\x80");
  const char16_t lowFirst[] = {0xDFFF, 0xD800, 0};
  EXPECT_EQ(ToUtf8(lowFirst), "\xEF\xBF\xBD\xEF\xBF\xBD");
  const char16_t beforeOther[] = {0xD800, 0xE000, 0};
  EXPECT_EQ(ToUtf8(beforeOther), "\xEF\xBF\xBD\xEE\x80\x80");
}

TEST(Text, Memory_IsTakenOnceForTheWholeAndGivenBack) {
  const TextView piece = u"a piece that is longer than what a text holds in itself";
  const std::u16string whole(1000, u'x');
  const std::string narrow(1000, 'x');
  const auto taken = [](auto&& work) {
    const std::size_t before = AllocationsSoFar();
    const std::size_t alive = AllocationsAlive();
    work();
    EXPECT_EQ(AllocationsAlive(), alive);
    return AllocationsSoFar() - before;
  };
  const std::size_t ofOneText = taken([&] { const String text = whole; });
  EXPECT_EQ(taken([&] {
              const String text = whole;
              const String other = text;
              String third;
              third = other;
            }),
            ofOneText);
  EXPECT_EQ(taken([&] { Concat({piece, piece, piece, piece, piece}); }), ofOneText + 1);
  EXPECT_EQ(taken([&] { FromUtf8(narrow); }), ofOneText + 1);
  EXPECT_EQ(taken([&] { ToUtf8(whole); }), 1u);
}

TEST(ArrayOfValues, BoundsAreItsOwn) {
  Array<Long> values(-2, 2);
  EXPECT_EQ(values.Lower(), -2);
  EXPECT_EQ(values.Upper(), 2);
  values(-2) = 7;
  values(2) = 9;
  EXPECT_EQ(values.Elements(), (std::vector<Long>{7, 0, 0, 0, 9}));
  for (const Long subscript : {-3, 3, 100, std::numeric_limits<Long>::min(), std::numeric_limits<Long>::max()}) {
    EXPECT_EQ(Raised([&] { values(subscript) = 1; }), errors::kSubscriptOutOfRange) << subscript;
  }
}

TEST(ArrayOfValues, UnsizedArray_HasNoBoundsAndNoElements) {
  Array<Byte> values;
  EXPECT_FALSE(values.IsSized());
  EXPECT_EQ(Raised([&] { values.Lower(); }), errors::kSubscriptOutOfRange);
  EXPECT_EQ(Raised([&] { values.Upper(); }), errors::kSubscriptOutOfRange);
  EXPECT_EQ(Raised([&] { values(0) = 1; }), errors::kSubscriptOutOfRange);
  EXPECT_TRUE(values.Elements().empty());
  EXPECT_EQ(values.Data(), nullptr);
}

TEST(ArrayOfValues, SizingAnewForgetsAndErasingUnsizes) {
  Array<Long> values(0, 1);
  values(0) = 5;
  values.Size(1, 1);
  EXPECT_EQ(values(1), 0);
  EXPECT_EQ(Raised([&] { values(0); }), errors::kSubscriptOutOfRange);
  values.Size(4, 3);
  EXPECT_TRUE(values.IsSized());
  EXPECT_EQ(values.Upper(), 3);
  EXPECT_EQ(Raised([&] { values(4); }), errors::kSubscriptOutOfRange);
  EXPECT_EQ(Raised([&] { values.Size(4, 2); }), errors::kSubscriptOutOfRange);
  values.Erase();
  EXPECT_FALSE(values.IsSized());
}

TEST(ArrayOfValues, CopiesAreTheirOwn) {
  Array<Boolean> one(0, 2);
  one(1) = true;
  Array<Boolean> two = one;
  EXPECT_EQ(one, two);
  Boolean& flag = two(1);
  flag = false;
  EXPECT_TRUE(one(1));
  EXPECT_FALSE(one == two);
  EXPECT_FALSE(Array<Long>(0, 1) == Array<Long>(1, 2));
  EXPECT_FALSE(Array<Long>(0, -1) == Array<Long>());
}

TEST(ArrayOfValues, FixedArray_ChecksItsSubscriptsToo) {
  FixedArray<Long, 1, 64> values;
  values(1) = 1;
  values(64) = 64;
  EXPECT_EQ(values(1) + values(64) + values(2), 65);
  for (const Long subscript : {0, 65, -1}) {
    EXPECT_EQ(Raised([&] { values(subscript) = 1; }), errors::kSubscriptOutOfRange) << subscript;
  }
}

}  // namespace
}  // namespace strandline
