// The tagged value, the late-bound reference, and walks through collections.

#include "platform/variant.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "platform/desk/desk.h"
#include "tests/support/allocations.h"
#include "tests/support/raised.h"

namespace strandline {
namespace {

// Writes down how it is used; a collection of whole numbers where it was given some.
class Thing final : public Dispatch {
 public:
  explicit Thing(std::vector<Variant> elements = {}) : mElements(std::move(elements)) {}

  Variant Invoke(Use use, Name member, const Arguments& arguments) override {
    used = use == Use::kGet ? "get " : use == Use::kLet ? "let " : "call ";
    used += member.Text();
    for (const Variant& argument : arguments.positional) {
      used += argument.IsMissing() ? " missing" : " " + ToUtf8(argument.ToText());
    }
    for (const Named& argument : arguments.named) {
      used += " " + std::string(argument.name.Text()) + ":=" + ToUtf8(argument.value.ToText());
    }
    if (member == Name("Write")) arguments.positional[0].Assign(Long{42});
    if (member == Name("Absent")) Raise(errors::kNoSuchMember);
    return Long{7};
  }
  Long Identity() const override { return 99; }
  Ref<Enumerator> Elements() override {
    if (mElements.empty()) return Dispatch::Elements();
    return New<Steps>(Ref<Thing>(this));
  }

  std::string used;

 private:
  // Empty elements raise.
  class Steps final : public Enumerator {
   public:
    explicit Steps(Ref<Thing> of) : mOf(std::move(of)) {}
    bool Next(Variant& element) override {
      if (mAt == mOf->mElements.size()) return false;
      element = mOf->mElements[mAt++];
      if (element.IsEmpty()) Raise(5);
      return true;
    }

   private:
    Ref<Thing> mOf;
    std::size_t mAt = 0;
  };

