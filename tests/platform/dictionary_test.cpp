#include "platform/dictionary.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/raised.h"

namespace strandline {
namespace {

std::string Keys(const Dictionary& dictionary) {
  std::string keys;
  for (Long i = 0; i < dictionary.Count(); ++i) {
    keys += (i == 0 ? "" : " ") + ToUtf8(dictionary.KeyAt(i).ToText()) + "=" + ToUtf8(dictionary.ItemAt(i).ToText());
  }
  return keys;
}

TEST(DictionaryOfValues, KeepsTheOrderOfAdding) {
  const auto dictionary = New<Dictionary>();
  dictionary->Add(u"b", Long{1});
  dictionary->Add(u"a", Long{2});
  dictionary->SetItem(u"c", Long{3});
  dictionary->SetItem(u"a", Long{4});
  EXPECT_EQ(Keys(*dictionary), "b=1 a=4 c=3");
  dictionary->Remove(u"b");
  dictionary->Add(u"b", Long{5});
  EXPECT_EQ(Keys(*dictionary), "a=4 c=3 b=5");
  dictionary->RemoveAll();
  EXPECT_EQ(dictionary->Count(), 0);
}

TEST(DictionaryOfValues, ReadingAnAbsentKeyAddsItEmpty) {
  const auto dictionary = New<Dictionary>();
  EXPECT_FALSE(dictionary->Exists(u"a"));
  EXPECT_TRUE(dictionary->Item(u"a").IsEmpty());
  EXPECT_TRUE(dictionary->Exists(u"a"));
  EXPECT_EQ(dictionary->Count(), 1);
  EXPECT_EQ(Raised([&] { dictionary->Add(u"a", Long{1}); }), errors::kDuplicateKey);
  EXPECT_TRUE(dictionary->Item(u"a").IsEmpty());
}

TEST(DictionaryOfValues, KeysAreTextsWithCaseNumbersByValueAndObjectsByIdentity) {
  const auto dictionary = New<Dictionary>();
  const Object one = New<Dictionary>();
  const Object other = New<Dictionary>();
  const Variant keys[] = {u"a", u"A", u"1", Long{1}, one, other, u"", Variant(), 1.5};
  Long item = 0;
  for (const Variant& key : keys) dictionary->Add(key, ++item);
  item = 0;
  for (const Variant& key : keys) EXPECT_EQ(dictionary->Item(key), Variant(++item));
  EXPECT_EQ(dictionary->Item(Integer{1}), Variant(Long{4}));
  EXPECT_EQ(dictionary->Item(1.0), Variant(Long{4}));
  EXPECT_EQ(dictionary->Count(), 9);
}

TEST(DictionaryOfValues, References_AreKeptAsTheirValues) {
  const auto dictionary = New<Dictionary>();
  Long number = 1;
  String key = u"a";
  dictionary->Add(Variant::ByRef(key), Variant::ByRef(number));
  number = 2;
  key = u"b";
  EXPECT_EQ(Keys(*dictionary), "a=1");
  dictionary->SetItem(Variant::ByRef(key), Variant::ByRef(number));
  number = 3;
  EXPECT_EQ(Keys(*dictionary), "a=1 b=2");
}

TEST(DictionaryOfValues, WhatIsNoKeyRaises) {
  const auto dictionary = New<Dictionary>();
  EXPECT_EQ(Raised([&] { dictionary->Add(Array<Byte>(0, 1), Long{1}); }), errors::kTypeMismatch);
  EXPECT_NE(Raised([&] { dictionary->Remove(u"absent"); }), 0);
  dictionary->Add(u"a", Long{1});
  for (const Long position : {-1, 1}) {
    EXPECT_EQ(Raised([&] { dictionary->KeyAt(position); }), errors::kSubscriptOutOfRange);
    EXPECT_EQ(Raised([&] { dictionary->ItemAt(position); }), errors::kSubscriptOutOfRange);
  }
  EXPECT_EQ(Raised([] { Required(Ref<Dictionary>()); }), errors::kObjectNotSet);
}

TEST(DictionaryOfValues, IsReachedByName) {
  const auto dictionary = New<Dictionary>();
  const Object object = dictionary;
  object.Call("Add", u"a", Long{1});
  object.Let("Item", u"b", Long{2});
  EXPECT_EQ(object.Get("Count").ToLong(), 2);
  EXPECT_TRUE(object.Call("Exists", u"a").ToBoolean());
  EXPECT_FALSE(object.Call("exists", u"c").ToBoolean());
  EXPECT_EQ(object.Get("item", u"b").ToLong(), 2);
  EXPECT_EQ(object.Call("Item", u"b").ToLong(), 2);
  object.Call("Remove", u"a");
  EXPECT_EQ(Keys(*dictionary), "b=2");
  EXPECT_TRUE(object.Get("Item", u"c").IsEmpty());
  EXPECT_EQ(Keys(*dictionary), "b=2 c=");
  object.Call("RemoveAll");
  EXPECT_EQ(dictionary->Count(), 0);

  EXPECT_EQ(Raised([&] { object.Call("Clear"); }), errors::kNoSuchMember);
  EXPECT_EQ(Raised([&] { object.Call("Add", u"a"); }), errors::kArgumentNotOptional);
  EXPECT_EQ(Raised([&] { object.Get("Item"); }), errors::kArgumentNotOptional);
  EXPECT_EQ(Raised([&] { object.Call("Exists", Named{"key", u"a"}); }), errors::kNoSuchNamedArgument);
}

TEST(DictionaryOfValues, GoingThroughItYieldsKeys) {
  const auto dictionary = New<Dictionary>();
  dictionary->Add(u"b", Long{1});
  dictionary->Add(u"a", Long{2});
  const Ref<Enumerator> keys = dictionary->Elements();
  std::string walked;
  for (Variant key; keys->Next(key);) {
    walked += ToUtf8(key.ToText()) + " ";
    if (walked == "b ") dictionary->Add(u"c", Long{3});
  }
  EXPECT_EQ(walked, "b a c ");
  Variant key;
  EXPECT_FALSE(keys->Next(key));
}

TEST(DictionaryOfValues, ManyKeysAreFoundAgain) {
  const auto dictionary = New<Dictionary>();
  for (Long i = 0; i < 500; ++i) dictionary->Add(DecimalText(i), i);
  for (Long i = 0; i < 500; i += 2) dictionary->Remove(DecimalText(i));
  for (Long i = 0; i < 500; ++i) EXPECT_EQ(dictionary->Exists(DecimalText(i)), i % 2 == 1) << i;
  EXPECT_EQ(dictionary->Item(u"499").ToLong(), 499);
  EXPECT_NE(dictionary->Identity(), New<Dictionary>()->Identity());
}

}  // namespace
}  // namespace strandline
