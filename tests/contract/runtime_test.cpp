// What process and screen tell.

#include <cmath>

#include "platform/dates.h"
#include "tests/contract/contract.h"
#include "tests/support/raised.h"

namespace strandline::contract {
namespace {

using RunTimeContract = Contract;

TEST_F(RunTimeContract, AnInch_HasItsTwips) {
  EXPECT_EQ(runTime.TwipsPerPixelX(), 15.0);
  EXPECT_EQ(runTime.TwipsPerPixelY(), 15.0);
}

TEST_F(RunTimeContract, ASettingThatIsntThere_IsItsDefault) {
  EXPECT_EQ(runTime.GetSetting(u"Contract", u"absent", u"default"), u"default");
  EXPECT_EQ(runTime.GetSetting(u"", u"", u""), u"");
}

TEST_F(RunTimeContract, TheCalendar_GoesOnInWholeSeconds) {
  const Date before = runTime.Now();
  constexpr Double kSecond = 1.0 / 86'400;
  Clock().Wait(30);
  const Double later = runTime.Now().days - before.days;
  EXPECT_GE(later, 0.0);
  EXPECT_LT(later, 10 * kSecond);
  const Double seconds = before.days / kSecond;
  EXPECT_NEAR(seconds, std::round(seconds), 0.01);
}

// The user of both worlds writes dates as in the United States.
TEST_F(RunTimeContract, ADateInText_IsThatDay) {
  const struct {
    const char16_t* text;
    Integer year, month, day;
  } cases[] = {{u"3/1/2009", 2009, 3, 1},       {u"12/31/2009", 2009, 12, 31},   {u"3-1-2009", 2009, 3, 1},
               {u"2009-03-01", 2009, 3, 1},     {u"1 March 2009", 2009, 3, 1},   {u"March 1, 2009", 2009, 3, 1},
               {u"mar 1, 2009", 2009, 3, 1},    {u" 03/01/2009 ", 2009, 3, 1},   {u"2/29/2008", 2008, 2, 29},
               {u"12/30/1899", 1899, 12, 30},   {u"7/4/1776", 1776, 7, 4},       {u"12/31/9999", 9999, 12, 31},
               {u"1/1/29", 2029, 1, 1},         {u"1/1/80", 1980, 1, 1},         {u"1/1/00", 2000, 1, 1},
               {u"5 December 99", 1999, 12, 5}, {u"February 3 2010", 2010, 2, 3}};
  for (const auto& [text, year, month, day] : cases) {
    SCOPED_TRACE(ToUtf8(text));
    Date date;
    EXPECT_EQ(Raised([&, given = text] { date = runTime.DateFromText(given); }), 0);
    EXPECT_EQ(date.days, dates::FromParts(year, month, day).days);
  }
  EXPECT_EQ(runTime.DateFromText(String(TextView(u"3/1/2009\0", 9))), dates::FromParts(2009, 3, 1));
}

TEST_F(RunTimeContract, ATimeOfDay_IsTheFractionOfItsDate) {
  const Date day = dates::FromParts(2009, 3, 1);
  EXPECT_DOUBLE_EQ(runTime.DateFromText(u"3/1/2009 18:00").days, day.days + 0.75);
  EXPECT_DOUBLE_EQ(runTime.DateFromText(u"3/1/2009 6:00 PM").days, day.days + 0.75);
  EXPECT_DOUBLE_EQ(runTime.DateFromText(u"3/1/2009 12:00:00 AM").days, day.days);
  EXPECT_DOUBLE_EQ(runTime.DateFromText(u"12/29/1899 6:00").days, -1.25);
}

TEST_F(RunTimeContract, ADate_IsWrittenInTheShortForm) {
  const auto at = [](Integer year, Integer month, Integer day, Long seconds) {
    return dates::WithTime(dates::FromParts(year, month, day), seconds);
  };
  constexpr Long kHour = 3600;
  const struct {
    Date date;
    const char16_t* text;
  } cases[] = {{at(2004, 3, 2, 0), u"3/2/2004"},
               {at(2004, 12, 31, 8 * kHour), u"12/31/2004 8:00:00 AM"},
               {at(2009, 3, 1, 18 * kHour + 30 * 60 + 15), u"3/1/2009 6:30:15 PM"},
               {at(2009, 3, 1, 12 * kHour), u"3/1/2009 12:00:00 PM"},
               {at(2009, 3, 1, 59), u"3/1/2009 12:00:59 AM"},
               {at(2009, 3, 1, 86'399), u"3/1/2009 11:59:59 PM"},
               {at(1899, 12, 29, 6 * kHour), u"12/29/1899 6:00:00 AM"},
               {at(1776, 7, 4, 0), u"7/4/1776"},
               {at(9999, 12, 31, 0), u"12/31/9999"},
               {Date{0}, u"12:00:00 AM"},
               {Date{0.75}, u"6:00:00 PM"},
               {Date{-0.75}, u"6:00:00 PM"}};
  for (const auto& [date, text] : cases) {
    EXPECT_EQ(runTime.TextFromDate(date), text);
    EXPECT_EQ(Variant(date).ToText(), text);
  }
}

TEST_F(RunTimeContract, ATextOfADate_IsThatDateAgain) {
  for (const Double days : {38'048.0, 38'048.25, 38'048.5, 100.75, -100.75}) {
    const String text = runTime.TextFromDate({days});
    EXPECT_DOUBLE_EQ(runTime.DateFromText(text).days, days) << ToUtf8(text);
  }
}

TEST_F(RunTimeContract, ADateBeyondTheCalendar_HasNoText) {
  for (const Double days : {3e6, -7e5, 1e300, -1e300}) {
    EXPECT_EQ(Raised([&] { runTime.TextFromDate({days}); }), errors::kInvalidArgument) << days;
  }
}

TEST_F(RunTimeContract, ATextInLowerCase_FollowsAllOfUnicode) {
  const struct {
    TextView text;
    TextView lower;
  } cases[] = {{u"", u""},
               {u"QuillMere 12", u"quillmere 12"},
               {u"VI\u1EC6T-\u0386\u0388-\u0178", u"vi\u1EC7t-\u03AC\u03AD-\u00FF"},
               {u"\u00C9\u00D7\u00DE", u"\u00E9\u00D7\u00FE"},
               {u"\u0100\u0139\u017D\u0187\u01CD", u"\u0101\u013A\u017E\u0188\u01CE"},
               {u"\u0391\u03A3\u03AB", u"\u03B1\u03C3\u03CB"},
               {u"\u0401\u0416\u04D2\u0500", u"\u0451\u0436\u04D3\u0501"},
               {u"\u0531\u0556", u"\u0561\u0586"},
               {u"\u1E00\u1EF8\u1F08\u1F88", u"\u1E01\u1EF9\u1F00\u1F80"},
               {u"\u2160\u216F\u24B6\u24CF", u"\u2170\u217F\u24D0\u24E9"},
               {u"\u2C00\u2C80\uA640\uFF21", u"\u2C30\u2C81\uA641\uFF41"},
               {u"\u00DF\u0131\u0130\u4E00\u0661", u"\u00DF\u0131\u0130\u4E00\u0661"},
               {u"\u01C5\u03F4\u1E9E\u2126\u212A\u212B", u"\u01C5\u03F4\u1E9E\u2126\u212A\u212B"},
               {u"\U0001F600A", u"\U0001F600a"},
               {TextView(u"A\0B", 3), TextView(u"a\0b", 3)}};
  for (const auto& [text, lower] : cases) EXPECT_EQ(runTime.LowerCase(text), lower) << ToUtf8(text);
}

TEST_F(RunTimeContract, TextThatIsNoDate_Raises) {
  for (const char16_t* text :
       {u"", u" ", u"soon", u"2/30/2009", u"2/29/2009", u"13/32/2009", u"3/1/2009x", u"Marc 1, 2009", u"3/1/20091"}) {
    EXPECT_EQ(Raised([&] { runTime.DateFromText(text); }), errors::kTypeMismatch) << ToUtf8(text);
  }
}

TEST_F(RunTimeContract, Texts_GoThroughTheDefaultCodePage) {
  const Array<Byte> bytes = runTime.BytesFromText(String(TextView(u"caf\u00e9\0 \u20ac \u4e00", 9)));
  EXPECT_EQ(bytes.Lower(), 0);
  EXPECT_EQ(bytes.Elements(), (std::vector<Byte>{'c', 'a', 'f', 0xE9, 0, ' ', 0x80, ' ', '?'}));
  EXPECT_EQ(runTime.TextFromBytes(bytes), TextView(u"caf\u00e9\0 \u20ac ?", 9));
}

TEST_F(RunTimeContract, EveryByte_IsACharacterOfTheDefaultCodePage) {
  Array<Byte> bytes(-3, 252);
  for (Long i = 0; i < 256; ++i) bytes(i - 3) = static_cast<Byte>(i);
  const String text = runTime.TextFromBytes(bytes);
  EXPECT_EQ(text.Length(), 256);
  EXPECT_EQ(runTime.BytesFromText(text).Elements(), bytes.Elements());
}

TEST_F(RunTimeContract, NoText_IsNoBytes) {
  const Array<Byte> none = runTime.BytesFromText(u"");
  EXPECT_TRUE(none.IsSized());
  EXPECT_TRUE(none.Elements().empty());
  EXPECT_EQ(runTime.TextFromBytes(none), u"");
  EXPECT_EQ(runTime.TextFromBytes(Array<Byte>()), u"");
}

TEST_F(RunTimeContract, AComponentThatNobodyRegistered_CantBeCreated) {
  try {
    components.CreateObject(u"Strandline.NoSuchThing");
    FAIL() << "it was created";
  } catch (const Error& error) {
    EXPECT_EQ(error.number, errors::kCannotCreateComponent);
  }
}

}  // namespace
}  // namespace strandline::contract
