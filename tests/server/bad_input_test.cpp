// A client that does what it shouldn't: an HRESULT or the default answer, never a crash.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/server/client.h"

namespace strandline::servertest {

namespace {

// Every operation but Initialize and Quit; each must come back with success, since an error inside ends there.
void ExpectEachOperationToEnd(_Main2& main) {
  Bstr command(L"ReadingMode");
  BSTR answer = nullptr;
  VARIANT_BOOL flag = VARIANT_TRUE;
  IDispatch* object = nullptr;
  EXPECT_EQ(main.Execute(command.Place(), &answer), S_OK);
  ::SysFreeString(answer);
  EXPECT_EQ(main.EnableGotoQuickBookmark(&flag), S_OK);
  EXPECT_EQ(main.get_RibbonHandler(&object), S_OK);
  if (object) object->Release();
  EXPECT_EQ(main.ReadingMode(), S_OK);
  EXPECT_EQ(main.ReadingModeLayout(), S_OK);
  EXPECT_EQ(main.CloseReadingMode(), S_OK);
  EXPECT_EQ(main.ToggleLumivex(), S_OK);
  EXPECT_EQ(main.FilePrintPreview2(), S_OK);
  EXPECT_EQ(main.ClosePreview(), S_OK);
  EXPECT_EQ(main.ShrinkToolbar(), S_OK);
  EXPECT_EQ(main.ProductNameChanged(), S_OK);
  answer = nullptr;
  EXPECT_EQ(main.OpenUserManual(&answer), S_OK);
  ::SysFreeString(answer);
  EXPECT_EQ(main.UseQuillmere(), S_OK);
  EXPECT_EQ(main.HandleCreateDocument(&flag), S_OK);
  EXPECT_EQ(main.HandleDocumentChange(), S_OK);
  IDispatch* doc = nullptr;
  EXPECT_EQ(main.HandleCloseDocument(&doc, &flag), S_OK);
  EXPECT_EQ(main.ClickOnAd(), S_OK);
}

HRESULT InitializeWith(_Main2& main, IDispatch* object) {
  return servertest::InitializeWith(main, object, object, object);
}

// What a client holds when the server of the object has died in a bad way: not even its identity can be asked for.
class Dead final : public IDispatch {
 public:
  ULONG owners = 1;  // the test's own
  STDMETHODIMP QueryInterface(REFIID, void** object) override {
    *object = nullptr;
    return static_cast<HRESULT>(RPC_E_DISCONNECTED);
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++owners; }
  STDMETHODIMP_(ULONG) Release() override { return --owners; }
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_FAIL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_FAIL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_FAIL; }
  STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override { return E_FAIL; }
};

class Client : public testing::Test {
 protected:
  Dll dll;
  ComRef<_Main2> main = dll.NewMain2();
};

}  // namespace

TEST_F(Client, EachOperationBeforeInitialize) { ExpectEachOperationToEnd(*main.get()); }

TEST_F(Client, QuitBeforeInitialize_AndEverythingAfterIt) {
  EXPECT_EQ(main->Quit(), S_OK);
  EXPECT_EQ(main->Quit(), S_OK);
  ExpectEachOperationToEnd(*main.get());
}

TEST_F(Client, EachOperationAfterQuit) {
  PlayedProduct product;
  EXPECT_EQ(product.Initialize(*main.get()), S_OK);
  EXPECT_EQ(main->Quit(), S_OK);
  ExpectEachOperationToEnd(*main.get());
}

TEST_F(Client, ASecondInitialize) {
  PlayedProduct product;
  EXPECT_EQ(product.Initialize(*main.get()), S_OK);
  EXPECT_EQ(product.Initialize(*main.get()), S_OK);
  ExpectEachOperationToEnd(*main.get());
  EXPECT_EQ(main->Quit(), S_OK);
}

TEST_F(Client, NothingForEachObject) {
  EXPECT_EQ(InitializeWith(*main.get(), nullptr), S_OK);
  ExpectEachOperationToEnd(*main.get());
  EXPECT_EQ(main->Quit(), S_OK);
}

TEST_F(Client, ObjectsThatRaiseInEachMember_AreLetGoAtQuit) {
  for (const HRESULT failure : {static_cast<HRESULT>(RPC_E_DISCONNECTED), DISP_E_EXCEPTION, E_OUTOFMEMORY,
                                static_cast<HRESULT>(0x800A11FD), E_NOTIMPL}) {
    const ComRef<_Main2> fresh = dll.NewMain2();
    ULONG owners = 0;
    const ComRef<IDispatch> failing = NewFailing(failure, &owners);
    EXPECT_EQ(InitializeWith(*fresh.get(), failing.get()), S_OK);
    ExpectEachOperationToEnd(*fresh.get());
    EXPECT_GT(owners, 1u);
    EXPECT_EQ(fresh->Quit(), S_OK);
    EXPECT_EQ(owners, 1u) << std::hex << failure;
  }
}

