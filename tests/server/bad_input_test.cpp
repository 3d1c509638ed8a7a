// A client that does what it shouldn't: an HRESULT or the default answer, never a crash.

#include <gtest/gtest.h>

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
  IDispatch* places[] = {object, object, object};
  Bstr name(L"Quillmere");
  return main.Initialize(&places[0], &places[1], &places[2], name.Place());
}

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
  int depth = 0;
  ComRef<_Main2> called = main;
  PlayedProduct product;
  const auto word = New<Played>([&](Use, std::string_view, const Arguments&) -> Variant {
    if (depth++ < 200) {
      VARIANT_BOOL value = VARIANT_TRUE;
      called->EnableGotoQuickBookmark(&value);
    }
    return u"12.0";
  });
  product.word = word;
  EXPECT_EQ(product.Initialize(*main.get()), S_OK);
  EXPECT_GT(depth, 0);
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

TEST_F(Client, AForeignExceptionIsTheirs_ButOursStayInside) {
  // The host's own faces turn what their objects throw into results, which the library then meets as errors.
  PlayedProduct product;
  product.word = New<Played>([](Use, std::string_view, const Arguments&) -> Variant { throw std::bad_alloc(); });
  EXPECT_EQ(product.Initialize(*main.get()), S_OK);
  ExpectEachOperationToEnd(*main.get());
}

}  // namespace strandline::servertest
