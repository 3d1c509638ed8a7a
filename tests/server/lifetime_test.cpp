// When the DLL may go, and what it makes.

#include <gtest/gtest.h>

#include "tests/server/client.h"

namespace strandline::servertest {

TEST(Server, TheStubCantBeMadeByOutsiders) {
  const Dll dll;
  void* object = &object;
  EXPECT_EQ(dll.GetClassObject(CLSID_AdvertisementsCallbackStub, IID_IClassFactory, &object),
            CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(dll.GetClassObject(IID__Main2, IID_IClassFactory, &object), CLASS_E_CLASSNOTAVAILABLE);
}

TEST(Server, BadRequestsOfAClassObject) {
  const Dll dll;
  EXPECT_EQ(dll.GetClassObject(CLSID_Main2, IID_IClassFactory, nullptr), E_POINTER);
  void* object = &object;
  EXPECT_EQ(dll.GetClassObject(CLSID_Main2, IID_IDispatch, &object), E_NOINTERFACE);
  EXPECT_EQ(object, nullptr);
  const ComRef<IClassFactory> factory = dll.Factory(CLSID_Main2);
  EXPECT_EQ(factory->CreateInstance(factory.get(), IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
  object = &object;
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IStream, &object), E_NOINTERFACE);
  EXPECT_EQ(object, nullptr);
}

TEST(Server, MayGo_WhenNothingWasMade) {
  const Dll dll;
  EXPECT_EQ(dll.CanUnloadNow(), S_OK);
  EXPECT_EQ(dll.CanUnloadNow(), S_OK);
}

TEST(Server, StaysForAClassObject) {
  const Dll dll;
  ComRef<IClassFactory> factory = dll.Factory(CLSID_RibbonEvents);
  EXPECT_EQ(dll.CanUnloadNow(), S_FALSE);
  factory = {};
  EXPECT_EQ(dll.CanUnloadNow(), S_OK);
}

TEST(Server, StaysForALock) {
  const Dll dll;
  ComRef<IClassFactory> factory = dll.Factory(CLSID_Main2);
  EXPECT_EQ(factory->LockServer(TRUE), S_OK);
  EXPECT_EQ(factory->LockServer(TRUE), S_OK);
  EXPECT_EQ(factory->LockServer(FALSE), S_OK);
  factory = {};
  EXPECT_EQ(dll.CanUnloadNow(), S_FALSE);
  dll.Factory(CLSID_Main2)->LockServer(FALSE);
  EXPECT_EQ(dll.CanUnloadNow(), S_OK);
}

TEST(Server, StaysForAnObject) {
  const Dll dll;
  ComRef<_Main2> main = dll.NewMain2();
  EXPECT_EQ(dll.CanUnloadNow(), S_FALSE);
  EXPECT_EQ(main->Quit(), S_OK);
  EXPECT_EQ(dll.CanUnloadNow(), S_FALSE);
  main = {};
  EXPECT_EQ(dll.CanUnloadNow(), S_OK);
}

TEST(Server, StaysForAConnectionPoint) {
  const Dll dll;
  ComRef<IConnectionPointContainer> container;
  ComRef<IConnectionPoint> point;
  ASSERT_EQ(dll.NewRibbonEvents()->QueryInterface(IID_IConnectionPointContainer, container.PutVoid()), S_OK);
  ASSERT_EQ(container->FindConnectionPoint(DIID___RibbonEvents, point.Put()), S_OK);
  container = {};
  EXPECT_EQ(dll.CanUnloadNow(), S_FALSE);
  ComRef<IEnumConnections> connections;
  ASSERT_EQ(point->EnumConnections(connections.Put()), S_OK);
  point = {};
  EXPECT_EQ(dll.CanUnloadNow(), S_FALSE);
  connections = {};
  EXPECT_EQ(dll.CanUnloadNow(), S_OK);
}

TEST(Server, StaysWhileAProcedureRuns) {
  const Dll dll;
  ComRef<_Main2> main = dll.NewMain2();
  HRESULT within = E_FAIL;
  PlayedProduct product;
  product.word = New<Played>([&](Use, std::string_view, const Arguments&) -> Variant {
    within = dll.CanUnloadNow();
    return u"12.0";
  });
  EXPECT_EQ(product.Initialize(*main.get()), S_OK);
  EXPECT_EQ(within, S_FALSE);
  main = {};
  EXPECT_EQ(dll.CanUnloadNow(), S_OK);
}

TEST(Server, AfterItsEnd_BeginsAnew) {
  const Dll dll;
  for (int i = 0; i < 3; ++i) {
    ComRef<_Main2> main = dll.NewMain2();
    PlayedProduct product;
    EXPECT_EQ(product.Initialize(*main.get()), S_OK);
    EXPECT_FALSE(product.word->uses.empty());
    main = {};
    EXPECT_EQ(dll.CanUnloadNow(), S_OK);
  }
}

TEST(Server, LetsGoOfTheProductWhenItsLastReferenceGoes) {
  const Dll dll;
  ULONG owners = 0;
  const ComRef<IDispatch> failing = NewFailing(E_FAIL, &owners);
  {
    const ComRef<_Main2> main = dll.NewMain2();
    IDispatch* places[] = {failing.get(), failing.get(), failing.get()};
    Bstr name(L"Quillmere");
    EXPECT_EQ(main->Initialize(&places[0], &places[1], &places[2], name.Place()), S_OK);
    EXPECT_GT(owners, 1u);
  }
  EXPECT_EQ(owners, 1u);
}

// The system's own count of the module falls to nothing each time: its handle is free in between.
TEST(Server, LoadedUsedAndFreedOverAndOver) {
  for (int i = 0; i < 50; ++i) {
    {
      const Dll dll;
      const ComRef<_Main2> main = dll.NewMain2();
      PlayedProduct product;
      ASSERT_EQ(product.Initialize(*main.get()), S_OK);
      ASSERT_EQ(main->Quit(), S_OK);
    }
    ASSERT_EQ(::GetModuleHandleW(L"strandline.dll"), nullptr) << i;
  }
}

// Wrong, but no reason to fall over: nobody asked whether the DLL may go.
TEST(Server, FreedWithoutAsking) {
  const HMODULE module = ::LoadLibraryW(L"strandline.dll");
  ASSERT_NE(module, nullptr);
  using Entry = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
  const auto entry = reinterpret_cast<Entry>(reinterpret_cast<void*>(::GetProcAddress(module, "DllGetClassObject")));
  ComRef<IClassFactory> factory;
  ASSERT_EQ(entry(CLSID_Main2, IID_IClassFactory, factory.PutVoid()), S_OK);
  factory = {};
  EXPECT_TRUE(::FreeLibrary(module));
  EXPECT_EQ(::GetModuleHandleW(L"strandline.dll"), nullptr);
}

namespace {

struct Asked {
  const Dll* dll;
  HRESULT made;
  HRESULT mayGo;
};

DWORD WINAPI Ask(void* given) {
  auto& asked = *static_cast<Asked*>(given);
  void* object = nullptr;
  asked.made = asked.dll->GetClassObject(CLSID_Main2, IID_IClassFactory, &object);
  asked.mayGo = asked.dll->CanUnloadNow();
  return 0;
}

}  // namespace

TEST(Server, AnotherThreadIsRefusedWhileTheLoadIsInUse) {
  const Dll dll;
  const ComRef<_Main2> main = dll.NewMain2();
  Asked asked{&dll, S_OK, S_OK};
  const HANDLE thread = ::CreateThread(nullptr, 0, &Ask, &asked, 0, nullptr);
  ASSERT_NE(thread, nullptr);
  ::WaitForSingleObject(thread, INFINITE);
  ::CloseHandle(thread);
  EXPECT_EQ(asked.made, RPC_E_WRONG_THREAD);
  EXPECT_EQ(asked.mayGo, S_FALSE);
}

}  // namespace strandline::servertest
