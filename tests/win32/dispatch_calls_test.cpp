// How members of foreign objects are found and called, and what becomes of their failures.

#include <gtest/gtest.h>

#include <vector>

#include "platform/win32/win32_variant.h"
#include "platform/win32/windows_api.h"
#include "tests/win32/dispatch_object.h"
#include "tests/win32/stage.h"

namespace strandline::win32test {

namespace {

constexpr int kMethod = 1;
constexpr int kGet = 2;
constexpr int kPut = 4;
constexpr int kPutRef = 8;

Object NewObject(ObjectPlan& plan) {
  const win32::ComRef<IDispatch> object(new PlannedObject(plan));
  return win32::Wrap(object.get());
}

template <class Use>
Error Raised(Use use) {
  try {
    use();
  } catch (const Error& error) {
    return error;
  }
  return {};
}

HRESULT NoMethod(int flags, VARIANT&, EXCEPINFO&) { return flags == kMethod ? DISP_E_MEMBERNOTFOUND : S_OK; }
HRESULT NoPutRef(int flags, VARIANT&, EXCEPINFO&) { return flags == kPutRef ? DISP_E_MEMBERNOTFOUND : S_OK; }
HRESULT PlainNoPutRef(int flags, VARIANT&, EXCEPINFO&) { return flags == kPutRef ? E_NOTIMPL : S_OK; }
HRESULT ToldNoPutRef(int flags, VARIANT&, EXCEPINFO& exception) {
  if (flags != kPutRef) return S_OK;
  exception.scode = E_NOTIMPL;
  exception.bstrDescription = ::SysAllocString(L"not implemented");
  return DISP_E_EXCEPTION;
}
HRESULT Absent(int, VARIANT&, EXCEPINFO&) { return DISP_E_MEMBERNOTFOUND; }

}  // namespace

TEST(LateCall, TheFlags_SayWhatIsWanted) {
  Stage stage;
  const struct {
    const char* name;
    ObjectPlan::Answer answer;
    std::function<void(const Object&)> use;
    std::vector<int> flags;
  } cases[] = {
      {"get", ObjectPlan().answer, [](const Object& o) { o.Get("Name"); }, {kMethod | kGet}},
      {"call", ObjectPlan().answer, [](const Object& o) { o.Call("Name"); }, {kMethod}},
      {"call of a property", &NoMethod, [](const Object& o) { o.Call("Name"); }, {kMethod, kMethod | kGet}},
      {"let of a value", ObjectPlan().answer, [](const Object& o) { o.Let("Name", Long{1}); }, {kPut}},
      {"let of an object", ObjectPlan().answer, [](const Object& o) { o.Let("Name", o); }, {kPutRef}},
      {"let of an object as a value", &NoPutRef, [](const Object& o) { o.Let("Name", o); }, {kPutRef, kPut}},
      {"let of an object whose other way is declared alone",
       &PlainNoPutRef,
       [](const Object& o) { o.Let("Name", o); },
       {kPutRef, kPut}},
      {"the same, told as an exception", &ToldNoPutRef, [](const Object& o) { o.Let("Name", o); }, {kPutRef, kPut}},
      {"let of Nothing", ObjectPlan().answer, [](const Object& o) { o.Let("Name", Object()); }, {kPutRef}},
  };
  for (const auto& c : cases) {
    ObjectPlan plan;
    plan.members = {L"Name"};
    plan.answer = c.answer;
    c.use(NewObject(plan));
    EXPECT_EQ(plan.flags, c.flags) << c.name;
  }
  ObjectPlan plan;
  plan.members = {L"Name"};
  plan.answer = &Absent;
  EXPECT_EQ(Raised([&] { NewObject(plan).Call("Name"); }).number, errors::kNoSuchMember);
  EXPECT_EQ(Raised([&] { NewObject(plan).Let("Name", Object()); }).number, errors::kNoSuchMember);
  EXPECT_EQ(Raised([&] { NewObject(plan).Let("Name"); }).number, errors::kWrongNumberOfArguments);
}

TEST(LateCall, AName_IsAskedForOnceInAnObjectsLife) {
  Stage stage;
  ObjectPlan plan;
  plan.members = {L"First", L"Second"};
  const Object object = NewObject(plan);
  for (int i = 0; i < 3; ++i) {
    object.Get("Second");
    object.Call("First");
    object.Let("Second", Long{1});
  }
  EXPECT_EQ(plan.namesAsked, 2);
  EXPECT_EQ(plan.called, (std::vector<DISPID>{101, 100, 101, 101, 100, 101, 101, 100, 101}));
  object.Get("second");  // another spelling may be another member
  EXPECT_EQ(plan.namesAsked, 3);
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(Raised([&] { object.Get("Third"); }).number, errors::kNoSuchMember);
  }
  plan.members.push_back(L"Third");  // it may come
  object.Get("Third");
  EXPECT_EQ(plan.namesAsked, 6);
  EXPECT_EQ(plan.called.back(), 102);
}