  std::vector<Variant> mElements;
};

class PictureOfNothing final : public PictureObject {
 public:
  Long Handle() const override { return 1; }
  Long Width() const override { return 2; }
  Long Height() const override { return 3; }
};

constexpr Long kLowest = std::numeric_limits<Long>::min();

TEST(VariantValue, ConvertsBetweenItsTypes) {
  constexpr Long kMismatch = errors::kTypeMismatch;
  constexpr Long kOverflow = errors::kOverflow;
  constexpr Long kNull = errors::kInvalidUseOfNull;
  constexpr Long kNone = 0;
  const struct {
    Variant value;
    // what each conversion raises, and its value where it raises nothing
    Long asLong, longRaises, asInteger, integerRaises;
    Boolean asBoolean;
    Long booleanRaises;
    const char16_t* asText;
    Long textRaises;
  } cases[] = {
      {Variant(), 0, kNone, 0, kNone, false, kNone, u"", kNone},
      {true, -1, kNone, -1, kNone, true, kNone, u"True", kNone},
      {false, 0, kNone, 0, kNone, false, kNone, u"False", kNone},
      {Integer{-5}, -5, kNone, -5, kNone, true, kNone, u"-5", kNone},
      {Long{70000}, 70000, kNone, 0, kOverflow, true, kNone, u"70000", kNone},
      {Long{kLowest}, kLowest, kNone, 0, kOverflow, true, kNone, u"-2147483648", kNone},
      {2.5, 2, kNone, 2, kNone, true, kNone, u"2.5", kNone},
      {0.25, 0, kNone, 0, kNone, true, kNone, u"0.25", kNone},
      {Single{0.5f}, 0, kNone, 0, kNone, true, kNone, u"0.5", kNone},
      {1e10, 0, kOverflow, 0, kOverflow, true, kNone, u"10000000000", kNone},
      {Date{39874.75}, 39875, kNone, 0, kOverflow, true, kNone, u"3/2/2009 6:00:00 PM", kNone},
      {u"12.5", 12, kNone, 12, kNone, true, kNone, u"12.5", kNone},
      {u"0", 0, kNone, 0, kNone, false, kNone, u"0", kNone},
      {u"40000", 40000, kNone, 0, kOverflow, true, kNone, u"40000", kNone},
      {u"True", 0, kMismatch, 0, kMismatch, true, kNone, u"True", kNone},
      {u"abc", 0, kMismatch, 0, kMismatch, false, kMismatch, u"abc", kNone},
      {u"", 0, kMismatch, 0, kMismatch, false, kMismatch, u"", kNone},
      {Object(), 0, kMismatch, 0, kMismatch, false, kMismatch, u"", kMismatch},
      {Missing(), 0, kMismatch, 0, kMismatch, false, kMismatch, u"", kMismatch},
      {Picture(), 0, kMismatch, 0, kMismatch, false, kMismatch, u"", kMismatch},
      {Array<Byte>(0, 1), 0, kMismatch, 0, kMismatch, false, kMismatch, u"", kMismatch},
      {Array<Variant>(0, 1), 0, kMismatch, 0, kMismatch, false, kMismatch, u"", kMismatch},
      {Variant::Null(), 0, kNull, 0, kNull, false, kNull, u"", kNull},
  };
  desk::Desk desk;
  platform::current = desk.Services();  // a date's text is the user's
  int row = 0;
  for (const auto& c : cases) {
    SCOPED_TRACE("row " + std::to_string(row++));
    // As it is, and by reference.
    Variant variable = c.value;
    const Variant reference = Variant::ByRef(variable);
    for (const Variant* value : {&c.value, &reference}) {
      EXPECT_EQ(Raised([&] { EXPECT_EQ(value->ToLong(), c.asLong); }), c.longRaises);
      EXPECT_EQ(Raised([&] { EXPECT_EQ(value->ToInteger(), c.asInteger); }), c.integerRaises);
      EXPECT_EQ(Raised([&] { EXPECT_EQ(value->ToBoolean(), c.asBoolean); }), c.booleanRaises);
      EXPECT_EQ(Raised([&] { EXPECT_EQ(value->ToText(), c.asText); }), c.textRaises);
    }
  }
  platform::current = {};
}

TEST(VariantValue, Double_TakesWhatIsANumber) {
  EXPECT_EQ(Variant(u"1.25").ToDouble(), 1.25);
  EXPECT_EQ(Variant(Date{3.5}).ToDouble(), 3.5);
  EXPECT_EQ(Variant(true).ToDouble(), -1);
  EXPECT_EQ(Variant(Single{0.5f}).ToDouble(), 0.5);
  EXPECT_EQ(Raised([] { Variant(Object()).ToDouble(); }), errors::kTypeMismatch);
}

TEST(VariantValue, Object_IsAReferenceNothingIncluded) {
  const auto thing = New<Thing>();
  EXPECT_EQ(Variant(thing).ToObject().Target(), thing.get());
  EXPECT_TRUE(Variant(Object()).ToObject().IsNothing());
  Object variable = thing;
  EXPECT_EQ(Variant::ByRef(variable).ToObject().Target(), thing.get());
  for (const Variant& other : {Variant(), Variant(Long{0}), Variant(u""), Variant(Picture())}) {
    EXPECT_EQ(Raised([&] { other.ToObject(); }), errors::kTypeMismatch);
  }
}

TEST(VariantValue, Picture_IsAPictureOrNothing) {
  const Picture picture = New<PictureOfNothing>();
  EXPECT_TRUE(Variant(picture).ToPicture() == picture);
  EXPECT_FALSE(Variant(Object()).ToPicture());
  EXPECT_EQ(Raised([] { Variant(New<Thing>()).ToPicture(); }), errors::kTypeMismatch);
  EXPECT_EQ(Raised([] { Variant(Long{1}).ToPicture(); }), errors::kTypeMismatch);
  EXPECT_EQ(Raised([] { Required(Picture()); }), errors::kObjectNotSet);
  EXPECT_EQ(Required(picture).Width(), 2);
}

TEST(VariantValue, Reference_IsWrittenInItsVariablesType) {
  Boolean flag = false;
  Integer small = 0;
  Long number = 0;
  Single share = 0;
  Double real = 0;
  String text;
  Object object;
  Variant any;
  Variant::ByRef(flag).Assign(u"1");
  Variant::ByRef(small).Assign(2.5);
  Variant::ByRef(number).Assign(u"70000");
  Variant::ByRef(share).Assign(u"0.3");
  Variant::ByRef(real).Assign(u"0.5");
  Variant::ByRef(text).Assign(Long{12});
  Variant::ByRef(object).Assign(New<Thing>());
  Variant::ByRef(any).Assign(Variant::ByRef(number));
  EXPECT_TRUE(flag);
  EXPECT_EQ(small, 2);
  EXPECT_EQ(number, 70000);
  EXPECT_EQ(share, 0.3F);
  EXPECT_EQ(Variant::ByRef(share).ToText(), u"0.3");
  EXPECT_EQ(real, 0.5);
  EXPECT_EQ(text, u"12");
  EXPECT_FALSE(object.IsNothing());
  EXPECT_EQ(any, Variant(Long{70000}));

  EXPECT_EQ(Raised([&] { Variant::ByRef(small).Assign(Long{70000}); }), errors::kOverflow);
  EXPECT_EQ(small, 2);
  EXPECT_EQ(Raised([&] { Variant::ByRef(share).Assign(1e300); }), errors::kOverflow);
  EXPECT_EQ(share, 0.3F);
  constexpr Single kMost = std::numeric_limits<Single>::max();
  Variant::ByRef(share).Assign(Double{kMost});
  EXPECT_EQ(share, kMost);
  EXPECT_EQ(Raised([&] { Variant::ByRef(object).Assign(Long{1}); }), errors::kTypeMismatch);
  EXPECT_EQ(Raised([&] { Variant(Long{1}).Assign(Long{2}); }), errors::kTypeMismatch);
  EXPECT_EQ(Raised([&] { Variant().Assign(Long{2}); }), errors::kTypeMismatch);
}

TEST(VariantValue, ReferenceToAnArray_TakesArraysOfItsKind) {
  Array<Byte> bytes;
  Array<String> texts(1, 1);
  Array<Boolean> flags(0, 1);
  flags(1) = true;
  Variant::ByRef(bytes).Assign(Array<Byte>(0, 3));
  EXPECT_EQ(bytes.Upper(), 3);
  EXPECT_EQ(Raised([&] { Variant::ByRef(bytes).Assign(texts); }), errors::kTypeMismatch);
  EXPECT_EQ(Raised([&] { Variant::ByRef(texts).Assign(u"text"); }), errors::kTypeMismatch);
  Array<Boolean> copy;
  Variant::ByRef(copy).Assign(Variant::ByRef(flags));
  EXPECT_EQ(copy, flags);
}

TEST(VariantValue, Null_IsHandedOnButIsNoValue) {
  const Variant null = Variant::Null();
  EXPECT_TRUE(null.IsNull());
  EXPECT_FALSE(null.IsEmpty() || null.IsMissing() || Variant().IsNull());
  EXPECT_FALSE(null == Variant());
  Variant any = Long{1};
  Variant::ByRef(any).Assign(null);
  EXPECT_TRUE(any.IsNull());
  String text = u"kept";
  EXPECT_EQ(Raised([&] { Variant::ByRef(text).Assign(any); }), errors::kInvalidUseOfNull);
  EXPECT_EQ(text, u"kept");
  EXPECT_EQ(Raised([&] { (void)null.ToDouble(); }), errors::kInvalidUseOfNull);
  EXPECT_EQ(Raised([&] { (void)null.ToObject(); }), errors::kTypeMismatch);
  EXPECT_EQ(Raised([&] { (void)null.ToPicture(); }), errors::kTypeMismatch);
  EXPECT_EQ(Raised([&] { (void)null.ToArray<String>(); }), errors::kTypeMismatch);
}

Array<Variant> Elements(Long lower, std::vector<Variant> elements) {
  Array<Variant> array(lower, lower + static_cast<Long>(elements.size()) - 1);
  for (Variant& element : elements) array(lower++) = std::move(element);
  return array;
}

TEST(VariantValue, ArrayOfVariants_BecomesTheArrayThatIsWanted) {
  Long number = 7;
  const Variant texts = Elements(1, {u"one", Long{2}, Variant(), Variant::ByRef(number)});
  Array<String> asTexts;
  Variant::ByRef(asTexts).Assign(texts);
  EXPECT_EQ(asTexts.Lower(), 1);
  EXPECT_EQ(asTexts.Elements(), (std::vector<String>{u"one", u"2", u"", u"7"}));

  const Variant flags = Elements(0, {true, Long{0}, u"True", Integer{-1}});
  const Array<Boolean> asFlags = flags.ToArray<Boolean>();
  EXPECT_EQ(std::vector<bool>(asFlags.Elements().begin(), asFlags.Elements().end()),
            (std::vector<bool>{true, false, true, true}));

  EXPECT_EQ(Variant(Elements(0, {Integer{255}, u"12", 2.5, Long{0}})).ToArray<Byte>().Elements(),
            (std::vector<Byte>{255, 12, 2, 0}));
  EXPECT_FALSE(Variant(Array<Variant>()).ToArray<Byte>().IsSized());
  EXPECT_EQ(Variant(Elements(3, {})).ToArray<String>().Upper(), 2);
}

TEST(VariantValue, ArrayOfVariantsThatDontFit_LeavesTheVariable) {
  constexpr Long kNoText = errors::kTypeMismatch;
  const struct {
    Variant element;
    Long asByte, asText, asFlag;
  } cases[] = {
      {Long{256}, errors::kOverflow, 0, 0},
      {Integer{-1}, errors::kOverflow, 0, 0},
      {u"word", errors::kTypeMismatch, 0, errors::kTypeMismatch},
      {Object(), errors::kTypeMismatch, kNoText, errors::kTypeMismatch},
      {Variant::Null(), errors::kInvalidUseOfNull, errors::kInvalidUseOfNull, errors::kInvalidUseOfNull},
      {Array<Variant>(0, 0), errors::kTypeMismatch, kNoText, errors::kTypeMismatch},
  };
  for (const auto& c : cases) {
    Array<Byte> bytes(5, 5);
    const Variant array = Elements(0, {Long{1}, c.element});
    EXPECT_EQ(Raised([&] { Variant::ByRef(bytes).Assign(array); }), c.asByte);
    EXPECT_EQ(bytes.Lower(), 5);
    EXPECT_EQ(Raised([&] { (void)array.ToArray<String>(); }), c.asText);
    EXPECT_EQ(Raised([&] { (void)array.ToArray<Boolean>(); }), c.asFlag);
  }
}

TEST(VariantValue, Resolved_LooksThroughReferencesToReferences) {
  Long number = 5;
  Variant inner = Variant::ByRef(number);
  const Variant outer = Variant::ByRef(inner);
  EXPECT_TRUE(outer.IsByRef());
  EXPECT_FALSE(outer.Resolved().IsByRef());
  number = 6;
  EXPECT_EQ(outer.ToLong(), 6);
  EXPECT_EQ(outer.Resolved(), Variant(Long{6}));
  EXPECT_FALSE(Variant(Long{6}).IsByRef());
}

TEST(VariantValue, Equality_IsOfTypeAndValue) {
  EXPECT_EQ(Variant(u"a"), Variant(String(u"a")));
  EXPECT_FALSE(Variant(Long{1}) == Variant(Integer{1}));
  EXPECT_FALSE(Variant() == Variant(Missing()));
  EXPECT_TRUE(Variant().IsEmpty());
  EXPECT_TRUE(Variant(Missing()).IsMissing());
}

TEST(VariantValue, WhatItOwns_IsGivenBackOnceAndLeavesItEmpty) {
  const std::size_t alive = AllocationsAlive();
  const Variant values[] = {u"text",
                            Object(New<Thing>()),
                            Picture(New<PictureOfNothing>()),
                            Array<Byte>(0, 3),
                            Array<String>(0, 3),
                            Array<Boolean>(0, 3),
                            Array<Variant>(0, 3)};
  const std::size_t made = AllocationsAlive();
  for (const Variant& value : values) {
    Variant copy = value;
    Variant moved = std::move(copy);
    EXPECT_TRUE(copy.IsEmpty());  // NOLINT(bugprone-use-after-move): what stays behind is what is asked
    EXPECT_EQ(moved, value);
    copy = moved;
    moved = Long{1};
    EXPECT_EQ(copy, value);
  }
  EXPECT_EQ(AllocationsAlive(), made);
  EXPECT_GT(made, alive);
}

TEST(VariantValue, Objects_EndWithTheirLastHolder) {
  const std::size_t alive = AllocationsAlive();
  {
    const Ref<Thing> one = New<Thing>();
    Variant value = one;
    const Object object = value.ToObject();
    Ref<Thing> other = one;
    other = nullptr;
    EXPECT_GT(AllocationsAlive(), alive);
  }
  EXPECT_EQ(AllocationsAlive(), alive);
}

TEST(LateBound, Members_AreGotLetAndCalledByName) {
  const auto thing = New<Thing>();
  const Object object = thing;
  const Boolean flag = true;
  EXPECT_EQ(object.Get("Size").ToLong(), 7);
  EXPECT_EQ(thing->used, "get Size");
  object.Get("Item", Long{1}, u"b");
  EXPECT_EQ(thing->used, "get Item 1 b");
  object.Let("Caption", u"text");
  EXPECT_EQ(thing->used, "let Caption text");
  object.Let("Item", Long{3}, Integer{4});
  EXPECT_EQ(thing->used, "let Item 3 4");
  object.Call("Quit");
  EXPECT_EQ(thing->used, "call Quit");
  object.Call("Add", Long{1}, Missing(), flag);
  EXPECT_EQ(thing->used, "call Add 1 missing True");
  object.Call("Show", Long{1}, Named{"forceRedraw", false}, Named{"text", u"t"});
  EXPECT_EQ(thing->used, "call Show 1 forceRedraw:=False text:=t");
  object.Call("Show", Named{"a", Long{1}});
  EXPECT_EQ(thing->used, "call Show a:=1");
}

TEST(LateBound, ReferenceInACall_IsTheCallersVariable) {
  const Object object = New<Thing>();
  Long number = 0;
  object.Call("Write", Variant::ByRef(number));
  EXPECT_EQ(number, 42);
  object.Call("WRITE", Variant::ByRef(number));
}

TEST(LateBound, Nothing_RaisesAtEachUse) {
  const Object nothing;
  EXPECT_EQ(Raised([&] { nothing.Get("Size"); }), errors::kObjectNotSet);
  EXPECT_EQ(Raised([&] { nothing.Let("Size", Long{1}); }), errors::kObjectNotSet);
  EXPECT_EQ(Raised([&] { nothing.Call("Quit"); }), errors::kObjectNotSet);
  EXPECT_EQ(Raised([&] { (void)nothing.Identity(); }), errors::kObjectNotSet);
  EXPECT_EQ(Raised([] { Object(New<Thing>()).Get("Absent"); }), errors::kNoSuchMember);
}

TEST(LateBound, Names_AreTakenWithoutCase) {
  EXPECT_TRUE(Name("TooltipIconIndex") == Name("tooltipiconINDEX"));
  EXPECT_TRUE(Name("Item") == Name::FromText("ITEM"));
  EXPECT_FALSE(Name("Item") == Name("Items"));
  EXPECT_FALSE(Name("a[") == Name("a{"));
  EXPECT_FALSE(Name("a@") == Name("a`"));
  EXPECT_TRUE(Name("abcdefghijklmnopqrstuvwxyz") == Name::FromText("ABCDEFGHIJKLMNOPQRSTUVWXYZ"));
  EXPECT_TRUE(Name::FromText("Item") == Name::FromText("iTEM"));
}

std::string Walked(const Object& collection) {
  Walk walk;
  Object element;
  std::string identities;
  for (bool more = walk.First(collection, element); more; more = walk.Next(element)) {
    identities += std::to_string(element.Identity()) + " ";
  }
  EXPECT_TRUE(element.IsNothing());
  EXPECT_FALSE(walk.Next(element));
  return identities;
}

TEST(LateBound, Walk_GoesThroughACollection) {
  const Variant one = New<Thing>();
  EXPECT_EQ(Walked(New<Thing>(std::vector<Variant>{one, one, one})), "99 99 99 ");
}

TEST(LateBound, WalkThatRaises_IsOver) {
  const Variant one = New<Thing>();
  Walk walk;
  Object element;
  EXPECT_EQ(Raised([&] { walk.First(Object(), element); }), errors::kObjectNotSet);
  EXPECT_EQ(Raised([&] { walk.First(New<Thing>(), element); }), errors::kNoSuchMember);
  EXPECT_FALSE(walk.Next(element));
  EXPECT_TRUE(walk.First(New<Thing>(std::vector<Variant>{one, Variant(), one}), element));
  EXPECT_EQ(Raised([&] { walk.Next(element); }), 5);
  EXPECT_FALSE(walk.Next(element));
  // A walk that can't begin is over too, though another was under way.
  EXPECT_TRUE(walk.First(New<Thing>(std::vector<Variant>{one, one}), element));
  EXPECT_EQ(Raised([&] { walk.First(Object(), element); }), errors::kObjectNotSet);
  EXPECT_FALSE(walk.Next(element));
  // An element that is no object.
  EXPECT_TRUE(walk.First(New<Thing>(std::vector<Variant>{one, Long{1}, one}), element));
  EXPECT_EQ(Raised([&] { walk.Next(element); }), errors::kTypeMismatch);
  EXPECT_FALSE(walk.Next(element));
}

}  // namespace
}  // namespace strandline
