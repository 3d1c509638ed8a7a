// Objects of the automation world through the seam's Object.

#include <gtest/gtest.h>

#include <vector>

#include "drawing/ToolbarUtilities.h"
#include "tests/win32/native_object.h"
#include "tests/win32/stage.h"

namespace strandline::win32test {

namespace {

Object NewDictionary() { return platform::Components().CreateObject(u"Scripting.Dictionary"); }

template <class Use>
Error Raised(Use use) {
  try {
    use();
  } catch (const Error& error) {
    return error;
  }
  return {};
}

// Answers every call with a note of what came, and writes into what came by reference.
class Callee final : public Dispatch {
 public:
  Variant Invoke(Use use, Name member, const Arguments& arguments) override {
    if (member != "Touch") Raise(errors::kNoSuchMember);
    lastUse = use;
    for (const Variant& argument : arguments.positional) seen.push_back(argument.Resolved());
    const Variant replies[] = {true, Integer{-2}, Long{70000}, 2.5, String(u"back"), String(u"sixth")};
    for (std::size_t i = 0; i < arguments.positional.size() && i < std::size(replies); ++i) {
      if (arguments.positional[i].IsByRef()) arguments.positional[i].Assign(replies[i]);
    }
    return String(u"answer");
  }
  Long Identity() const override { return 77; }