TEST(LateCall, MoreNamesThanAreKept_AreStillFound) {
  Stage stage;
  ObjectPlan plan;
  std::vector<std::string> names;
  for (int i = 0; i < 600; ++i) {
    names.push_back("Member" + std::to_string(i));
    plan.members.emplace_back(names.back().begin(), names.back().end());
  }
  const Object object = NewObject(plan);
  for (int round = 0; round < 2; ++round) {
    for (int i = 0; i < 600; ++i) {
      object.Get(Name::FromText(names[static_cast<std::size_t>(i)]));
      ASSERT_EQ(plan.called.back(), 100 + i);
    }
  }
  EXPECT_LT(plan.namesAsked, 1200);
}

TEST(LateCall, NamesByTheExtendedInterface) {
  Stage stage;
  ObjectPlan plan;
  plan.members = {L"Name"};
  plan.names = E_NOTIMPL;
  EXPECT_EQ(Raised([&] { NewObject(plan).Get("Name"); }).number, static_cast<Long>(E_NOTIMPL));
  plan.isExtended = true;
  const Object object = NewObject(plan);
  object.Get("Name");
  object.Get("NAME");
  EXPECT_EQ(plan.called, (std::vector<DISPID>{100, 100}));
  EXPECT_EQ(Raised([&] { object.Get("Absent"); }).number, errors::kNoSuchMember);
  const Error refused = Raised([&] { object.Call("Name", Named{"Argument", Long{1}}); });
  EXPECT_EQ(refused.number, errors::kNoNamedArguments);
}

TEST(LateCall, AnObjectThatIsGone_RaisesThatAtEachUse) {
  Stage stage;
  ObjectPlan plan;
  plan.members = {L"Name"};
  const Object object = NewObject(plan);
  object.Get("Name");
  plan.names = RPC_E_DISCONNECTED;
  plan.answer = [](int, VARIANT&, EXCEPINFO&) { return RPC_E_DISCONNECTED; };
  const auto gone = static_cast<Long>(RPC_E_DISCONNECTED);
  EXPECT_EQ(Raised([&] { object.Get("Name"); }).number, gone);
  EXPECT_EQ(Raised([&] { object.Call("Name", Long{1}); }).number, gone);
  EXPECT_EQ(Raised([&] { object.Let("Name", Long{1}); }).number, gone);
  EXPECT_EQ(Raised([&] { object.Get("Other"); }).number, gone);
  EXPECT_EQ(Raised([&] { object.Call("Name", Named{"Argument", Long{1}}); }).number, gone);
  EXPECT_EQ(Raised([&] { object.Target()->Elements(); }).number, gone);
}

namespace {

HRESULT STDAPICALLTYPE FillIn(EXCEPINFO* exception) {
  exception->wCode = 1234;
  exception->bstrDescription = ::SysAllocString(L"late words");
  return S_OK;
}

void LeaveErrorInfo(const wchar_t* words, const wchar_t* source = L"") {
  win32::ComRef<ICreateErrorInfo> made;
  win32::ComRef<IErrorInfo> information;
  ASSERT_EQ(::CreateErrorInfo(made.Put()), S_OK);
  std::wstring text = words;
  made->SetDescription(text.data());
  std::wstring from = source;
  made->SetSource(from.data());
  made->QueryInterface(IID_IErrorInfo, information.PutVoid());
  ::SetErrorInfo(0, information.get());
}

}  // namespace

