// What process and screen tell.

#include <cmath>

#include "tests/contract/contract.h"

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
