// The system's dictionary as the library's own, and the number of a document that is a foreign object.

#include "platform/dictionary.h"

#include <gtest/gtest.h>

#include "platform/win32/face.h"
#include "platform/win32/own_variant.h"
#include "platform/win32/win32_variant.h"
#include "platform/win32/windows_api.h"
#include "tests/win32/dispatch_object.h"
#include "tests/win32/stage.h"
#include "wordaccess/CommonPropertyFunctions.h"

namespace strandline::win32test {

namespace {

// The interface by which programs call a dictionary that were compiled with its type library.
constexpr GUID kEarlyBound{0x42C642C1, 0x97E1, 0x11CF, {0x97, 0x8F, 0x00, 0xA0, 0x24, 0x63, 0xE0, 0x6F}};

Ref<Dictionary> NewDictionary() { return platform::Components().CreateDictionary(); }

class OwnObject final : public Dispatch {
 public:
  Variant Invoke(Use, Name, const Arguments&) override { return {}; }
  Long Identity() const override { return 1; }
};

}  // namespace

TEST(SystemDictionary, HandedToACallee_IsTheSystemsOwn) {
  Stage stage;
  const Ref<Dictionary> dictionary = NewDictionary();
  win32::OwnVariant argument(win32::ToVARIANT(dictionary));
  ASSERT_EQ(argument->vt, VT_DISPATCH);
  win32::ComRef<IUnknown> earlyBound;
  EXPECT_EQ(argument->pdispVal->QueryInterface(kEarlyBound, earlyBound.PutVoid()), S_OK);
  EXPECT_EQ(win32::FromVARIANT(*argument).ToObject(), Object(dictionary));
}

TEST(SystemDictionary, HandedByReferenceAndLeftAsItIs_StaysTheSame) {
  Stage stage;
  const Ref<Dictionary> dictionary = NewDictionary();
  ObjectPlan plan;
  plan.members = {L"Name"};
  int type = 0;
  plan.touch = [&](DISPPARAMS& parameters) { type = parameters.rgvarg[0].vt; };
  Object given = dictionary;
  const win32::ComRef<IDispatch> callee(new PlannedObject(plan));
  win32::Wrap(callee.get()).Call("Name", Variant::ByRef(given));
  EXPECT_EQ(type, VT_BYREF | VT_DISPATCH);
  EXPECT_EQ(given, Object(dictionary));
  EXPECT_EQ(dynamic_cast<Dictionary*>(given.Target()), dictionary.get());
}

// The module stays loaded as long as the world holds one of its objects.
TEST(SystemDictionary, ObjectOfOursInIt_IsHeldUntilItGoes) {
  Stage stage;
  const Long before = win32::LiveObjects();
  Ref<Dictionary> dictionary = NewDictionary();
  EXPECT_EQ(win32::LiveObjects(), before);
  for (Long key = 1; key <= 3; ++key) dictionary->Add(key, New<OwnObject>());
  EXPECT_EQ(win32::LiveObjects(), before + 3);
  dictionary->Items();
  dictionary->Remove(Long{2});
  EXPECT_EQ(win32::LiveObjects(), before + 2);
  dictionary = nullptr;
  EXPECT_EQ(win32::LiveObjects(), before);
}

TEST(ForeignDocument, WithTwoPointers_IsNumberedByTheOneThatIsHeld) {
  Stage stage;
  ObjectPlan plan;
  auto* const made = new PlannedObject(plan);
  const win32::ComRef<IDispatch> whole(made);
  IDispatch* const door = made->Second();
  ASSERT_NE(door, whole.get());
  const Long number = win32::ToNumber(door);
  const Object document = win32::Wrap(door);
  EXPECT_EQ(CommonPropertyFunctions::docId(document),
            DecimalText(sizeof(void*) == sizeof(Long) ? number : number & 0x7FFFFFFF));
}

}  // namespace strandline::win32test