TEST_F(Client, AnObjectThatCallsBackIntoTheSameOperation) {
  constexpr int kDeepest = 200;
  int depth = 0;
  int deepest = 0;
  std::vector<HRESULT> nested;
  PlayedProduct product;
  product.word = New<Played>([&](Use, std::string_view, const Arguments&) -> Variant {
    // Each call asks Word several times; only the first one goes deeper.
    if (deepest < kDeepest) {
      deepest = std::max(deepest, ++depth);
      VARIANT_BOOL value = VARIANT_TRUE;
      nested.push_back(main->EnableGotoQuickBookmark(&value));
      --depth;
      EXPECT_EQ(value, VARIANT_TRUE);
    }
    Raise(4605);
  });
  EXPECT_EQ(product.Initialize(*main.get()), S_OK);
  EXPECT_EQ(deepest, kDeepest);
  EXPECT_EQ(nested, std::vector<HRESULT>(kDeepest, S_OK));
  EXPECT_EQ(main->Quit(), S_OK);
}

TEST_F(Client, AnObjectThatLetsGoOfTheLastReferenceWithinACall) {
  ComRef<_Main2> last = main;
  main = {};
  bool wasLetGo = false;
  PlayedProduct product;
  product.word = New<Played>([&](Use, std::string_view, const Arguments&) -> Variant {
    last = {};
    wasLetGo = true;
    EXPECT_EQ(dll.CanUnloadNow(), S_FALSE);
    return u"12.0";
  });
  _Main2* const raw = last.get();
  EXPECT_EQ(product.Initialize(*raw), S_OK);
  EXPECT_TRUE(wasLetGo);
  EXPECT_EQ(dll.CanUnloadNow(), S_OK);
}

TEST_F(Client, AnObjectThatTellsNothing_IsRefused) {
  Dead dead;
  EXPECT_TRUE(FAILED(InitializeWith(*main.get(), &dead)));
  EXPECT_EQ(TakeErrorInformation().source, L"Strandline.Main2");
  EXPECT_EQ(dead.owners, 1u);
  IDispatch* doc = &dead;
  VARIANT_BOOL flag = VARIANT_TRUE;
  EXPECT_TRUE(FAILED(main->HandleCloseDocument(&doc, &flag)));
  Called called;
  CallByNumber(*main.get(), 17, {Of(VT_DISPATCH, &doc)}, called);
  EXPECT_TRUE(FAILED(called.outcome));
  EXPECT_EQ(doc, &dead);
  EXPECT_EQ(dead.owners, 1u);
  ExpectEachOperationToEnd(*main.get());
}

#ifndef _WIN64
// The elements of this array are as many as no 32-bit process has memory for in one piece. So taking the argument fails
// in the DLL, by an exception of the DLL's own.
TEST_F(Client, AnExceptionOfTheDlls_StaysInside) {
  VARIANT element;
  VariantInit(&element);
  SAFEARRAY array{};
  array.cDims = 1;
  array.fFeatures = FADF_STATIC | FADF_FIXEDSIZE | FADF_VARIANT;
  array.cbElements = sizeof(VARIANT);
  array.pvData = &element;
  array.rgsabound[0].cElements = static_cast<ULONG>(PTRDIFF_MAX / sizeof(Variant));
  VARIANT argument;
  VariantInit(&argument);
  argument.vt = VT_ARRAY | VT_VARIANT;
  argument.parray = &array;
  Called called;
  CallByNumber(*main.get(), 2, {argument}, called);
  EXPECT_EQ(called.outcome, E_OUTOFMEMORY);
  EXPECT_EQ(TakeErrorInformation().source, L"Strandline.Main2");
  EXPECT_EQ(array.cLocks, 0u);
  ExpectEachOperationToEnd(*main.get());
}
#endif

TEST_F(Client, AForeignExceptionIsTheirs) {
  // The host's own faces turn what their objects throw into results, which the library then meets as errors.
  PlayedProduct product;
  product.word = New<Played>([](Use, std::string_view, const Arguments&) -> Variant { throw std::bad_alloc(); });
  EXPECT_EQ(product.Initialize(*main.get()), S_OK);
  ExpectEachOperationToEnd(*main.get());
}

}  // namespace strandline::servertest
