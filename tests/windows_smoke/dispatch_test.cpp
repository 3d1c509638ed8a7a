// Objects of the automation world through the seam's Object.

#include <vector>

#include "check.h"
#include "drawing/ToolbarUtilities.h"
#include "native_object.h"
#include "platform/dictionary.h"
#include "stage.h"

namespace strandline::smoke {

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

SMOKE_TEST(Object_MembersOfADictionary) {
  Stage stage;
  const Object dictionary = NewDictionary();
  dictionary.Call("Add", u"one", Long{1});
  dictionary.Call("add", u"two", u"zwei");
  CHECK_EQUAL(dictionary.Get("Count").ToLong(), 2);
  CHECK_EQUAL(dictionary.Get("Item", u"one").ToLong(), 1);
  CHECK_EQUAL(dictionary.Get("Item", u"two").ToText(), String(u"zwei"));
  CHECK(dictionary.Call("Exists", u"one").ToBoolean());
  CHECK(!dictionary.Call("Exists", u"One").ToBoolean());
  dictionary.Let("Item", u"one", 2.5);
  CHECK_EQUAL(dictionary.Get("Item", u"one").ToDouble(), 2.5);
  CHECK(dictionary.Get("Item", u"absent").IsEmpty());
  CHECK_EQUAL(dictionary.Get("Count").ToLong(), 3);
}

SMOKE_TEST(Object_ValuesComeBackAsTheyWent) {
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
    CHECK_EQUAL(back.Raw().index(), values[i].Raw().index());
    if (i < 8) CHECK(back == values[i]);
  }
  CHECK(**dictionary.Get("Item", Long{8}).If<Variant::Shared<String>>() == texts);
  CHECK(**dictionary.Get("Item", Long{9}).If<Variant::Shared<Byte>>() == bytes);
  CHECK(**dictionary.Get("Item", Long{10}).If<Variant::Shared<Boolean>>() == flags);
}

SMOKE_TEST(Object_TheSameObjectIsTheSameReference) {
  Stage stage;
  const Object dictionary = NewDictionary();
  const Object inner = NewDictionary();
  dictionary.Call("Add", u"inner", inner);
  CHECK(dictionary.Get("Item", u"inner").ToObject() == inner);
  CHECK(!(inner == dictionary));
  CHECK_EQUAL(dictionary.Get("Item", u"inner").ToObject().Identity(), inner.Identity());
  CHECK(inner.Identity() != dictionary.Identity());
  dictionary.Call("Add", u"nothing", Object());
  CHECK(dictionary.Get("Item", u"nothing").ToObject().IsNothing());
}

SMOKE_TEST(Object_OneOfOursKeptInADictionary_ComesBackAsItself) {
  Stage stage;
  const Object dictionary = NewDictionary();
  const Object ours = Ref<Dictionary>(New<Dictionary>());
  dictionary.Call("Add", u"ours", ours);
  CHECK(dictionary.Get("Item", u"ours").ToObject() == ours);
  dictionary.Call("RemoveAll");
  CHECK_EQUAL(ours.Get("Count").ToLong(), 0);
}

SMOKE_TEST(Object_AWalkYieldsTheKeysInOrder) {
  Stage stage;
  const Object dictionary = NewDictionary();
  const char16_t* const keys[] = {u"z", u"a", u"m"};
  for (const char16_t* key : keys) dictionary.Call("Add", String(key), Long{0});
  const Ref<Enumerator> elements = dictionary.Target()->Elements();
  Variant key;
  for (const char16_t* expected : keys) {
    CHECK(elements->Next(key));
    CHECK_EQUAL(key.ToText(), String(expected));
  }
  CHECK(!elements->Next(key));
}

SMOKE_TEST(Object_AWalkThroughObjects) {
  Stage stage;
  const Object collection = NewDictionary();
  const Object first = NewDictionary();
  const Object second = NewDictionary();
  collection.Call("Add", first, Long{1});
  collection.Call("Add", second, Long{2});
  Walk walk;
  Object element;
  CHECK(walk.First(collection, element) && element == first);
  CHECK(walk.Next(element) && element == second);
  CHECK(!walk.Next(element) && element.IsNothing());
}