TEST(LateCall, AFailure_BearsTheObjectsOwnNumberAndWords) {
  Stage stage;
  const auto exception = [](WORD code, HRESULT scode, const wchar_t* words) {
    return [=](int, VARIANT&, EXCEPINFO& told) {
      told.wCode = code;
      told.scode = scode;
      told.bstrSource = ::SysAllocString(L"source");
      if (words) told.bstrDescription = ::SysAllocString(words);
      return HRESULT{DISP_E_EXCEPTION};
    };
  };
  const auto plainly = [](HRESULT result) { return [=](int, VARIANT&, EXCEPINFO&) { return result; }; };
  const auto withInfo = [](HRESULT result) {
    return [=](int, VARIANT&, EXCEPINFO&) {
      LeaveErrorInfo(L"left words");
      return result;
    };
  };
  const auto control = static_cast<HRESULT>(0x800A11FD);
  const auto noCode = static_cast<HRESULT>(0x800A0000);
  const struct {
    const char* name;
    ObjectPlan::Answer answer;
    bool leavesErrorInfo;
    Long number;
    String words;
  } cases[] = {
      {"scode", exception(0, control, L"words"), false, 4605, u"words"},
      {"code", exception(53, 0, L"words"), false, 53, u"words"},
      {"code before scode", exception(53, control, nullptr), false, 53, ErrorDescription(53)},
      {"neither", exception(0, 0, nullptr), false, static_cast<Long>(DISP_E_EXCEPTION), ErrorDescription(0)},
      {"no words", exception(0, DISP_E_OVERFLOW, nullptr), false, 6, ErrorDescription(6)},
      {"filled in late",
       [](int, VARIANT&, EXCEPINFO& told) {
         told.pfnDeferredFillIn = &FillIn;
         return HRESULT{DISP_E_EXCEPTION};
       },
       false, 1234, u"late words"},
      {"error information", withInfo(E_INVALIDARG), true, 5, u"left words"},
      {"somebody else's error information", withInfo(E_INVALIDARG), false, 5, ErrorDescription(5)},
      {"error information beside an exception", withInfo(DISP_E_EXCEPTION), true, static_cast<Long>(DISP_E_EXCEPTION),
       u"left words"},
      {"none left", plainly(control), true, 4605, ErrorDescription(4605)},
      {"a number without a code", plainly(noCode), false, static_cast<Long>(noCode), ErrorDescription(noCode)},
      {"scode without a code", exception(0, noCode, nullptr), false, static_cast<Long>(noCode),
       ErrorDescription(noCode)},
      {"no named arguments", plainly(DISP_E_NONAMEDARGS), false, errors::kNoNamedArguments, ErrorDescription(446)},
  };
  for (const auto& c : cases) {
    ::SetErrorInfo(0, nullptr);
    ObjectPlan plan;
    plan.members = {L"Name"};
    plan.answer = c.answer;
    plan.leavesErrorInfo = c.leavesErrorInfo;
    const Error error = Raised([&] { NewObject(plan).Get("Name"); });
    EXPECT_EQ(error.number, c.number) << c.name;
    EXPECT_EQ(error.description, c.words) << c.name;
  }
  ::SetErrorInfo(0, nullptr);
}

TEST(LateCall, AFailure_BearsTheSourceThatTheObjectNames) {
  Stage stage;
  const struct {
    const char* name;
    ObjectPlan::Answer answer;
    String source;
  } cases[] = {
      {"of the exception",
       [](int, VARIANT&, EXCEPINFO& told) {
         told.bstrSource = ::SysAllocString(L"Microsoft Word");
         return HRESULT{DISP_E_EXCEPTION};
       },
       u"Microsoft Word"},
      {"of the error information",
       [](int, VARIANT&, EXCEPINFO&) {
         LeaveErrorInfo(L"left words", L"left source");
         return HRESULT{E_INVALIDARG};
       },
       u"left source"},
      {"none", [](int, VARIANT&, EXCEPINFO&) { return HRESULT{DISP_E_EXCEPTION}; }, u"Strandline"},
      {"none, plainly", [](int, VARIANT&, EXCEPINFO&) { return HRESULT{DISP_E_TYPEMISMATCH}; }, u"Strandline"},
  };
  for (const auto& c : cases) {
    ::SetErrorInfo(0, nullptr);
    ObjectPlan plan;
    plan.members = {L"Name"};
    plan.answer = c.answer;
    plan.leavesErrorInfo = true;
    EXPECT_EQ(Raised([&] { NewObject(plan).Get("Name"); }).source, c.source) << c.name;
  }
  ::SetErrorInfo(0, nullptr);
}

TEST(LateCall, TheWordsOfAnEarlierFailure_ArentLent) {
  Stage stage;
  ObjectPlan plan;
  plan.members = {L"Name"};
  plan.leavesErrorInfo = true;
  plan.answer = [](int, VARIANT&, EXCEPINFO&) { return HRESULT{E_INVALIDARG}; };
  const Object object = NewObject(plan);
  LeaveErrorInfo(L"stale words");
  EXPECT_EQ(Raised([&] { object.Get("Name"); }).description, ErrorDescription(errors::kInvalidArgument));
  LeaveErrorInfo(L"stale words");
  EXPECT_EQ(Raised([&] { object.Target()->Elements(); }).description, ErrorDescription(errors::kInvalidArgument));
  // Nor are those of the first of two ways to call.
  plan.answer = [](int flags, VARIANT&, EXCEPINFO&) {
    if (flags != kMethod) return HRESULT{E_INVALIDARG};
    LeaveErrorInfo(L"not a method");
    return HRESULT{DISP_E_MEMBERNOTFOUND};
  };
  EXPECT_EQ(Raised([&] { object.Call("Name"); }).description, ErrorDescription(errors::kInvalidArgument));
  ::SetErrorInfo(0, nullptr);
}

