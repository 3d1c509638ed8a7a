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