SMOKE_TEST(Object_ErrorsHaveTheirNumbers) {
  Stage stage;
  const Object dictionary = NewDictionary();
  dictionary.Call("Add", u"key", Long{1});
  CHECK_EQUAL(Raised([&] { dictionary.Call("Add", u"key", Long{2}); }).number, errors::kDuplicateKey);
  CHECK_EQUAL(Raised([&] { dictionary.Get("Nonsense"); }).number, errors::kNoSuchMember);
  CHECK(Raised([&] { dictionary.Call("Exists"); }).number != 0);
  CHECK_EQUAL(Raised([&] { Object().Get("Count"); }).number, errors::kObjectNotSet);
  CHECK_EQUAL(Raised([&] {
                dictionary.Call("Exists", Named{"Nonsense", Long{1}});
              }).number,
              errors::kNoSuchNamedArgument);
  CHECK(!Raised([&] { dictionary.Call("Add", u"key", Long{2}); }).description.IsEmpty());
}

SMOKE_TEST(Object_NamedArguments) {
  Stage stage;
  const Object dictionary = NewDictionary();
  dictionary.Call("Add", Named{"Item", u"value"}, Named{"Key", u"name"});
  CHECK_EQUAL(dictionary.Get("Item", u"name").ToText(), String(u"value"));
}

SMOKE_TEST(Object_ArgumentsByReferenceAreWrittenBack) {
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
  CHECK_EQUAL(answer.ToLong(), 42);
  CHECK(flag);
  CHECK_EQUAL(small, -2);
  CHECK_EQUAL(large, 70000);
  CHECK_EQUAL(number, 2.5);
  CHECK_EQUAL(text, String(u"back"));
  CHECK(object.IsNothing());
  CHECK_EQUAL(any.ToText(), String(u"any"));
  CHECK(bytes.IsSized() && bytes.Lower() == 1 && bytes.Upper() == 2 && bytes(2) == 9);
  // Each goes as the very type of its variable: BOOL, I2, I4, R8, BSTR, DISPATCH, VARIANT, ARRAY of UI1; ERROR, BOOL.
  const int kByRef = 0x4000;
  CHECK(log.types == (std::vector<int>{kByRef | 11, kByRef | 2, kByRef | 3, kByRef | 5, kByRef | 8, kByRef | 9,
                                       kByRef | 12, kByRef | 0x2000 | 17, 10, 11}));
}

SMOKE_TEST(Object_OneOfOursCalledFromOutside_WritesBackToo) {
  Stage stage;
  NativeLog log;
  const Object native = NewNativeObject(log);
  const Ref<Callee> callee = New<Callee>();
  native.Call("CallBack", Object(callee));
  CHECK(callee->lastUse == Use::kCall);
  CHECK_EQUAL(callee->seen.size(), 6u);
  CHECK(log.answers == (std::vector<String>{u"True", u"-2", u"70000", u"2.5", u"back", u"sixth"}));
}

SMOKE_TEST(Object_AFailuresNumberAndWords) {
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
    CHECK_EQUAL(spoken.number, static_cast<Long>(entry.number));
    CHECK_EQUAL(spoken.description, String(u"native words"));
    const Error plain = Raised([&] { native.Call("FailPlainly", static_cast<Long>(entry.result)); });
    CHECK_EQUAL(plain.number, static_cast<Long>(entry.number));
  }
}

SMOKE_TEST(Components_AnUnknownNameRaises429) {
  Stage stage;
  CHECK_EQUAL(Raised([] { platform::Components().CreateObject(u"Strandline.NoSuchThing"); }).number,
              errors::kCannotCreateComponent);
}

SMOKE_TEST(Procedure_AnErrorEndsInItsTail) {
  Stage stage;
  CHECK(ToolbarUtilities::tooltipText(17, false).IsEmpty());
  CHECK_EQUAL(vbwProtector::variables.mStackCalls, 0);
}

}  // namespace strandline::smoke
