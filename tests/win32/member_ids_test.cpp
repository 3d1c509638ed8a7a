// Which objects share the identifiers of their members.

#include <gtest/gtest.h>

#include "platform/win32/win32_variant.h"
#include "platform/win32/windows_api.h"
#include "tests/win32/dispatch_object.h"
#include "tests/win32/posing_type.h"
#include "tests/win32/stage.h"

namespace strandline::win32test {

namespace {

using win32::ComRef;

Object NewObject(ObjectPlan& plan) {
  const ComRef<IDispatch> object(new PlannedObject(plan));
  return win32::Wrap(object.get());
}

// The description of the type of a dictionary, which has members Count and Item.
ComRef<ITypeInfo> TypeOfADictionary() {
  const Object dictionary = platform::Components().CreateObject(u"Scripting.Dictionary");
  ComRef<IDispatch> object;
  *object.Put() = win32::Unwrap(dictionary);
  ComRef<ITypeInfo> type;
  object->GetTypeInfo(0, LOCALE_USER_DEFAULT, type.Put());
  return type;
}

}  // namespace

TEST(MemberIds, ObjectsOfOneType_ShareWhatItsDescriptionConfirms) {
  Stage stage;
  ObjectPlan first;
  ObjectPlan second;
  ObjectPlan stranger;  // names the same type, and numbers its members in a way of its own
  first.type = second.type = stranger.type = TypeOfADictionary();
  ASSERT_TRUE(first.type);
  stranger.offset = 1000;
  {
    const Object object = NewObject(stranger);
    object.Get("CompareMode");
    object.Get("CompareMode");
    EXPECT_EQ(stranger.namesAsked, 1);
  }
  NewObject(first).Get("CompareMode");
  EXPECT_EQ(first.namesAsked, 1);  // what the stranger answered isn't the type's
  NewObject(second).Get("CompareMode");
  EXPECT_EQ(second.namesAsked, 0);
  EXPECT_EQ(second.called, first.called);
  EXPECT_EQ(stranger.called[0], first.called[0] + 1000);
}

TEST(MemberIds, AStrangerWithATypeOfTheSameIdentifier_IsAskedItself) {
  Stage stage;
  const ComRef<ITypeInfo> type = TypeOfADictionary();
  const ComRef<ITypeLib> own = LibraryOf(*type.get());
  ASSERT_TRUE(type && own);
  using Library = PosingLibrary;
  const struct {
    const char* name;
    TypePose pose;
    bool isExtended;
    int asked;  // how often, for a member that another object has told already
  } cases[] = {
      {"the same type", {own, TYPEFLAG_FDUAL}, false, 0},
      {"one that its objects mustn't extend", {own, TYPEFLAG_FNONEXTENSIBLE}, false, 0},
      {"one that binds nothing", {own, TYPEFLAG_FHIDDEN}, false, 1},
      {"one of no library", {ComRef<ITypeLib>(), TYPEFLAG_FDUAL}, false, 1},
      {"one of another library",
       {Library::New(*own.get(), [](TLIBATTR& about) { ++about.guid.Data1; }), TYPEFLAG_FDUAL},
       false,
       1},
      {"one of a library's next version",
       {Library::New(*own.get(), [](TLIBATTR& about) { ++about.wMajorVerNum; }), TYPEFLAG_FDUAL},
       false,
       1},
      {"one of a library's next minor version",
       {Library::New(*own.get(), [](TLIBATTR& about) { ++about.wMinorVerNum; }), TYPEFLAG_FDUAL},
       false,
       1},
      {"one of a library in another language",
       {Library::New(*own.get(), [](TLIBATTR& about) { about.lcid += 7; }), TYPEFLAG_FDUAL},
       false,
       1},
      {"one of an object that grows members", {own, TYPEFLAG_FDUAL}, true, 1},
  };
  ObjectPlan first;
  first.type = type;
  NewObject(first).Get("CompareMode");
  for (const auto& c : cases) {
    ObjectPlan stranger;
    stranger.type = ComRef<ITypeInfo>(new PosingType(*type.get(), c.pose));
    stranger.isExtended = c.isExtended;
    stranger.offset = c.asked == 0 ? 0 : 1000;
    NewObject(stranger).Get("CompareMode");
    EXPECT_EQ(stranger.namesAsked, c.asked) << c.name;
    ASSERT_EQ(stranger.called.size(), 1u) << c.name;
    EXPECT_EQ(stranger.called[0], first.called[0] + stranger.offset) << c.name;
  }
}

}  // namespace strandline::win32test