TEST(LateCall, WhatOneVariableCantHold_DoesntKeepTheOthersFromTheirs) {
  Stage stage;
  ObjectPlan plan;
  plan.members = {L"Name"};
  plan.touch = [](DISPPARAMS& parameters) {
    ASSERT_EQ(parameters.cArgs, 3u);
    *parameters.rgvarg[1].pvarVal = VARIANT{};
    parameters.rgvarg[1].pvarVal->vt = VT_RECORD;
    for (const int at : {0, 2}) {
      ::SysFreeString(*parameters.rgvarg[at].pbstrVal);
      *parameters.rgvarg[at].pbstrVal = ::SysAllocString(L"written");
    }
  };
  for (const bool fails : {false, true}) {
    if (fails) plan.answer = [](int, VARIANT&, EXCEPINFO&) { return HRESULT{E_INVALIDARG}; };
    String first = u"was";
    Variant second;
    String third = u"was";
    const Error error = Raised(
        [&] { NewObject(plan).Call("Name", Variant::ByRef(first), Variant::ByRef(second), Variant::ByRef(third)); });
    EXPECT_EQ(first, u"written");
    EXPECT_EQ(third, u"written");
    EXPECT_EQ(error.number, fails ? errors::kInvalidArgument : errors::kTypeMismatch);
  }
}

TEST(LateCall, ANumberByReference_IsReachedWhereItIsInItsOwnType) {
  Stage stage;
  ObjectPlan plan;
  plan.members = {L"Name"};
  plan.touch = [](DISPPARAMS& parameters) {
    ASSERT_EQ(parameters.cArgs, 4u);  // from the last to the first
    ASSERT_EQ(parameters.rgvarg[3].vt, VT_BYREF | VT_I2);
    ASSERT_EQ(parameters.rgvarg[2].vt, VT_BYREF | VT_I4);
    ASSERT_EQ(parameters.rgvarg[1].vt, VT_BYREF | VT_R4);
    ASSERT_EQ(parameters.rgvarg[0].vt, VT_BYREF | VT_R8);
    ++*parameters.rgvarg[3].piVal;
    ++*parameters.rgvarg[2].plVal;
    *parameters.rgvarg[1].pfltVal *= 2;
    *parameters.rgvarg[0].pdblVal *= 2;
  };
  Integer small = 7;
  Long number = 70000;
  Single share = 0.3F;
  Double real = 0.3;
  NewObject(plan).Call("Name", Variant::ByRef(small), Variant::ByRef(number), Variant::ByRef(share),
                       Variant::ByRef(real));
  EXPECT_EQ(small, 8);
  EXPECT_EQ(number, 70001);
  EXPECT_EQ(share, 0.6F);
  EXPECT_EQ(real, 0.6);
}

TEST(LateCall, AnIdentity_IsThePointerAsFarAsItFits) {
  Stage stage;
  ObjectPlan plan;
  const win32::ComRef<IDispatch> held(new PlannedObject(plan));
  const Long number = win32::ToNumber(held.get());
  EXPECT_EQ(win32::Wrap(held.get()).Identity(), sizeof(void*) == sizeof(Long) ? number : number & 0x7FFFFFFF);
}

TEST(LateCall, TwoDoorsToOneObject_AreOneObject) {
  Stage stage;
  ObjectPlan plan;
  auto* const made = new PlannedObject(plan);
  const win32::ComRef<IDispatch> held(made);
  const Object first = win32::Wrap(held.get());
  const Object second = win32::Wrap(made->Second());
  EXPECT_TRUE(first == second);
  ObjectPlan otherPlan;
  const Object other = NewObject(otherPlan);
  EXPECT_FALSE(first == other);
  EXPECT_NE(first.Identity(), other.Identity());
}

TEST(LateCall, TheResult_IsWhatTheObjectGives) {
  Stage stage;
  ObjectPlan plan;
  plan.members = {L"Name"};
  plan.answer = [](int, VARIANT& result, EXCEPINFO&) {
    result.vt = VT_NULL;
    return S_OK;
  };
  EXPECT_TRUE(NewObject(plan).Get("Name").IsNull());
  EXPECT_EQ(Raised([&] { NewObject(plan).Get("Name").ToLong(); }).number, errors::kInvalidUseOfNull);
}

}  // namespace strandline::win32test