  Use lastUse = Use::kGet;
  std::vector<Variant> seen;
};

}  // namespace

TEST(Object, MembersOfADictionary) {
  Stage stage;
  const Object dictionary = NewDictionary();
  dictionary.Call("Add", u"one", Long{1});
  dictionary.Call("add", u"two", u"zwei");
  EXPECT_EQ(dictionary.Get("Count").ToLong(), 2);
  EXPECT_EQ(dictionary.Get("Item", u"one").ToLong(), 1);
  EXPECT_EQ(dictionary.Get("Item", u"two").ToText(), String(u"zwei"));
  EXPECT_TRUE(dictionary.Call("Exists", u"one").ToBoolean());
  EXPECT_TRUE(!dictionary.Call("Exists", u"One").ToBoolean());
  dictionary.Let("Item", u"one", 2.5);
  EXPECT_EQ(dictionary.Get("Item", u"one").ToDouble(), 2.5);
  EXPECT_TRUE(dictionary.Get("Item", u"absent").IsEmpty());
  EXPECT_EQ(dictionary.Get("Count").ToLong(), 3);
}

TEST(Object, ValuesComeBackAsTheyWent) {
  Stage stage;
  const Object dictionary = NewDictionary();
  Array<Byte> bytes(0, 2);
  bytes(1) = 200;
  Array<String> texts(1, 2);
  texts(2) = u"\u00E4\u4E2D";
  Array<Boolean> flags(0, 1);
  flags(1) = true;
  const Variant values[] = {
      {}, true, Integer{-3}, Long{123456}, Single{1.5F}, 0.1, Date{45000.25}, String(u"\u20AC"), texts, bytes, flags};
  for (std::size_t i = 0; i < std::size(values); ++i) {
    dictionary.Let("Item", static_cast<Long>(i), values[i]);
    const Variant back = dictionary.Get("Item", static_cast<Long>(i));
    EXPECT_EQ(back.Kind(), values[i].Kind());
    if (i < 8) {
      EXPECT_TRUE(back == values[i]);
    }
  }
  EXPECT_TRUE(**dictionary.Get("Item", Long{8}).If<Variant::Shared<String>>() == texts);
  EXPECT_TRUE(**dictionary.Get("Item", Long{9}).If<Variant::Shared<Byte>>() == bytes);
  EXPECT_TRUE(**dictionary.Get("Item", Long{10}).If<Variant::Shared<Boolean>>() == flags);
}

TEST(Object, TheSameObjectIsTheSameReference) {
  Stage stage;
  const Object dictionary = NewDictionary();
  const Object inner = NewDictionary();
  dictionary.Call("Add", u"inner", inner);
  EXPECT_TRUE(dictionary.Get("Item", u"inner").ToObject() == inner);
  EXPECT_TRUE(!(inner == dictionary));
  EXPECT_EQ(dictionary.Get("Item", u"inner").ToObject().Identity(), inner.Identity());
  EXPECT_TRUE(inner.Identity() != dictionary.Identity());
  dictionary.Call("Add", u"nothing", Object());
  EXPECT_TRUE(dictionary.Get("Item", u"nothing").ToObject().IsNothing());
}

TEST(Object, OneOfOursKeptInADictionary_ComesBackAsItself) {
  Stage stage;
  const Object dictionary = NewDictionary();
  const Object ours = New<Callee>();
  dictionary.Call("Add", u"ours", ours);
  EXPECT_TRUE(dictionary.Get("Item", u"ours").ToObject() == ours);
  dictionary.Call("RemoveAll");
  EXPECT_EQ(ours.Call("Touch").ToText(), String(u"answer"));
}

TEST(Object, AWalkYieldsTheKeysInOrder) {
  Stage stage;
  const Object dictionary = NewDictionary();
  const char16_t* const keys[] = {u"z", u"a", u"m"};
  for (const char16_t* key : keys) dictionary.Call("Add", String(key), Long{0});
  const Ref<Enumerator> elements = dictionary.Target()->Elements();
  Variant key;
  for (const char16_t* expected : keys) {
    EXPECT_TRUE(elements->Next(key));
    EXPECT_EQ(key.ToText(), String(expected));
  }
  EXPECT_TRUE(!elements->Next(key));
}

TEST(Object, AWalkThroughObjects) {
  Stage stage;
  const Object collection = NewDictionary();
  const Object first = NewDictionary();
  const Object second = NewDictionary();
  collection.Call("Add", first, Long{1});
  collection.Call("Add", second, Long{2});
  Walk walk;
  Object element;
  EXPECT_TRUE(walk.First(collection, element) && element == first);
  EXPECT_TRUE(walk.Next(element) && element == second);
  EXPECT_TRUE(!walk.Next(element) && element.IsNothing());
}

TEST(Object, ErrorsHaveTheirNumbers) {
  Stage stage;
  const Object dictionary = NewDictionary();
  dictionary.Call("Add", u"key", Long{1});
  EXPECT_EQ(Raised([&] { dictionary.Call("Add", u"key", Long{2}); }).number, errors::kDuplicateKey);
  EXPECT_EQ(Raised([&] { dictionary.Get("Nonsense"); }).number, errors::kNoSuchMember);
  EXPECT_TRUE(Raised([&] { dictionary.Call("Exists"); }).number != 0);
  EXPECT_EQ(Raised([&] { Object().Get("Count"); }).number, errors::kObjectNotSet);
  EXPECT_EQ(Raised([&] {
              dictionary.Call("Exists", Named{"Nonsense", Long{1}});
            }).number,
            errors::kNoSuchNamedArgument);
  EXPECT_TRUE(!Raised([&] { dictionary.Call("Add", u"key", Long{2}); }).description.IsEmpty());
}

TEST(Object, NamedArguments) {
  Stage stage;
  const Object dictionary = NewDictionary();
  dictionary.Call("Add", Named{"Item", u"value"}, Named{"Key", u"name"});
  EXPECT_EQ(dictionary.Get("Item", u"name").ToText(), String(u"value"));
}

TEST(Object, ArgumentsByReferenceAreWrittenBack) {
  Stage stage;
  NativeLog log;
  const Object native = NewNativeObject(log);
  Boolean flag = false;
  Integer small = 1;
  Long large = 2;
  Double number = 3;
  String text = u"in";
  Object object = NewDictionary();
  Variant any = Long{4};
  Array<Byte> bytes;
  const Variant answer = native.Call("Touch", Variant::ByRef(flag), Variant::ByRef(small), Variant::ByRef(large),
                                     Variant::ByRef(number), Variant::ByRef(text), Variant::ByRef(object),
                                     Variant::ByRef(any), Variant::ByRef(bytes), Missing{}, true);
  EXPECT_EQ(answer.ToLong(), 42);
  EXPECT_TRUE(flag);
  EXPECT_EQ(small, -2);
  EXPECT_EQ(large, 70000);
  EXPECT_EQ(number, 2.5);
  EXPECT_EQ(text, String(u"back"));
  EXPECT_TRUE(object.IsNothing());
  EXPECT_EQ(any.ToText(), String(u"any"));
  EXPECT_TRUE(bytes.IsSized() && bytes.Lower() == 1 && bytes.Upper() == 2 && bytes(2) == 9);
  // Each goes as the very type of its variable: BOOL, I2, I4, R8, BSTR, DISPATCH, VARIANT, ARRAY of UI1; ERROR, BOOL.
  const int kByRef = 0x4000;
  EXPECT_TRUE(log.types == (std::vector<int>{kByRef | 11, kByRef | 2, kByRef | 3, kByRef | 5, kByRef | 8, kByRef | 9,
                                             kByRef | 12, kByRef | 0x2000 | 17, 10, 11}));
}

TEST(Object, OneOfOursCalledFromOutside_WritesBackToo) {
  Stage stage;
  NativeLog log;
  const Object native = NewNativeObject(log);
  const Ref<Callee> callee = New<Callee>();
  native.Call("CallBack", Object(callee));
  EXPECT_TRUE(callee->lastUse == Use::kCall);
  EXPECT_EQ(callee->seen.size(), 6u);
  EXPECT_TRUE(log.answers == (std::vector<String>{u"True", u"-2", u"70000", u"2.5", u"back", u"sixth"}));
}

TEST(Object, AFailuresNumberAndWords) {
  Stage stage;
  NativeLog log;
  const Object native = NewNativeObject(log);
  struct Case {
    std::uint32_t result;
    std::int64_t number;
  };
  constexpr Case kCases[] = {{0x800A11FD, 4605}, {0x800A01C9, 457}, {0x80040203, 0x80040203}, {0x80020005, 13}};
  for (const Case& entry : kCases) {
    const Error spoken = Raised([&] { native.Call("Fail", static_cast<Long>(entry.result)); });
    EXPECT_EQ(spoken.number, static_cast<Long>(entry.number));
    EXPECT_EQ(spoken.description, String(u"native words"));
    const Error plain = Raised([&] { native.Call("FailPlainly", static_cast<Long>(entry.result)); });
    EXPECT_EQ(plain.number, static_cast<Long>(entry.number));
  }
}

TEST(Components, AnUnknownNameRaises429) {
  Stage stage;
  EXPECT_EQ(Raised([] { platform::Components().CreateObject(u"Strandline.NoSuchThing"); }).number,
            errors::kCannotCreateComponent);
}

TEST(Procedure, AnErrorEndsInItsTail) {
  Stage stage;
  EXPECT_TRUE(ToolbarUtilities::tooltipText(17, false).IsEmpty());
  EXPECT_EQ(vbwProtector::variables.mStackCalls, 0);
}

}  // namespace strandline::win32test
