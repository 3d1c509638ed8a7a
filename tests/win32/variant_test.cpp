// Values between the seam and the automation world.

#include "platform/variant.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "platform/win32/own_variant.h"
#include "platform/win32/win32_variant.h"
#include "platform/win32/windows_api.h"

namespace strandline::win32test {

namespace {

using win32::FromVARIANT;
using win32::OwnVariant;
using win32::ToVARIANT;
using win32::VariantOfType;

// A value of one of the plain kinds, by its bits.
template <class T>
VARIANT Plain(int type, T bits) {
  VARIANT value = VariantOfType(type);
  std::memcpy(&value.byref, &bits, sizeof bits);
  return value;
}

VARIANT Decimal(double number) {
  VARIANT value = VariantOfType(VT_EMPTY);
  DECIMAL decimal{};
  ::VarDecFromR8(number, &decimal);
  value.decVal = decimal;
  value.vt = VT_DECIMAL;
  return value;
}

Long Raised(const VARIANT& value) {
  try {
    FromVARIANT(value);
  } catch (const Error& error) {
    return error.number;
  }
  return 0;
}

struct Number {
  const char* name;
  VARIANT value;
  Variant expected;
};

std::vector<Number> Numbers() {
  constexpr Double k2to32 = 4294967296.0;
  return {
      {"byte", Plain(VT_UI1, std::uint8_t{200}), Integer{200}},
      {"signed byte", Plain(VT_I1, std::int8_t{-5}), Integer{-5}},
      {"16 bits", Plain(VT_I2, std::int16_t{-300}), Integer{-300}},
      {"16 bits unsigned", Plain(VT_UI2, std::uint16_t{65535}), Long{65535}},
      {"32 bits", Plain(VT_I4, std::int32_t{-70000}), Long{-70000}},
      {"int", Plain(VT_INT, std::int32_t{-70000}), Long{-70000}},
      {"32 bits unsigned, small", Plain(VT_UI4, std::uint32_t{5}), Long{5}},
      {"32 bits unsigned, large", Plain(VT_UI4, std::uint32_t{0xFFFFFFFF}), k2to32 - 1},
      {"unsigned int", Plain(VT_UINT, std::uint32_t{0x80000000}), k2to32 / 2},
      {"64 bits, small", Plain(VT_I8, std::int64_t{-7}), Long{-7}},
      {"64 bits, lowest Long", Plain(VT_I8, std::int64_t{-2147483648LL}), std::numeric_limits<Long>::min()},
      {"64 bits, beyond", Plain(VT_I8, std::int64_t{-2147483649LL}), -2147483649.0},
      {"64 bits unsigned, small", Plain(VT_UI8, std::uint64_t{9}), Long{9}},
      {"64 bits unsigned, highest", Plain(VT_UI8, ~std::uint64_t{0}), k2to32 * k2to32},
      {"single", Plain(VT_R4, 1.5F), Single{1.5F}},
      {"double", Plain(VT_R8, 0.1), 0.1},
      {"currency", Plain(VT_CY, std::int64_t{-12345}), -1.2345},
      {"decimal", Decimal(-12.25), -12.25},
      {"date", Plain(VT_DATE, 45000.25), Date{45000.25}},
      {"true", Plain(VT_BOOL, std::int16_t{-1}), true},
      {"true by another number", Plain(VT_BOOL, std::int16_t{1}), true},
      {"false", Plain(VT_BOOL, std::int16_t{0}), false},
  };
}

}  // namespace

TEST(VariantFromWorld, Numbers_AreOfTheNearestKind) {
  for (const Number& number : Numbers()) {
    EXPECT_TRUE(FromVARIANT(number.value) == number.expected) << number.name;
  }
}

TEST(VariantFromWorld, References_AreLookedThrough) {
  for (Number number : Numbers()) {
    VARIANT typed = VariantOfType(VT_BYREF | number.value.vt);
    typed.byref = number.value.vt == VT_DECIMAL ? static_cast<void*>(&number.value.decVal) : &number.value.byref;
    EXPECT_TRUE(FromVARIANT(typed) == number.expected) << number.name;
    VARIANT any = VariantOfType(VT_BYREF | VT_VARIANT);
    any.pvarVal = &number.value;
    EXPECT_TRUE(FromVARIANT(any) == number.expected) << number.name;
    VARIANT twice = VariantOfType(VT_BYREF | VT_VARIANT);
    twice.pvarVal = &typed;
    EXPECT_TRUE(FromVARIANT(twice) == number.expected) << number.name;
  }
}

TEST(VariantFromWorld, WhatIsNoValue) {
  EXPECT_TRUE(FromVARIANT(VariantOfType(VT_EMPTY)).IsEmpty());
  EXPECT_TRUE(FromVARIANT(VariantOfType(VT_NULL)).IsNull());
  EXPECT_TRUE(FromVARIANT(Plain(VT_ERROR, DISP_E_PARAMNOTFOUND)).IsMissing());
  EXPECT_EQ(FromVARIANT(Plain(VT_BSTR, static_cast<BSTR>(nullptr))), Variant(String()));
  EXPECT_TRUE(FromVARIANT(Plain(VT_DISPATCH, static_cast<void*>(nullptr))).ToObject().IsNothing());
  EXPECT_TRUE(FromVARIANT(Plain(VT_UNKNOWN, static_cast<void*>(nullptr))).ToObject().IsNothing());
}

TEST(VariantFromWorld, WhatHasNoKindHere_Raises) {
  EXPECT_EQ(Raised(Plain(VT_ERROR, HRESULT{E_FAIL})), errors::kTypeMismatch);
  EXPECT_EQ(Raised(VariantOfType(VT_RECORD)), errors::kTypeMismatch);
  EXPECT_EQ(Raised(VariantOfType(VT_VARIANT)), errors::kTypeMismatch);
  EXPECT_EQ(Raised(VariantOfType(0x0FFF)), errors::kTypeMismatch);
  for (const int type :
       {int{VT_I4}, int{VT_BSTR}, int{VT_VARIANT}, int{VT_DISPATCH}, VT_ARRAY | VT_UI1, int{VT_RECORD}, 0x0FFF}) {
    EXPECT_EQ(Raised(VariantOfType(VT_BYREF | type)), errors::kTypeMismatch) << type;  // a null reference
  }
  VARIANT ring = VariantOfType(VT_BYREF | VT_VARIANT);
  ring.pvarVal = &ring;
  EXPECT_EQ(Raised(ring), errors::kTypeMismatch);
}

TEST(VariantFromWorld, Arrays_OfOurKinds) {
  OwnVariant array(VariantOfType(VT_ARRAY | VT_BSTR));
  array->parray = ::SafeArrayCreateVector(VT_BSTR, 3, 2);
  static_cast<BSTR*>(array->parray->pvData)[1] = ::SysAllocString(L"second");
  const Array<String> texts = FromVARIANT(*array).ToArray<String>();
  EXPECT_EQ(texts.Lower(), 3);
  EXPECT_EQ(texts.Elements(), (std::vector<String>{u"", u"second"}));

  VARIANT reference = VariantOfType(VT_BYREF | VT_ARRAY | VT_BSTR);
  reference.pparray = &array->parray;
  EXPECT_EQ(FromVARIANT(reference).ToArray<String>(), texts);

  VARIANT none = VariantOfType(VT_ARRAY | VT_UI1);
  none.parray = nullptr;
  EXPECT_FALSE(FromVARIANT(none).ToArray<Byte>().IsSized());
}

TEST(VariantFromWorld, ArraysOfOtherKinds_BecomeArraysOfVariant) {
  OwnVariant numbers(VariantOfType(VT_ARRAY | VT_I8));
  numbers->parray = ::SafeArrayCreateVector(VT_I8, 0, 2);
  static_cast<std::int64_t*>(numbers->parray->pvData)[0] = 77;
  static_cast<std::int64_t*>(numbers->parray->pvData)[1] = 5'000'000'000;
  const Variant read = FromVARIANT(*numbers);
  const auto* elements = read.If<Variant::Shared<Variant>>();
  ASSERT_TRUE(elements);
  EXPECT_EQ((**elements)(0), Variant(Long{77}));
  EXPECT_EQ((**elements)(1), Variant(5'000'000'000.0));

  OwnVariant mixed(VariantOfType(VT_ARRAY | VT_VARIANT));
  mixed->parray = ::SafeArrayCreateVector(VT_VARIANT, 1, 3);
  auto* const slots = static_cast<VARIANT*>(mixed->parray->pvData);
  slots[0] = ToVARIANT(u"text");
  slots[1] = Plain(VT_UI1, std::uint8_t{9});
  slots[2] = ToVARIANT(true);
  EXPECT_EQ(FromVARIANT(*mixed).ToArray<String>().Elements(), (std::vector<String>{u"text", u"9", u"True"}));
}

TEST(VariantFromWorld, ArraysThatArentWhatTheySay_Raise) {
  SAFEARRAYBOUND bounds[2] = {{2, 0}, {2, 0}};
  OwnVariant square(VariantOfType(VT_ARRAY | VT_UI1));
  square->parray = ::SafeArrayCreate(VT_UI1, 2, bounds);
  EXPECT_EQ(Raised(*square), errors::kTypeMismatch);

  OwnVariant bytes(VariantOfType(VT_ARRAY | VT_UI1));
  bytes->parray = ::SafeArrayCreateVector(VT_UI1, 0, 4);
  VARIANT lie = *bytes;
  for (const int type : {VT_BSTR, VT_BOOL, VT_VARIANT, VT_RECORD, VT_I4}) {
    lie.vt = static_cast<VARTYPE>(VT_ARRAY | type);
    EXPECT_EQ(Raised(lie), errors::kTypeMismatch) << type;
  }

  // A ring: an array whose element refers to the array.
  OwnVariant ring(VariantOfType(VT_ARRAY | VT_VARIANT));
  ring->parray = ::SafeArrayCreateVector(VT_VARIANT, 0, 1);
  VARIANT& element = *static_cast<VARIANT*>(ring->parray->pvData);
  element.vt = VT_BYREF | VT_ARRAY | VT_VARIANT;
  element.pparray = &ring->parray;
  EXPECT_EQ(Raised(*ring), errors::kTypeMismatch);
}

TEST(VariantToWorld, EachKindGoesAsItsOwnAndComesBack) {
  Array<Variant> any(2, 4);
  any(2) = u"a";
  any(3) = Variant::Null();
  const struct {
    Variant value;
    int type;
  } cases[] = {
      {Variant(), VT_EMPTY}, {Variant::Null(), VT_NULL}, {Missing(), VT_ERROR}, {true, VT_BOOL},
      {Integer{-3}, VT_I2},  {Long{70000}, VT_I4},       {Single{1.5F}, VT_R4}, {0.1, VT_R8},
      {Date{2.5}, VT_DATE},  {u"\u4E2D", VT_BSTR},       {u"", VT_BSTR},        {Object(), VT_DISPATCH},
  };
  for (const auto& c : cases) {
    OwnVariant there(ToVARIANT(c.value));
    EXPECT_EQ(there->vt, c.type);
    EXPECT_TRUE(FromVARIANT(*there) == c.value) << c.type;
  }
  OwnVariant array(ToVARIANT(any));
  EXPECT_EQ(array->vt, VT_ARRAY | VT_VARIANT);
  EXPECT_TRUE(**FromVARIANT(*array).If<Variant::Shared<Variant>>() == any);
  Long number = 12;
  OwnVariant referred(ToVARIANT(Variant::ByRef(number)));
  EXPECT_EQ(referred->vt, VT_I4);
  EXPECT_EQ(referred->lVal, 12);
}

}  // namespace strandline::win32test
