// Numbers, letters and dates under a C locale that the host has set for itself.

#include <clocale>
#include <cstdio>
#include <string>

#include "platform/convert.h"
#include "platform/dates.h"
#include "tests/contract/contract.h"

namespace strandline::contract {
namespace {

class LocaleContract : public Contract, public testing::WithParamInterface<HostLocale::Language> {
 private:
  const HostLocale mLocale{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(, LocaleContract,
                         testing::Values(HostLocale::Language::kGerman, HostLocale::Language::kTurkish),
                         [](const auto& instance) {
                           return instance.param == HostLocale::Language::kGerman ? "German" : "Turkish";
                         });

// Otherwise the other tests would show nothing.
TEST_P(LocaleContract, TheHostsOwnNumbers_HaveAComma) {
  char text[20];
  std::snprintf(text, sizeof text, "%g", 10.5);
  EXPECT_STREQ(text, "10,5");
}

TEST_P(LocaleContract, ANumberInText_HasItsPoint) {
  const struct {
    const char16_t* text;
    Double number;
  } cases[] = {{u"10.5", 10.5},  {u"-10.5", -10.5},    {u"+.5", 0.5},    {u"5.", 5},
               {u"1,234", 1234}, {u"1,234.5", 1234.5}, {u"2.5e-1", 0.25}};
  for (const auto& [text, number] : cases) {
    EXPECT_EQ(NumberFromText(text), number) << ToUtf8(text);
    EXPECT_EQ(Variant(text).ToDouble(), number) << ToUtf8(text);
    EXPECT_TRUE(IsNumberText(text)) << ToUtf8(text);
  }
}

TEST_P(LocaleContract, ANumber_IsWrittenWithAPoint) {
  EXPECT_EQ(TextFromNumber(10.5), u"10.5");
  EXPECT_EQ(TextFromNumber(-0.001), u"-0.001");
  EXPECT_EQ(TextFromNumber(2.5e20), u"2.5E+20");
  EXPECT_EQ(TextFromSingle(10.5f), u"10.5");
  EXPECT_EQ(Variant(1234567.25).ToText(), u"1234567.25");
  EXPECT_EQ(Variant(Single{0.1f}).ToText(), u"0.1");
}

TEST_P(LocaleContract, Letters_HaveTheirCaseInEveryLanguage) {
  EXPECT_EQ(runTime.LowerCase(u"TITLE I"), u"title i");
  EXPECT_EQ(LowerCase(TextView(u"TITLE I")), u"title i");
  EXPECT_EQ(UpperCase(u'i'), u'I');
  EXPECT_TRUE(SameText(u"TITLE", u"title"));
  EXPECT_EQ(FindText(u"winword /TRACE I", u"/trace i"), 9);
  EXPECT_TRUE(BooleanFromText(u"TRUE"));
}

TEST_P(LocaleContract, ADate_IsTheUsersAndNotTheHosts) {
  const Date date = dates::WithTime(dates::FromParts(2004, 3, 2), 8 * 3600);
  EXPECT_EQ(Variant(date).ToText(), u"3/2/2004 8:00:00 AM");
  EXPECT_EQ(runTime.DateFromText(u"3/2/2004 8:00"), date);
}

}  // namespace
}  // namespace strandline::contract
