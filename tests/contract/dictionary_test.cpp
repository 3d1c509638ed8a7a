// Dictionaries, by the seam's own operations and by the names of their members.

#include "platform/dictionary.h"

#include "tests/contract/contract.h"
#include "tests/support/raised.h"

namespace strandline::contract {
namespace {

// An object of ours that tells when it ends.
class Thing final : public Dispatch {
 public:
  explicit Thing(int& living) : mLiving(living) { ++mLiving; }
  ~Thing() override { --mLiving; }
  Variant Invoke(Use, Name, const Arguments&) override { return Long{7}; }
  Long Identity() const override { return 1; }

 private:
  int& mLiving;
};

std::string Texts(const Array<Variant>& values) {
  std::string texts;
  for (const Variant& value : values.Elements()) texts += ToUtf8(value.ToText()) + " ";
  return texts;
}

class DictionaryContract : public Contract {
 protected:
  std::string Content() const { return Texts(dictionary->Keys()) + "= " + Texts(dictionary->Items()); }

  const Ref<Dictionary> dictionary = components.CreateDictionary();
  const Object object = dictionary;
};

TEST_F(DictionaryContract, ANewOne_IsEmpty) {
  EXPECT_EQ(dictionary->Count(), 0);
  EXPECT_EQ(dictionary->Keys().Lower(), 0);
  EXPECT_EQ(dictionary->Keys().Upper(), -1);
  EXPECT_EQ(dictionary->Items().Upper(), -1);
  EXPECT_FALSE(dictionary->Exists(u""));
  EXPECT_EQ(object.Get("CompareMode").ToLong(), 0);
}

TEST_F(DictionaryContract, Keys_StandInTheOrderOfTheirAdding) {
  dictionary->Add(u"b", Long{1});
  dictionary->Add(u"a", Long{2});
  dictionary->SetItem(u"c", Long{3});
  dictionary->SetItem(u"a", Long{4});
  EXPECT_EQ(Content(), "b a c = 1 4 3 ");
  dictionary->Remove(u"b");
  dictionary->Add(u"b", Long{5});
  EXPECT_EQ(Content(), "a c b = 4 3 5 ");
  EXPECT_EQ(dictionary->KeyAt(2).ToText(), u"b");
  EXPECT_EQ(dictionary->ItemAt(1).ToLong(), 3);
  dictionary->RemoveAll();
  EXPECT_EQ(dictionary->Count(), 0);
}

TEST_F(DictionaryContract, ReadingAnAbsentKey_AddsItWithEmpty) {
  EXPECT_TRUE(dictionary->Item(u"a").IsEmpty());
  EXPECT_TRUE(dictionary->Exists(u"a"));
  EXPECT_TRUE(object.Get("Item", Long{12}).IsEmpty());
  EXPECT_TRUE(object.Call("Item", u"c").IsEmpty());
  EXPECT_EQ(Content(), "a 12 c =    ");
  EXPECT_EQ(Raised([&] { dictionary->Add(u"a", Long{1}); }), errors::kDuplicateKey);
  EXPECT_TRUE(dictionary->Item(u"a").IsEmpty());
}

TEST_F(DictionaryContract, AskingWhetherAKeyIsThere_AddsNothing) {
  EXPECT_FALSE(dictionary->Exists(u"a"));
  EXPECT_FALSE(object.Call("Exists", Long{12}).ToBoolean());
  EXPECT_EQ(dictionary->Count(), 0);
}

TEST_F(DictionaryContract, Keys_AreTextsWithCaseNumbersByValueAndObjectsByIdentity) {
  const Object one = components.CreateDictionary();
  const Object other = components.CreateDictionary();
  const Variant keys[] = {u"a", u"A", u"1", Long{1}, one, other, u"", 1.5, Long{-70000}};
  Long item = 0;
  for (const Variant& key : keys) dictionary->Add(key, ++item);
  item = 0;
  for (const Variant& key : keys) EXPECT_EQ(dictionary->Item(key), Variant(++item));
  EXPECT_EQ(dictionary->Count(), 9);
}

// A window's handle is a Long here and may be an Integer in a macro.
TEST_F(DictionaryContract, NumbersOfOneValue_AreOneKeyWhateverTheirWidth) {
  dictionary->Add(Integer{5}, u"five");
  for (const Variant& key : {Variant(Long{5}), Variant(5.0), Variant(Single{5}), Variant(Integer{5})}) {
    EXPECT_TRUE(dictionary->Exists(key)) << key.Kind();
    EXPECT_EQ(Raised([&] { dictionary->Add(key, Long{1}); }), errors::kDuplicateKey) << key.Kind();
    EXPECT_EQ(dictionary->Item(key).ToText(), u"five");
  }
  EXPECT_FALSE(dictionary->Exists(u"5"));
  EXPECT_EQ(dictionary->Count(), 1);
  EXPECT_TRUE(dictionary->KeyAt(0).If<Integer>()) << "as it was added";
}

TEST_F(DictionaryContract, References_AreKeptAsTheirValues) {
  Long number = 1;
  String key = u"a";
  dictionary->Add(Variant::ByRef(key), Variant::ByRef(number));
  number = 2;
  key = u"b";
  EXPECT_EQ(Content(), "a = 1 ");
  dictionary->SetItem(Variant::ByRef(key), Variant::ByRef(number));
  EXPECT_EQ(dictionary->Item(Variant::ByRef(key)), Variant(Long{2}));
  EXPECT_TRUE(dictionary->Exists(Variant::ByRef(key)));
  number = 3;
  EXPECT_EQ(Content(), "a b = 1 2 ");
  dictionary->Remove(Variant::ByRef(key));
  EXPECT_EQ(Content(), "a = 1 ");
}

TEST_F(DictionaryContract, Items_ComeBackAsTheyWent) {
  Array<Boolean> flags(0, 1);
  flags(1) = true;
  Array<String> texts(2, 3);
  texts(2) = u"\u20AC";
  const Variant items[] = {{}, true, Integer{-3}, Long{123456}, Single{1.5F}, 0.1, Date{45000.25}, u"\u00E9", Object()};
  for (const Variant& item : items) {
    dictionary->SetItem(u"item", item);
    EXPECT_EQ(dictionary->Item(u"item"), item) << item.Kind();
  }
  dictionary->SetItem(u"item", flags);
  EXPECT_EQ(dictionary->Item(u"item").ToArray<Boolean>(), flags);
  dictionary->SetItem(u"item", texts);
  EXPECT_EQ(dictionary->Item(u"item").ToArray<String>(), texts);
}

TEST_F(DictionaryContract, AnObjectKeptInIt_ComesBackAsItselfAndEndsWhenItGoes) {
  int living = 0;
  Ref<Thing> thing = New<Thing>(living);
  const Object same = thing;
  dictionary->Add(Long{1}, same);
  dictionary->SetItem(Long{2}, same);
  EXPECT_EQ(dictionary->Item(Long{1}).ToObject(), same);
  EXPECT_EQ(dynamic_cast<Thing*>(dictionary->ItemAt(1).ToObject().Target()), thing.get());
  const Ref<Dictionary> inner = components.CreateDictionary();
  dictionary->Add(Long{3}, inner);
  EXPECT_EQ(dictionary->Item(Long{3}).ToObject(), Object(inner));
  EXPECT_EQ(dynamic_cast<Dictionary*>(dictionary->Item(Long{3}).ToObject().Target()), inner.get());

  const Ref<Dictionary> others = components.CreateDictionary();
  for (Long key = 0; key < 4; ++key) others->Add(key, New<Thing>(living));
  EXPECT_EQ(living, 5);
  others->Remove(Long{0});
  EXPECT_EQ(living, 4);
  others->SetItem(Long{1}, Long{1});
  EXPECT_EQ(living, 3);
  others->RemoveAll();
  EXPECT_EQ(living, 1);
}

TEST_F(DictionaryContract, ItsEnd_LetsGoOfItsItems) {
  int living = 0;
  Ref<Dictionary> mortal = components.CreateDictionary();
  mortal->Add(u"a", New<Thing>(living));
  mortal->Add(New<Thing>(living), u"b");
  EXPECT_EQ(living, 2);
  mortal = nullptr;
  EXPECT_EQ(living, 0);
}

TEST_F(DictionaryContract, WhatItRefuses_HasAnErrorOfItsOwn) {
  dictionary->Add(u"a", Long{1});
  dictionary->Add(u"b", Long{2});
  EXPECT_EQ(Raised([&] { dictionary->Add(u"a", Long{3}); }), errors::kDuplicateKey);
  EXPECT_EQ(Raised([&] { dictionary->Remove(u"absent"); }), errors::kElementNotFound);
  EXPECT_EQ(Raised([&] { object.Let("CompareMode", Long{1}); }), errors::kInvalidArgument);
  EXPECT_EQ(Raised([&] { object.Let("Key", u"a", u"b"); }), errors::kDuplicateKey);
  EXPECT_EQ(Raised([&] { object.Call("Clear"); }), errors::kNoSuchMember);
  EXPECT_EQ(Raised([&] { object.Call("Add", u"c"); }), errors::kWrongNumberOfArguments);
  EXPECT_EQ(Raised([&] { object.Get("Item"); }), errors::kWrongNumberOfArguments);
  EXPECT_EQ(Raised([&] { object.Call("Keys", Long{0}); }), errors::kWrongNumberOfArguments);
  EXPECT_EQ(Raised([&] { object.Let("Count", Long{0}); }), errors::kNoSuchMember);
  for (const Long position : {-1, 2}) {
    EXPECT_EQ(Raised([&] { dictionary->KeyAt(position); }), errors::kSubscriptOutOfRange);
    EXPECT_EQ(Raised([&] { dictionary->ItemAt(position); }), errors::kSubscriptOutOfRange);
  }
  EXPECT_EQ(Content(), "a b = 1 2 ");
}

TEST_F(DictionaryContract, Members_AreReachedByName) {
  object.Call("Add", u"a", Long{1});
  object.Let("Item", u"b", Long{2});
  EXPECT_EQ(object.Get("Count").ToLong(), 2);
  EXPECT_TRUE(object.Call("Exists", u"a").ToBoolean());
  EXPECT_FALSE(object.Call("exists", u"c").ToBoolean());
  EXPECT_EQ(object.Get("item", u"b").ToLong(), 2);
  EXPECT_EQ(object.Call("Item", u"b").ToLong(), 2);
  object.Let("Key", u"a", u"z");
  EXPECT_EQ(object.Get("Item", u"z").ToLong(), 1);
  EXPECT_FALSE(dictionary->Exists(u"a"));
  object.Call("Remove", u"z");
  EXPECT_EQ(Content(), "b = 2 ");
  object.Call("Add", u"c", Long{3});
  EXPECT_EQ(Texts(*(*object.Call("Keys").If<Variant::Shared<Variant>>())), "b c ");
  EXPECT_EQ(Texts(*(*object.Get("Items").If<Variant::Shared<Variant>>())), "2 3 ");
  object.Call("RemoveAll");
  EXPECT_EQ(dictionary->Count(), 0);
}

TEST_F(DictionaryContract, NewNameForAnAbsentKey_IsRefused) {
  dictionary->Add(u"a", Long{1});
  EXPECT_EQ(Raised([&] { object.Let("Key", u"absent", u"z"); }), WINE_DIFFERS(errors::kElementNotFound, 0));
  EXPECT_EQ(Content(), WINE_DIFFERS("a = 1 ", "a z = 1  "));
}

TEST_F(DictionaryContract, CompareMode_LetsTextsMeetWithoutCase) {
  object.Let("CompareMode", Long{1});
  EXPECT_EQ(object.Get("CompareMode").ToLong(), 1);
  dictionary->Add(u"Key", Long{1});
  EXPECT_TRUE(dictionary->Exists(u"KEY"));
  EXPECT_EQ(dictionary->Item(u"key").ToLong(), 1);
  EXPECT_EQ(Raised([&] { dictionary->Add(u"kEY", Long{2}); }), errors::kDuplicateKey);
  EXPECT_FALSE(dictionary->Exists(u"Keys"));
  EXPECT_EQ(Content(), "Key = 1 ");
  dictionary->RemoveAll();
  object.Let("CompareMode", Long{0});
  dictionary->Add(u"Key", Long{1});
  EXPECT_FALSE(dictionary->Exists(u"KEY"));
}

TEST_F(DictionaryContract, GoingThroughIt_YieldsItsKeys) {
  dictionary->Add(u"b", Long{1});
  dictionary->Add(Long{12}, Long{2});
  const Ref<Enumerator> keys = dictionary->Elements();
  std::string walked;
  Variant key;
  while (keys->Next(key)) walked += ToUtf8(key.ToText()) + " ";
  EXPECT_EQ(walked, "b 12 ");
  EXPECT_FALSE(keys->Next(key));
  Object element;
  EXPECT_FALSE(Walk().First(components.CreateDictionary(), element));
}

TEST_F(DictionaryContract, TwoOfThem_AreApart) {
  const Ref<Dictionary> other = components.CreateDictionary();
  other->Add(u"a", Long{1});
  EXPECT_EQ(dictionary->Count(), 0);
  EXPECT_NE(object, Object(other));
  EXPECT_NE(object.Identity(), other->Identity());
}

// A callee gets the object itself: what it adds is there, and what it hands back is the same dictionary.
TEST_F(DictionaryContract, HandedOut_ItIsTheSameObject) {
  const Ref<Dictionary> courier = components.CreateDictionary();
  Object(courier).Call("Add", u"it", object);
  const Object back = Object(courier).Get("Item", u"it").ToObject();
  back.Call("Add", u"a", Long{1});
  EXPECT_EQ(Content(), "a = 1 ");
  EXPECT_EQ(back, object);
  EXPECT_EQ(back.Identity(), object.Identity());
}

}  // namespace
}  // namespace strandline::contract
