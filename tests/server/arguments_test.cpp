// Arguments and answers of the operations, by slot and by number.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/server/client.h"

namespace strandline::servertest {

namespace {

enum Operation : DISPID {
  kInitialize = 1,
  kExecute = 2,
  kEnableGotoQuickBookmark = 3,
  kRibbonHandler = 4,
  kReadingMode = 5,
  kHandleCreateDocument = 15,
  kHandleCloseDocument = 17,
  kQuit = 19,
};

class Operations : public testing::Test {
 protected:
  Dll dll;
  ComRef<_Main2> main = dll.NewMain2();
};

std::wstring TextIn(const VARIANT& value) { return value.vt == VT_BSTR && value.bstrVal ? value.bstrVal : L""; }

}  // namespace

TEST_F(Operations, NamesHaveTheirNumbers_WithoutCase) {
  wchar_t member[] = L"initialize";
  wchar_t last[] = L"PRODUCTNAME";
  wchar_t second[] = L"properties";
  LPOLESTR names[] = {member, last, second};
  DISPID ids[3] = {};
  ASSERT_EQ(main->GetIDsOfNames(IID_NULL, names, 3, 1031, ids), S_OK);
  EXPECT_EQ(ids[0], kInitialize);
  EXPECT_EQ(ids[1], 3);
  EXPECT_EQ(ids[2], 1);
  wchar_t unknown[] = L"Initialise";
  LPOLESTR wrong[] = {unknown};
  EXPECT_EQ(main->GetIDsOfNames(IID_NULL, wrong, 1, 0, ids), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(TakeErrorInformation().source, L"Strandline.Main2");
  EXPECT_EQ(main->GetIDsOfNames(IID_IUnknown, names, 1, 0, ids), DISP_E_UNKNOWNINTERFACE);
}

TEST_F(Operations, ATextByAnyKindOfReference_ReachesTheOperationAndStays) {
  Bstr text(L"UseQuillmere");
  VARIANT inner;
  VariantInit(&inner);
  inner.vt = VT_BSTR;
  inner.bstrVal = *text.Place();
  VARIANT nested = Of(VT_BSTR, text.Place());
  PlayedProduct product;
  ASSERT_EQ(product.Initialize(*main.get()), S_OK);
  const VARIANT ways[] = {OfText(text), Of(VT_BSTR, text.Place()), Of(VT_VARIANT, &inner), Of(VT_VARIANT, &nested)};
  for (const VARIANT& way : ways) {
    product.commands.clear();
    Called called;
    CallByNumber(*main.get(), kExecute, {way}, called);
    EXPECT_EQ(called.outcome, S_OK) << way.vt;
    EXPECT_EQ(called.result.vt, VT_BSTR) << way.vt;
    EXPECT_EQ(product.commands, std::vector<std::string>{"InsertReference"}) << way.vt;
  }
  EXPECT_EQ(text.Text(), L"UseQuillmere");
  EXPECT_EQ(TextIn(inner), L"UseQuillmere");
}

TEST_F(Operations, ProductNameByNumber_ReachesTheProduct) {
  PlayedProduct product;
  const ComRef<IDispatch> word = Outside(product.word);
  const ComRef<IDispatch> properties = Outside(product.properties);
  const ComRef<IDispatch> state = Outside(product.productState);
  IDispatch* wordHere = word.get();
  IDispatch* propertiesHere = properties.get();
  VARIANT stateHere;
  VariantInit(&stateHere);
  stateHere.vt = VT_DISPATCH;
  stateHere.pdispVal = state.get();
  Bstr name(L"Quillmere");
  Called called;
  CallByNumber(*main.get(), kInitialize,
               {Of(VT_DISPATCH, &wordHere), Of(VT_DISPATCH, &propertiesHere), Of(VT_VARIANT, &stateHere), OfText(name)},
               called);
  EXPECT_EQ(called.outcome, S_OK);
  EXPECT_EQ(called.result.vt, VT_EMPTY);
  EXPECT_FALSE(product.word->uses.empty());
  EXPECT_FALSE(product.productState->uses.empty());
  EXPECT_EQ(wordHere, word.get());
  EXPECT_EQ(stateHere.pdispVal, state.get());
}

TEST_F(Operations, ByName_InAnyOrder) {
  PlayedProduct product;
  const ComRef<IDispatch> word = Outside(product.word);
  const ComRef<IDispatch> properties = Outside(product.properties);
  const ComRef<IDispatch> state = Outside(product.productState);
  IDispatch* places[] = {word.get(), properties.get(), state.get()};
  Bstr name(L"Quillmere");
  // The named ones stand first in the list that goes out, and so last here, the other way round.
  const std::vector<DISPID> names = {3, 0, 2};
  Called called;
  CallByNumber(*main.get(), kInitialize, {Of(VT_DISPATCH, &places[2]), Of(VT_DISPATCH, &places[0]), OfText(name)},
               called, names);
  EXPECT_EQ(called.outcome, DISP_E_PARAMNOTOPTIONAL);
  EXPECT_TRUE(product.word->uses.empty());
  Called whole;
  CallByNumber(*main.get(), kInitialize,
               {Of(VT_DISPATCH, &places[1]), Of(VT_DISPATCH, &places[2]), Of(VT_DISPATCH, &places[0]), OfText(name)},
               whole, {3, 0, 2, 1});
  EXPECT_EQ(whole.outcome, S_OK);
  EXPECT_FALSE(product.word->uses.empty());
}

TEST_F(Operations, WhatTheDoorRefuses) {
  ULONG owners = 0;
  const ComRef<IDispatch> object = NewFailing(E_FAIL, &owners);
  IDispatch* place = object.get();
  Bstr text(L"no flag");
  VARIANT null;
  VariantInit(&null);
  null.vt = VT_BYREF | VT_BSTR;
  null.byref = nullptr;
  VARIANT record;
  VariantInit(&record);
  record.vt = VT_RECORD;
  VARIANT deep = Of(VT_VARIANT, &record);
  struct Case {
    DISPID id;
    std::vector<VARIANT> arguments;
    std::vector<DISPID> names;
    HRESULT outcome;
    UINT badArgument;
  };
  const Case cases[] = {
      {kQuit, {OfLong(1)}, {}, DISP_E_BADPARAMCOUNT, 99},
      {kExecute, {}, {}, DISP_E_BADPARAMCOUNT, 99},
      {kExecute, {OfText(text), OfText(text)}, {}, DISP_E_BADPARAMCOUNT, 99},
      {kInitialize, {Of(VT_DISPATCH, &place)}, {}, DISP_E_BADPARAMCOUNT, 99},
      {kEnableGotoQuickBookmark, {OfText(text)}, {}, DISP_E_TYPEMISMATCH, 0},
      {kExecute, {Of(VT_DISPATCH, &place)}, {}, DISP_E_TYPEMISMATCH, 0},
      {kHandleCloseDocument, {OfLong(4)}, {}, DISP_E_TYPEMISMATCH, 0},
      {kInitialize,
       {Of(VT_DISPATCH, &place), OfLong(3), Of(VT_DISPATCH, &place), OfText(text)},
       {},
       DISP_E_TYPEMISMATCH,
       2},
      {kExecute, {record}, {}, DISP_E_TYPEMISMATCH, 0},
      {kExecute, {Of(VT_VARIANT, &deep)}, {}, DISP_E_TYPEMISMATCH, 0},
      {kExecute, {null}, {}, E_INVALIDARG, 99},
      {kExecute, {OfText(text)}, {7}, DISP_E_PARAMNOTFOUND, 0},
      {77, {}, {}, DISP_E_MEMBERNOTFOUND, 99},
      {-4, {}, {}, DISP_E_MEMBERNOTFOUND, 99},
      {0, {}, {}, DISP_E_MEMBERNOTFOUND, 99},
  };
  for (const Case& entry : cases) {
    Called called;
    CallByNumber(*main.get(), entry.id, entry.arguments, called, entry.names);
    EXPECT_EQ(called.outcome, entry.outcome) << entry.id << " with " << entry.arguments.size();
    EXPECT_EQ(called.badArgument, entry.badArgument) << entry.id << " with " << entry.arguments.size();
    const ErrorInformation told = TakeErrorInformation();
    EXPECT_EQ(told.source, L"Strandline.Main2") << entry.id;
    EXPECT_FALSE(told.description.empty()) << entry.id;
    EXPECT_TRUE(told.interfaceId == IID__Main2) << entry.id;
    EXPECT_EQ(owners, 1u) << entry.id;
  }
  EXPECT_EQ(place, object.get());
}

TEST_F(Operations, AnEmptyOrBrokenList) {
  DISPPARAMS parameters{nullptr, nullptr, 1, 0};
  EXPECT_EQ(main->Invoke(kExecute, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr), E_INVALIDARG);
  parameters = {nullptr, nullptr, 0, 2};
  EXPECT_EQ(main->Invoke(kExecute, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr), E_INVALIDARG);
  EXPECT_EQ(main->Invoke(kExecute, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr), E_INVALIDARG);
  parameters = {};
  EXPECT_EQ(main->Invoke(kQuit, IID_IDispatch, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr),
            DISP_E_UNKNOWNINTERFACE);
  EXPECT_EQ(main->Invoke(kReadingMode, IID_NULL, 4711, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr), S_OK);
}

TEST_F(Operations, NothingCanBeLet) {
  for (const WORD flags : {DISPATCH_PROPERTYPUT, DISPATCH_PROPERTYPUTREF}) {
    Called called;
    CallByNumber(*main.get(), kRibbonHandler, {OfLong(1)}, called, {DISPID_PROPERTYPUT}, static_cast<WORD>(flags));
    EXPECT_EQ(called.outcome, DISP_E_MEMBERNOTFOUND);
  }
}

TEST_F(Operations, TheAnswersHaveTheirTypes) {
  Called handler;
  CallByNumber(*main.get(), kRibbonHandler, {}, handler, {}, DISPATCH_PROPERTYGET);
  EXPECT_EQ(handler.outcome, S_OK);
  EXPECT_EQ(handler.result.vt, VT_DISPATCH);
  EXPECT_EQ(handler.result.pdispVal, nullptr);
  IDispatch* nothing = nullptr;
  Called close;
  CallByNumber(*main.get(), kHandleCloseDocument, {Of(VT_DISPATCH, &nothing)}, close);
  EXPECT_EQ(close.outcome, S_OK);
  EXPECT_EQ(close.result.vt, VT_BOOL);
}

// Each slot in turn, through the very table that a compiled client uses.
TEST_F(Operations, NullPointersInEachSlot_AreToldAsSuch) {
  Bstr text(L"text");
  BSTR answer = nullptr;
  VARIANT_BOOL flag = VARIANT_FALSE;
  IDispatch* object = nullptr;
  EXPECT_EQ(main->Initialize(nullptr, nullptr, nullptr, nullptr), E_POINTER);
  EXPECT_EQ(TakeErrorInformation().source, L"Strandline.Main2");
  EXPECT_EQ(main->Initialize(&object, &object, &object, nullptr), E_POINTER);
  EXPECT_EQ(main->Initialize(&object, &object, nullptr, text.Place()), E_POINTER);
  EXPECT_EQ(main->Initialize(&object, nullptr, &object, text.Place()), E_POINTER);
  EXPECT_EQ(main->Initialize(nullptr, &object, &object, text.Place()), E_POINTER);
  EXPECT_EQ(main->Execute(nullptr, &answer), E_POINTER);
  EXPECT_EQ(main->Execute(text.Place(), nullptr), E_POINTER);
  EXPECT_EQ(main->EnableGotoQuickBookmark(nullptr), E_POINTER);
  EXPECT_EQ(main->get_RibbonHandler(nullptr), E_POINTER);
  EXPECT_EQ(main->OpenUserManual(nullptr), E_POINTER);
  EXPECT_EQ(main->HandleCreateDocument(nullptr), E_POINTER);
  EXPECT_EQ(main->HandleCloseDocument(nullptr, &flag), E_POINTER);
  EXPECT_EQ(main->HandleCloseDocument(&object, nullptr), E_POINTER);
  EXPECT_EQ(main->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
  EXPECT_EQ(main->GetTypeInfoCount(nullptr), E_POINTER);
  EXPECT_EQ(main->GetTypeInfo(0, 0, nullptr), E_POINTER);
  EXPECT_EQ(main->GetIDsOfNames(IID_NULL, nullptr, 1, 0, nullptr), E_INVALIDARG);
  wchar_t name[] = L"Quit";
  LPOLESTR names[] = {name, nullptr};
  DISPID ids[2];
  EXPECT_EQ(main->GetIDsOfNames(IID_NULL, names, 2, 0, ids), E_INVALIDARG);
  EXPECT_EQ(main->GetIDsOfNames(IID_NULL, names, 0, 0, ids), E_INVALIDARG);
  ComRef<ITypeInfo> info;
  EXPECT_EQ(main->GetTypeInfo(1, 0, info.Put()), DISP_E_BADINDEX);
  EXPECT_EQ(main->GetTypeInfo(0, 4711, info.Put()), S_OK);

  const ComRef<_RibbonEvents> relay = dll.NewRibbonEvents();
  short index = 102;
  SAFEARRAY* bytes = nullptr;
  EXPECT_EQ(relay->getToolbarIconBits(nullptr, &bytes), E_POINTER);
  EXPECT_EQ(relay->getToolbarIconBits(&index, nullptr), E_POINTER);
  EXPECT_EQ(relay->run(nullptr), E_POINTER);
  EXPECT_EQ(TakeErrorInformation().source, L"Strandline.RibbonEvents");
}

TEST_F(Operations, ASuccessLeavesNoErrorInformation) {
  EXPECT_EQ(main->Execute(nullptr, nullptr), E_POINTER);
  Called called;
  CallByNumber(*main.get(), kReadingMode, {}, called);
  EXPECT_EQ(called.outcome, S_OK);
  EXPECT_TRUE(TakeErrorInformation().description.empty());
}

}  // namespace strandline::servertest
