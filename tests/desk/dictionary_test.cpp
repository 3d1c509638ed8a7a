// The desk's own dictionary, where it goes beyond what both worlds promise.

#include <gtest/gtest.h>

#include <string>

#include "platform/desk/desk_dictionary.h"
#include "tests/support/raised.h"
#include "tests/support/scripted_object.h"

namespace strandline::desk {
namespace {

std::string KeysOf(const Dictionary& dictionary) {
  std::string keys;
  for (Long i = 0; i < dictionary.Count(); ++i) {
    keys += (i == 0 ? "" : " ") + ToUtf8(dictionary.KeyAt(i).ToText()) + "=" + ToUtf8(dictionary.ItemAt(i).ToText());
  }
  return keys;
}

TEST(DeskDictionary, ArrayIsNoKey) {
  const auto dictionary = New<DeskDictionary>();
  EXPECT_EQ(Raised([&] { dictionary->Add(Array<Byte>(0, 1), Long{1}); }), errors::kTypeMismatch);
  EXPECT_EQ(dictionary->Count(), 0);
}

TEST(DeskDictionary, OneThatIsNothing_Raises) {
  EXPECT_EQ(Raised([] { Required(Ref<Dictionary>()); }), errors::kObjectNotSet);
}

TEST(DeskDictionary, KeyThatIsRenamed_KeepsItsPlace) {
  const Object object = New<DeskDictionary>();
  for (const char16_t* key : {u"a", u"b", u"c"}) object.Call("Add", key, Long{1});
  object.Let("Key", u"b", u"z");
  const auto* const dictionary = dynamic_cast<const Dictionary*>(object.Target());
  EXPECT_EQ(KeysOf(*dictionary), "a=1 z=1 c=1");
}

TEST(DeskDictionary, NamedArguments_AreUnknown) {
  const Object object = New<DeskDictionary>();
  EXPECT_EQ(Raised([&] { object.Call("Exists", Named{"key", u"a"}); }), errors::kNoSuchNamedArgument);
}

TEST(DeskDictionary, NegativeWayOfComparing_IsRefused) {
  const Object object = New<DeskDictionary>();
  EXPECT_EQ(Raised([&] { object.Let("CompareMode", Long{-1}); }), errors::kInvalidArgument);
}

TEST(DeskDictionary, KeyThatComesWhileItIsGoneThrough_IsYieldedToo) {
  const auto dictionary = New<DeskDictionary>();
  dictionary->Add(u"b", Long{1});
  dictionary->Add(u"a", Long{2});
  const Ref<Enumerator> keys = dictionary->Elements();
  std::string walked;
  for (Variant key; keys->Next(key);) {
    walked += ToUtf8(key.ToText()) + " ";
    if (walked == "b ") dictionary->Add(u"c", Long{3});
  }
  EXPECT_EQ(walked, "b a c ");
}

// An item's end may come back to the dictionary that it leaves.
TEST(DeskDictionary, ItemThatEnds_FindsItselfGone) {
  const auto dictionary = New<DeskDictionary>();
  std::string seen;
  const auto put = [&](Long key) {
    const auto note = [&] {
      seen += KeysOf(*dictionary) + "; ";
      for (Long i = 100; i < 120; ++i) dictionary->SetItem(i, i);
      for (Long i = 100; i < 120; ++i) dictionary->Remove(i);
    };
    const auto script = [](Use, Name, const Arguments&) { return Variant(); };
    dictionary->SetItem(key, Object(New<ScriptedObject>(script, note)));
  };
  put(1);
  dictionary->Remove(Long{1});
  put(2);
  dictionary->SetItem(Long{2}, u"new");
  put(3);
  dictionary->SetItem(Long{2}, u"last");
  dictionary->Remove(Long{2});
  dictionary->RemoveAll();
  EXPECT_EQ(seen, "; 2=new; ; ");
}

TEST(DeskDictionary, ManyKeys_AreFoundAgain) {
  const auto dictionary = New<DeskDictionary>();
  for (Long i = 0; i < 500; ++i) dictionary->Add(DecimalText(i), i);
  for (Long i = 0; i < 500; i += 2) dictionary->Remove(DecimalText(i));
  for (Long i = 0; i < 500; ++i) EXPECT_EQ(dictionary->Exists(DecimalText(i)), i % 2 == 1) << i;
  EXPECT_EQ(dictionary->Item(u"499").ToLong(), 499);
}

}  // namespace
}  // namespace strandline::desk
